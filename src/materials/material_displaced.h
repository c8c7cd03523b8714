// MaterialDisplaced: displacement of a base material, shown only through the standard asset.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialDisplaced : public BaseMaterial {
public:
    MaterialPtr base_mtl;
    TexturePtr displace_tex;
    float displace_tex_mult = 1;
    float displace_shift = 0;
    float displace_edge_length = 4;
    uint32_t displace_max_subdivs = 256;
    uint32_t displace_continuity = 1;
    uint32_t displace_view_dependent = 1;
    uint32_t displace_use_globals = 1;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 9; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlDisplaced"; }

    static std::span<const RecordRow<MaterialDisplaced>> recordRows();
};

}  // namespace TalvexCore
