// MaterialBump: a bump texture over a base material; the one wrapper whose reset also renames it.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialBump : public BaseMaterial {
public:
    MaterialPtr base_mtl;  // stored with no presence byte: a bump cannot be saved without it
    TexturePtr bump_tex;
    float bump_tex_mult = 1;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 3; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlBump"; }

    static std::span<const RecordRow<MaterialBump>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialBump>> xmlRows();
};

}  // namespace TalvexCore
