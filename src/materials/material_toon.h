// MaterialToon: line rendering over a base material.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialToon : public BaseMaterial {
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

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 14; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    // Keeps this name, yet the inner material takes a new one: it is cloned, not copied by name.
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlToon"; }

    static std::span<const RecordRow<MaterialToon>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialToon>> xmlRows();
};

}  // namespace TalvexCore
