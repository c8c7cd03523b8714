// MaterialToon: line rendering over a base material.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialToon : public RowMaterial<MaterialToon> {
public:
    MaterialPtr base_mtl;
    Color color{};
    TexturePtr color_tex;
    float color_tex_mult = 1;
    float distort = 0;
    TexturePtr distort_tex;
    float distort_tex_mult = 1;
    float opacity = 1;
    TexturePtr opacity_tex;
    float opacity_tex_mult = 1;
    float width = 1.5f;
    TexturePtr width_tex;
    float width_tex_mult = 1;
    float z_threshold = 0.95f;
    float trace_bias = 0.02f;
    float normal_threshold = 0.7f;
    float line_units = 1;  // stored and compared, but never in the top-level asset
    bool do_secondary = true;
    bool divide_by_distance = false;
    bool do_silhouette_mult = false;
    float silhouette_mult = 1.5f;

    static constexpr uint32_t classTypeId = 14;
    static constexpr const char16_t* plugin = u"MtlToon";
    static constexpr uint32_t newestVersion = 2;
    static constexpr LoadReset loadReset = LoadReset::AfterTag;
    static constexpr TextureCopy textureCopy = TextureCopy::Clone;
    static std::span<const RecordRow<MaterialToon>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialToon>> xmlRows();

    // Keeps this name, yet the inner material takes a new one: it is cloned, not copied by name.
    MaterialPtr cloneSameName() const override;
};

}  // namespace TalvexCore
