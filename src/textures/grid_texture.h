// GridTexture: lines of one colour over a fill of another, each colour a child texture.
#pragma once

#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class GridTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    TexturePtr line_color;
    TexturePtr fill_color;
    float lineMultiplier = 0;  // stored, but no XML parameter
    float fillMultiplier = 0;  // stored, but no XML parameter
    float u_width = 0;
    float v_width = 0;

    GridTexture() { resetDefaults(); }

    // Fails with nothing written unless all three children are set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 6; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexGrid">(); }
};

}  // namespace TalvexCore
