// MaterialInstance: a shared target that is never stored; it has no asset, and it equals nothing.
#pragma once

#include <cstdint>

#include "materials/base_material.h"

namespace TalvexCore {

class MaterialInstance : public BaseMaterial {
public:
    MaterialPtr instance_target;  // shared by copies, never saved

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 4; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    // Always false, also for the object itself.
    bool isEqual(const MaterialPtr& other) const override;
};

}  // namespace TalvexCore
