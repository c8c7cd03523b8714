// MaterialObjectExclusion: a base material that some objects, named in a list, do not take.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialObjectExclusion : public RowMaterial<MaterialObjectExclusion> {
public:
    MaterialPtr base_mtl;
    uint32_t mode = 0;
    ObjectNames objects;  // compared without regard to case, in list order
    bool short_circuit = true;

    static constexpr uint32_t classTypeId = 10;
    static constexpr const char16_t* plugin = u"MtlObjectExclusion";
    static constexpr uint32_t newestVersion = 3;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialObjectExclusion>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialObjectExclusion>> xmlRows();
};

}  // namespace TalvexCore
