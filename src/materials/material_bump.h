// MaterialBump: a bump texture over a base material; the one wrapper whose reset also renames it.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialBump : public RowMaterial<MaterialBump> {
public:
    MaterialPtr base_mtl;  // stored with no presence byte: a bump cannot be saved without it
    TexturePtr bump_tex;
    float bump_tex_mult = 1;

    static constexpr uint32_t classTypeId = 3;
    static constexpr const char16_t* plugin = u"MtlBump";
    static constexpr uint32_t newestVersion = 3;
    static constexpr LoadReset loadReset = LoadReset::None;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialBump>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialBump>> xmlRows();

    // No version resets the fields first; versions 1 and 2 are read by hand.
    bool readBinary(QuickArchive& in) override;
    // The one wrapper whose reset also takes a new name and drops the uuid.
    void resetDefaults() override;
};

}  // namespace TalvexCore
