#include "materials/glass_brdf.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

bool Glass_BRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 6);
    out.writeColor(color); out.writeColor(fog_color);
    out.writeF32(ior); out.writeF32(aux_ior); out.writeF32(cutoff); out.writeF32(fog_color_mult);
    out.writeF32(glossiness);
    out.writeU32(aux_int); out.writeU32(subdivs); out.writeU32(affect_shadows); out.writeU32(affect_alpha);
    out.writeF32(color_tex_mult); out.writeF32(glossiness_tex_mult); out.writeF32(ior_tex_mult);
    writeTranslucency(out);
    if (!writeChild(out, color_tex) || !writeChild(out, glossiness_tex) || !writeChild(out, ior_texture) ||
        !writeChild(out, translucency_tex))
        return false;
    out.writeColor(transparency); out.writeF32(transparency_tex_mult);
    if (!writeChild(out, transparency_tex)) return false;
    return writeBaseRecord(out);
}

// Refraction layer. Versions 2 to 4 held the transparency texture where version 5 holds the
// colour texture; version 5 added the colour texture and the transparency colour, version 6 the name.
bool Glass_BRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3, 4, 5, 6});
    resetBaseDefaults();
    if (!version) return false;
    in.readColor(color); in.readColor(fog_color);
    in.readF32(ior); in.readF32(aux_ior); in.readF32(cutoff); in.readF32(fog_color_mult); in.readF32(glossiness);
    in.readU32(aux_int); in.readU32(subdivs); in.readU32(affect_shadows); in.readU32(affect_alpha);
    if (*version == 1) return true;
    if (*version <= 4) {
        in.readF32(transparency_tex_mult); in.readF32(glossiness_tex_mult); in.readF32(ior_tex_mult);
        if (*version == 2) return readFileChildren(in, transparency_tex, glossiness_tex, ior_texture);
        if (*version == 3) {
            readFileChildren(in, transparency_tex, glossiness_tex, ior_texture);
            readTranslucency(in);
            return readFileChildren(in, translucency_tex);
        }
        readTranslucency(in);
        return readChild(in, transparency_tex) && readChild(in, glossiness_tex) && readChild(in, ior_texture) &&
               readChild(in, translucency_tex);
    }
    in.readF32(color_tex_mult); in.readF32(glossiness_tex_mult); in.readF32(ior_tex_mult);
    readTranslucency(in);
    if (!readChild(in, color_tex) || !readChild(in, glossiness_tex) || !readChild(in, ior_texture) ||
        !readChild(in, translucency_tex))
        return false;
    in.readColor(transparency); in.readF32(transparency_tex_mult);
    if (!readChild(in, transparency_tex)) return false;
    if (*version == 5) return true;
    return readBaseRecord(in);
}

// The translucency items, in the same order in every version that has them.
void Glass_BRDF::writeTranslucency(QuickArchive& out) const
{
    out.writeU32(translucency_on);
    out.writeF32(thickness); out.writeF32(scatter_coeff); out.writeF32(scatter_direction);
    out.writeF32(translucency_tex_mult);
    out.writeColor(translucency);
}

void Glass_BRDF::readTranslucency(QuickArchive& in)
{
    in.readU32(translucency_on);
    in.readF32(thickness); in.readF32(scatter_coeff); in.readF32(scatter_direction);
    in.readF32(translucency_tex_mult);
    in.readColor(translucency);
}

void Glass_BRDF::resetDefaults()
{
    resetBaseDefaults();
    color = whiteColor;
    transparency = blackColor;
    fog_color = whiteColor;
    translucency = whiteColor;
    ior = 1.55f;
    aux_ior = 1.55f;
    cutoff = 0.001f;
    fog_color_mult = 1;
    glossiness = 1;
    color_tex_mult = 1;
    transparency_tex_mult = 1;
    glossiness_tex_mult = 1;
    ior_tex_mult = 1;
    translucency_tex_mult = 1;
    thickness = 1000;
    scatter_coeff = 0;
    scatter_direction = 1;
    subdivs = 8;
    aux_int = 5;
    affect_shadows = 0;
    affect_alpha = 0;
    translucency_on = 0;
    color_tex = nullptr;
    transparency_tex = nullptr;
    glossiness_tex = nullptr;
    ior_texture = nullptr;
    translucency_tex = nullptr;
}

BRDFPtr Glass_BRDF::clone() const
{
    auto copy = std::make_shared<Glass_BRDF>(*this);
    copy->color_tex = cloneChild(color_tex);
    copy->transparency_tex = cloneChild(transparency_tex);
    copy->glossiness_tex = cloneChild(glossiness_tex);
    copy->ior_texture = cloneChild(ior_texture);
    copy->translucency_tex = cloneChild(translucency_tex);
    return copy;
}

bool Glass_BRDF::isEqual(const BRDFPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(color_tex, o->color_tex) && childEqual(transparency_tex, o->transparency_tex) &&
           childEqual(glossiness_tex, o->glossiness_tex) && childEqual(ior_texture, o->ior_texture) &&
           childEqual(translucency_tex, o->translucency_tex) &&
           color == o->color && transparency == o->transparency && fog_color == o->fog_color &&
           translucency == o->translucency && ior == o->ior && aux_ior == o->aux_ior && cutoff == o->cutoff &&
           fog_color_mult == o->fog_color_mult && glossiness == o->glossiness &&
           color_tex_mult == o->color_tex_mult && transparency_tex_mult == o->transparency_tex_mult &&
           glossiness_tex_mult == o->glossiness_tex_mult && ior_tex_mult == o->ior_tex_mult &&
           translucency_tex_mult == o->translucency_tex_mult && thickness == o->thickness &&
           scatter_coeff == o->scatter_coeff && scatter_direction == o->scatter_direction &&
           subdivs == o->subdivs && aux_int == o->aux_int && affect_shadows == o->affect_shadows &&
           affect_alpha == o->affect_alpha && translucency_on == o->translucency_on;
}

// The glossiness child stands under the url word "glossy_texture", not its parameter's name.
void Glass_BRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeLayerXml(writer, url, {
        {"color", color},
        {"transparency", transparency},
        {"fog_color", fog_color},
        {"translucency", translucency},
        {"affect_shadows", affect_shadows != 0},
        {"affect_alpha", affect_alpha != 0},
        {"translucency_on", translucency_on != 0},
        {"ior", ior},
        {"fog_color_mult", fog_color_mult},
        {"glossiness", glossiness},
        {"glossiness_tex_mult", glossiness_tex_mult},
        {"ior_tex_mult", ior_tex_mult},
        {"translucency_tex_mult", translucency_tex_mult},
        {"scatter_coeff", scatter_coeff},
        {"scatter_direction", scatter_direction},
        {"thickness", thickness},
        {"transparency_tex_mult", transparency_tex_mult},
        {"cutoff", cutoff},
        {"color_tex_mult", color_tex_mult},
        {"subdivs", static_cast<int32_t>(subdivs)},
        {"transparency_tex", transparency_tex, "transparency_texture"},
        {"color_tex", color_tex, "color_texture"},
        {"glossiness_tex", glossiness_tex, "glossy_texture"},
        {"ior_texture", ior_texture, "ior_texture"},
        {"translucency_tex", translucency_tex, "translucency_texture"},
    });
}

}  // namespace TalvexCore
