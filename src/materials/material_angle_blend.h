// MaterialAngleBlend: two materials blended by the angle of view.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialAngleBlend : public RowMaterial<MaterialAngleBlend> {
public:
    MaterialPtr mtl_one;
    MaterialPtr mtl_two;
    float start_angle = 75;
    float stop_angle = 150;

    static constexpr uint32_t classTypeId = 12;
    static constexpr const char16_t* plugin = u"MtlAngleBlend";
    static constexpr uint32_t newestVersion = 1;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialAngleBlend>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialAngleBlend>> xmlRows();
};

}  // namespace TalvexCore
