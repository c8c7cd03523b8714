// NoiseTexture: fractal noise between two colours, each of which a child texture may drive.
#pragma once

#include "archive/value_types.h"
#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class NoiseTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    TexturePtr color1_tex;
    TexturePtr color2_tex;
    Color color1;
    Color color2;
    float persistence = 0;
    float amplitude_ratio = 0;
    float frequency_ratio = 0;
    float frequency1 = 0;
    float amplitude1 = 0;
    float size = 0;
    float mix_ratio = 0;
    float bias = 0;
    float color1_tex_mult = 0;
    float color2_tex_mult = 0;
    int32_t octaves = 0;
    int32_t noiseType = 0;
    int32_t inflection = 0;

    NoiseTexture() { resetDefaults(); }

    // Fails with nothing written unless the generator is set.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 3; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexNoise">(); }
};

}  // namespace TalvexCore
