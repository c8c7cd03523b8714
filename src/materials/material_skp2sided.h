// MaterialSkp2Sided: the plain two-sided form, a front and a back material.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialSkp2Sided : public RowMaterial<MaterialSkp2Sided> {
public:
    MaterialPtr front;
    MaterialPtr back;
    bool force_1sided = false;

    static constexpr uint32_t classTypeId = 7;
    static constexpr const char16_t* plugin = u"MtlSkp2Sided";
    static constexpr uint32_t newestVersion = 1;
    static constexpr LoadReset loadReset = LoadReset::None;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialSkp2Sided>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialSkp2Sided>> xmlRows();
};

}  // namespace TalvexCore
