// InvertTexture: the complement of a child texture, and of its alpha on request.
#pragma once

#include "textures/base_texture.h"

namespace TalvexCore {

class InvertTexture : public BaseTexture {
public:
    TexturePtr texture;  // url suffix "base_texture"
    bool invert_alpha = false;

    InvertTexture() { resetDefaults(); }

    // Fails with nothing written unless the texture is set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 9; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexInvert">(); }
};

}  // namespace TalvexCore
