// MaterialDisplaced: displacement of a base material, shown only through the standard asset.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialDisplaced : public RowMaterial<MaterialDisplaced> {
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

    static constexpr uint32_t classTypeId = 9;
    static constexpr const char16_t* plugin = u"MtlDisplaced";
    static constexpr uint32_t newestVersion = 2;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialDisplaced>> recordRows();

    // No asset of its own: the base material's, under this material's url.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
};

}  // namespace TalvexCore
