#include "textures/noise_texture.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void NoiseTexture::resetDefaults()
{
    uvwgen = nullptr;
    color1_tex = color2_tex = nullptr;
    color1 = whiteColor;
    color2 = blackColor;
    persistence = 1.0f;
    amplitude_ratio = 1.0f;
    frequency_ratio = 2.0f;
    frequency1 = 1.0f;
    amplitude1 = 1.0f;
    size = 1.0f;
    mix_ratio = 0.5f;
    bias = 0.0f;
    color1_tex_mult = color2_tex_mult = 1.0f;
    octaves = 3;
    noiseType = 0;
    inflection = 0;
}

bool NoiseTexture::writeBinary(QuickArchive& out) const
{
    if (!uvwgen) return false;
    writeVersion(out, 1);
    if (!writeRequiredChild(out, uvwgen) || !writeChild(out, color1_tex) || !writeChild(out, color2_tex))
        return false;
    out.writeColor(color1); out.writeColor(color2);
    for (float v : {persistence, amplitude_ratio, frequency_ratio, frequency1, amplitude1, size, mix_ratio, bias,
                    color1_tex_mult, color2_tex_mult})
        out.writeF32(v);
    out.writeI32(octaves); out.writeI32(noiseType); out.writeI32(inflection);
    return true;
}

bool NoiseTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen) || !readChild(in, color1_tex) || !readChild(in, color2_tex)) return false;
    in.readColor(color1); in.readColor(color2);
    for (float* v : {&persistence, &amplitude_ratio, &frequency_ratio, &frequency1, &amplitude1, &size, &mix_ratio,
                     &bias, &color1_tex_mult, &color2_tex_mult})
        in.readF32(*v);
    in.readI32(octaves); in.readI32(noiseType); in.readI32(inflection);
    return true;
}

TexturePtr NoiseTexture::clone() const
{
    auto copy = std::make_shared<NoiseTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    copy->color1_tex = cloneChild(color1_tex);
    copy->color2_tex = cloneChild(color2_tex);
    return copy;
}

bool NoiseTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && childEqual(color1_tex, o->color1_tex) &&
           childEqual(color2_tex, o->color2_tex) && color1 == o->color1 && color2 == o->color2 &&
           persistence == o->persistence && amplitude_ratio == o->amplitude_ratio &&
           frequency_ratio == o->frequency_ratio && frequency1 == o->frequency1 && amplitude1 == o->amplitude1 &&
           size == o->size && mix_ratio == o->mix_ratio && bias == o->bias && color1_tex_mult == o->color1_tex_mult &&
           color2_tex_mult == o->color2_tex_mult && octaves == o->octaves && noiseType == o->noiseType &&
           inflection == o->inflection;
}

void NoiseTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"uvwgen", "uvwgen", uvwgen},
                          {"color1_tex", "color1_tex", color1_tex},
                          {"color2_tex", "color2_tex", color2_tex}});
    xml.writeChildParameters();
    writer.writeColor("color1", color1);
    writer.writeColor("color2", color2);
    writer.writeFloat("persistence", persistence);
    writer.writeFloat("amplitude_ratio", amplitude_ratio);
    writer.writeFloat("frequency_ratio", frequency_ratio);
    writer.writeFloat("frequency1", frequency1);
    writer.writeFloat("amplitude1", amplitude1);
    writer.writeFloat("size", size);
    writer.writeFloat("mix_ratio", mix_ratio);
    writer.writeFloat("bias", bias);
    writer.writeFloat("color1_tex_mult", color1_tex_mult);
    writer.writeFloat("color2_tex_mult", color2_tex_mult);
    writer.writeInt("octaves", octaves);
    writer.writeInt("noiseType", noiseType);
    writer.writeInt("inflection", inflection);
    xml.close();
}

}  // namespace TalvexCore
