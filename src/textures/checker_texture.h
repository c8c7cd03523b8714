// CheckerTexture: a checkerboard of two child textures, which a new checker creates for itself.
#pragma once

#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class CheckerTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    TexturePtr white_color;
    TexturePtr black_color;
    float whiteMultiplier = 0;  // stored, but no XML parameter
    float blackMultiplier = 0;  // stored, but no XML parameter
    bool tile_u = true;
    bool tile_v = true;

    CheckerTexture() { resetDefaults(); }

    // Fails with nothing written unless all three children are set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    // Gives the checker a new planar world generator and two new constant colours.
    void resetDefaults() override;
    uint32_t typeId() const override { return 4; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexChecker">(); }
};

}  // namespace TalvexCore
