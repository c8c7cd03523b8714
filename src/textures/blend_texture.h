// BlendTexture: a mix of two child textures by a fixed amount.
#pragma once

#include "textures/base_texture.h"

namespace TalvexCore {

class BlendTexture : public BaseTexture {
public:
    TexturePtr color_a;
    TexturePtr color_b;
    float color_a_mult = 0;  // stored with its child; no XML parameter
    float color_b_mult = 0;  // stored with its child; no XML parameter
    float blend_amount = 0;

    BlendTexture() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 10; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexBlend">(); }
};

}  // namespace TalvexCore
