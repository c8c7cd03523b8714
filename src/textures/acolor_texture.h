// AColorTexture: a constant colour with alpha, the default child of other textures.
#pragma once

#include "archive/value_types.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class AColorTexture : public BaseTexture {
public:
    AColor texture;

    AColorTexture() { resetDefaults(); }
    explicit AColorTexture(const AColor& color) : texture(color) {}

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 5; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexAColor">(); }
};

}  // namespace TalvexCore
