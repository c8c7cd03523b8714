#include "materials/glossy_brdf.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/fresnel_texture.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

bool Glossy_BRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 6);
    out.writeColor(color); out.writeColor(filter_color);
    out.writeF32(hilightGlossiness); out.writeF32(reflectionGlossiness); out.writeF32(cutoff);
    out.writeU32(subdivs); out.writeU32(back_side); out.writeU32(aux_int);
    out.writeF32(color_tex_mult); out.writeF32(hilightGlossiness_tex_mult);
    out.writeF32(reflectionGlossiness_tex_mult); out.writeF32(transparency_tex_mult);
    if (!writeChild(out, color_tex) || !writeChild(out, hilightGlossiness_tex) ||
        !writeChild(out, reflectionGlossiness_tex) || !writeChild(out, transparency_tex))
        return false;
    out.writeF32(anisotropy); out.writeF32(anisotropy_rotation);
    return writeBaseRecord(out);
}

// Glossy layer. The newest version keeps the transparency texture and its multiplier; versions 1
// to 5 share a head with the legacy Fresnel values in their place, and each has its own tail.
bool Glossy_BRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3, 4, 5, 6});
    if (!version) {
        resetDefaults();
        return false;
    }
    resetValues();
    if (*version == 6) return readNewest(in);

    LegacyFresnel fresnel;
    in.readColor(color); in.readColor(filter_color);
    in.readF32(hilightGlossiness); in.readF32(reflectionGlossiness);
    in.readF32(fresnel.index);
    in.readF32(cutoff); in.readU32(subdivs);
    in.readU32(fresnel.on);
    in.readU32(back_side); in.readU32(aux_int);

    switch (*version) {
    case 1: break;
    case 2:
        readMultipliers(in);
        readFileChildren(in, color_tex, hilightGlossiness_tex, reflectionGlossiness_tex);
        break;
    case 3:
        readMultipliers(in);
        readFileChildren(in, color_tex, hilightGlossiness_tex, reflectionGlossiness_tex);
        readAnisotropy(in);
        break;
    default:  // 4, and 5 with the base record behind
        readMultipliers(in);
        if (!readChild(in, color_tex) || !readChild(in, hilightGlossiness_tex) ||
            !readChild(in, reflectionGlossiness_tex))
            return false;
        readAnisotropy(in);
        break;
    }
    fresnel.upgrade(transparency_tex);
    return *version <= 4 || readBaseRecord(in);
}

bool Glossy_BRDF::readNewest(QuickArchive& in)
{
    in.readColor(color); in.readColor(filter_color);
    in.readF32(hilightGlossiness); in.readF32(reflectionGlossiness); in.readF32(cutoff);
    in.readU32(subdivs); in.readU32(back_side); in.readU32(aux_int);
    readMultipliers(in);
    in.readF32(transparency_tex_mult);
    if (!readChild(in, color_tex) || !readChild(in, hilightGlossiness_tex) ||
        !readChild(in, reflectionGlossiness_tex) || !readChild(in, transparency_tex))
        return false;
    readAnisotropy(in);
    return readBaseRecord(in);
}

void Glossy_BRDF::readMultipliers(QuickArchive& in)
{
    in.readF32(color_tex_mult); in.readF32(hilightGlossiness_tex_mult); in.readF32(reflectionGlossiness_tex_mult);
}

void Glossy_BRDF::readAnisotropy(QuickArchive& in)
{
    in.readF32(anisotropy); in.readF32(anisotropy_rotation);
}

void Glossy_BRDF::resetDefaults()
{
    resetValues();
    transparency_tex = std::make_shared<FresnelTexture>();
}

void Glossy_BRDF::resetValues()
{
    resetBaseDefaults();
    color = whiteColor;
    filter_color = whiteColor;
    hilightGlossiness = 1;
    reflectionGlossiness = 1;
    cutoff = 0.01f;
    hilightGlossiness_tex_mult = 1;
    reflectionGlossiness_tex_mult = 1;
    color_tex_mult = 1;
    transparency_tex_mult = 1;
    anisotropy = 0;
    anisotropy_rotation = 0;
    subdivs = 8;
    aux_int = 5;
    back_side = 0;
    hilightGlossiness_tex = nullptr;
    reflectionGlossiness_tex = nullptr;
    color_tex = nullptr;
    transparency_tex = nullptr;
}

BRDFPtr Glossy_BRDF::withClonedChildren(std::shared_ptr<Glossy_BRDF> copy) const
{
    copy->hilightGlossiness_tex = cloneChild(hilightGlossiness_tex);
    copy->reflectionGlossiness_tex = cloneChild(reflectionGlossiness_tex);
    copy->color_tex = cloneChild(color_tex);
    copy->transparency_tex = cloneChild(transparency_tex);
    return copy;
}

// Phong and Blinn layers of equal values differ by their type ids.
bool Glossy_BRDF::isEqual(const BRDFPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(color_tex, o->color_tex) && childEqual(hilightGlossiness_tex, o->hilightGlossiness_tex) &&
           childEqual(reflectionGlossiness_tex, o->reflectionGlossiness_tex) &&
           childEqual(transparency_tex, o->transparency_tex) &&
           color == o->color && filter_color == o->filter_color && hilightGlossiness == o->hilightGlossiness &&
           reflectionGlossiness == o->reflectionGlossiness && cutoff == o->cutoff &&
           hilightGlossiness_tex_mult == o->hilightGlossiness_tex_mult &&
           reflectionGlossiness_tex_mult == o->reflectionGlossiness_tex_mult &&
           color_tex_mult == o->color_tex_mult && transparency_tex_mult == o->transparency_tex_mult &&
           anisotropy == o->anisotropy && anisotropy_rotation == o->anisotropy_rotation &&
           subdivs == o->subdivs && aux_int == o->aux_int && back_side == o->back_side;
}

// The url words are in snake case although the parameter names are mixed.
void Glossy_BRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeLayerXml(writer, url, {
        {"color", color},
        {"transparency", filter_color.complementColor()},
        {"hilightGlossiness", hilightGlossiness},
        {"reflectionGlossiness", reflectionGlossiness},
        {"cutoff", cutoff},
        {"subdivs", static_cast<int32_t>(subdivs)},
        {"back_side", static_cast<int32_t>(back_side)},
        {"color_tex_mult", color_tex_mult},
        {"hilightGlossiness_tex_mult", hilightGlossiness_tex_mult},
        {"reflectionGlossiness_tex_mult", reflectionGlossiness_tex_mult},
        {"transparency_tex_mult", transparency_tex_mult},
        {"anisotropy", anisotropy},
        {"anisotropy_rotation", anisotropy_rotation},
        {"color_tex", color_tex, "color_texture"},
        {"hilightGlossiness_tex", hilightGlossiness_tex, "hilight_glossiness_texture"},
        {"reflectionGlossiness_tex", reflectionGlossiness_tex, "reflection_glossiness_texture"},
        {"transparency_tex", transparency_tex, "transparency_texture"},
    });
}

}  // namespace TalvexCore
