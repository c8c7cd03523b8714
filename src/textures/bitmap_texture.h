// BitmapTexture: an image, read through a bitmap source and placed by a UVW generator.
#pragma once

#include "textures/base_bitmap.h"
#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class BitmapTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    BitmapPtr bitmap;  // url suffix "buffer"
    bool tile = true;

    BitmapTexture() { resetDefaults(); }

    // Fails with nothing written unless both the generator and the bitmap are set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 0; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexBitmap">(); }
};

}  // namespace TalvexCore
