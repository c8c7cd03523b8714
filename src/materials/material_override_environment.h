// MaterialOverrideEnvironment: a base material that sees another environment in GI, background,
// reflection and refraction.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialOverrideEnvironment : public RowMaterial<MaterialOverrideEnvironment> {
public:
    MaterialPtr base_mtl;
    TexturePtr gi_tex;
    TexturePtr bg_tex;
    TexturePtr reflect_tex;
    TexturePtr refract_tex;
    Color gi_color{};
    Color bg_color{};
    Color reflect_color{};
    Color refract_color{};
    float bg_tex_mult = 1;
    float gi_tex_mult = 1;
    float reflect_tex_mult = 1;
    float refract_tex_mult = 1;
    bool override_bg = false;
    bool override_gi = false;
    bool override_reflect = false;
    bool override_refract = false;

    static constexpr uint32_t classTypeId = 8;
    static constexpr const char16_t* plugin = u"MtlOverrideEnvironment";
    static constexpr uint32_t newestVersion = 1;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialOverrideEnvironment>> recordRows();

    // No asset of its own: the base material's, under the url it was given.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
};

}  // namespace TalvexCore
