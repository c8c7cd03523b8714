// MaterialReference: names a scene material by its uuid, and carries a copy for a scene that lacks it.
#pragma once

#include <cstdint>
#include <string>

#include "materials/base_material.h"

namespace TalvexCore {

class MaterialReference : public BaseMaterial {
public:
    std::u16string target_uuid;
    // The copy of the target as the last save found it in the scene; saving refreshes it.
    mutable MaterialPtr embedded;

    // Refreshes `embedded` from the scene, and stores what it then holds.
    bool writeBinary(QuickArchive& out) const override;
    // Reads over the fields as they stand; version 1 holds no copy.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 13; }
    void resetDefaults() override;
    // Copies keep the name and the target, and hold no copy of it.
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    // Same target without regard to case, and what the scene gives for both equal or both missing.
    bool isEqual(const MaterialPtr& other) const override;

    // A reference has no asset of its own: it stands for its copy, which it emits in its place.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const final;
};

}  // namespace TalvexCore
