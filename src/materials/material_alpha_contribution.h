// MaterialAlphaContribution: how much a base material gives to the image's alpha.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialAlphaContribution : public BaseMaterial {
public:
    MaterialPtr base_mtl;
    TexturePtr alpha_tex;
    float alpha_tex_mult = 1;
    float alpha = 1;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 11; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlAlphaContribution"; }

    static std::span<const RecordRow<MaterialAlphaContribution>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialAlphaContribution>> xmlRows();
};

}  // namespace TalvexCore
