// FresnelTexture: the reflection falloff that mirror and glossy layers take as their transparency.
#pragma once

#include "archive/value_types.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class FresnelTexture : public BaseTexture {
public:
    TexturePtr black_color_tex;  // url suffix "reflection_tex"
    TexturePtr white_color_tex;  // url suffix "refraction_tex"
    TexturePtr fresnel_ior_tex;
    TexturePtr refract_ior_tex;
    Color white_color;
    Color black_color;
    float fresnel_ior = 0;
    float refract_ior = 0;
    float black_color_tex_mult = 0;
    float white_color_tex_mult = 0;
    float fresnel_ior_tex_mult = 0;
    float refract_ior_tex_mult = 0;

    FresnelTexture() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 1; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexFresnel">(); }
};

}  // namespace TalvexCore
