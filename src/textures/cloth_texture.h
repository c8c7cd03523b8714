// ClothTexture: a woven pattern of two thread colours over a gap colour.
#pragma once

#include "archive/value_types.h"
#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class ClothTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    AColor gap_color;
    AColor u_color;
    AColor v_color;
    float u_width = 0;
    float v_width = 0;
    bool tile = true;  // one field, written as both "tile_u" and "tile_v"

    ClothTexture() { resetDefaults(); }

    // Fails with nothing written unless the generator is set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 7; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexCloth">(); }
};

}  // namespace TalvexCore
