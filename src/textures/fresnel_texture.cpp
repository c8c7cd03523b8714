#include "textures/fresnel_texture.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void FresnelTexture::resetDefaults()
{
    black_color_tex = white_color_tex = fresnel_ior_tex = refract_ior_tex = nullptr;
    white_color = whiteColor;
    black_color = {65.0f / 255.0f, 65.0f / 255.0f, 65.0f / 255.0f};
    fresnel_ior = refract_ior = 1.55f;
    black_color_tex_mult = white_color_tex_mult = fresnel_ior_tex_mult = refract_ior_tex_mult = 1.0f;
}

bool FresnelTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeColor(white_color); out.writeColor(black_color);
    out.writeF32(fresnel_ior); out.writeF32(refract_ior);
    out.writeF32(black_color_tex_mult); out.writeF32(white_color_tex_mult);
    out.writeF32(fresnel_ior_tex_mult); out.writeF32(refract_ior_tex_mult);
    return writeChild(out, black_color_tex) && writeChild(out, white_color_tex) &&
           writeChild(out, fresnel_ior_tex) && writeChild(out, refract_ior_tex);
}

// Version 1 holds the two colours and the two indices only: no multipliers, no children.
bool FresnelTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    in.readColor(white_color); in.readColor(black_color);
    in.readF32(fresnel_ior); in.readF32(refract_ior);
    if (*version == 1) return true;
    in.readF32(black_color_tex_mult); in.readF32(white_color_tex_mult);
    in.readF32(fresnel_ior_tex_mult); in.readF32(refract_ior_tex_mult);
    return readChild(in, black_color_tex) && readChild(in, white_color_tex) &&
           readChild(in, fresnel_ior_tex) && readChild(in, refract_ior_tex);
}

TexturePtr FresnelTexture::clone() const
{
    auto copy = std::make_shared<FresnelTexture>(*this);
    copy->black_color_tex = cloneChild(black_color_tex);
    copy->white_color_tex = cloneChild(white_color_tex);
    copy->fresnel_ior_tex = cloneChild(fresnel_ior_tex);
    copy->refract_ior_tex = cloneChild(refract_ior_tex);
    return copy;
}

bool FresnelTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(black_color_tex, o->black_color_tex) && childEqual(white_color_tex, o->white_color_tex) &&
           childEqual(fresnel_ior_tex, o->fresnel_ior_tex) && childEqual(refract_ior_tex, o->refract_ior_tex) &&
           white_color == o->white_color && black_color == o->black_color && fresnel_ior == o->fresnel_ior &&
           refract_ior == o->refract_ior && black_color_tex_mult == o->black_color_tex_mult &&
           white_color_tex_mult == o->white_color_tex_mult && fresnel_ior_tex_mult == o->fresnel_ior_tex_mult &&
           refract_ior_tex_mult == o->refract_ior_tex_mult;
}

// The renderer takes the colours the other way round: each is written as its complement. The
// first slot, named "black_color_tex", lies under "reflection_tex"; the second under "refraction_tex".
void FresnelTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"black_color_tex", "reflection_tex", black_color_tex},
                          {"white_color_tex", "refraction_tex", white_color_tex},
                          {"fresnel_ior_tex", "fresnel_ior_tex", fresnel_ior_tex},
                          {"refract_ior_tex", "refract_ior_tex", refract_ior_tex}});
    writer.writeColor("white_color", white_color.complementColor());
    writer.writeColor("black_color", black_color.complementColor());
    writer.writeFloat("fresnel_ior", fresnel_ior);
    writer.writeFloat("refract_ior", refract_ior);
    writer.writeFloat("black_color_tex_mult", black_color_tex_mult);
    writer.writeFloat("white_color_tex_mult", white_color_tex_mult);
    writer.writeFloat("fresnel_ior_tex_mult", fresnel_ior_tex_mult);
    writer.writeFloat("refract_ior_tex_mult", refract_ior_tex_mult);
    xml.writeChildParameters();
    xml.close();
}

}  // namespace TalvexCore
