// Material2Sided: a front and a back material, with the translucency and transparency between them.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class Material2Sided : public BaseMaterial {
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

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 5; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"Mtl2Sided"; }

    static std::span<const RecordRow<Material2Sided>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<Material2Sided>> xmlRows();
};

}  // namespace TalvexCore
