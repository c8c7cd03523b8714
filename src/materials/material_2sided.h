// Material2Sided: a front and a back material, with the translucency and transparency between them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class Material2Sided : public RowMaterial<Material2Sided> {
public:
    MaterialPtr front;
    MaterialPtr back;
    TexturePtr translucency_tex;  // shared, not cloned, by a copy
    TexturePtr transparency_tex;  // shared, not cloned, by a copy
    Color translucency{};
    Color transparency{};
    float translucency_tex_mult = 1;
    float transparency_tex_mult = 1;
    bool force_1sided = false;

    static constexpr uint32_t classTypeId = 5;
    static constexpr const char16_t* plugin = u"Mtl2Sided";
    static constexpr uint32_t newestVersion = 3;
    static constexpr LoadReset loadReset = LoadReset::None;
    static constexpr TextureCopy textureCopy = TextureCopy::Share;
    static std::span<const RecordRow<Material2Sided>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<Material2Sided>> xmlRows();
};

}  // namespace TalvexCore
