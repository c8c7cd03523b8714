// MaterialMulti: a list of materials; it has no asset, and its copies share the list's materials.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "materials/base_material.h"

namespace TalvexCore {

class MaterialMulti : public BaseMaterial {
public:
    std::vector<MaterialPtr> materials;

    bool writeBinary(QuickArchive& out) const override;
    // Reads over the list as it stands: the materials read are appended.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 2; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    const std::u16string& pluginType() const override { return typeName<u"MtlMulti">(); }
};

}  // namespace TalvexCore
