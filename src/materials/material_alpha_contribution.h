// MaterialAlphaContribution: how much a base material gives to the image's alpha.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialAlphaContribution : public RowMaterial<MaterialAlphaContribution> {
public:
    MaterialPtr base_mtl;
    TexturePtr alpha_tex;
    float alpha_tex_mult = 1;
    float alpha = 1;

    static constexpr uint32_t classTypeId = 11;
    static constexpr const char16_t* plugin = u"MtlAlphaContribution";
    static constexpr uint32_t newestVersion = 1;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialAlphaContribution>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialAlphaContribution>> xmlRows();
};

}  // namespace TalvexCore
