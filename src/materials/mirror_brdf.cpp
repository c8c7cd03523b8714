#include "materials/mirror_brdf.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "textures/fresnel_texture.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

bool Mirror_BRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 5);
    out.writeColor(color); out.writeColor(filter_color);
    out.writeF32(transparency_tex_mult); out.writeF32(cutoff);
    out.writeU32(mirror_aux_int);
    out.writeF32(color_tex_mult);
    if (!writeChild(out, transparency_tex) || !writeChild(out, color_tex)) return false;
    return writeBaseRecord(out);
}

// Mirror layer. Versions 1 to 4 keep the legacy Fresnel values where version 5 keeps only the
// transparency texture; version 1 stored one path, version 2 two, the name came with version 4.
bool Mirror_BRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3, 4, 5});
    if (!version) {
        resetDefaults();
        return false;
    }
    resetValues();
    LegacyFresnel fresnel;
    in.readColor(color); in.readColor(filter_color);
    in.readF32(transparency_tex_mult);
    if (*version <= 4) in.readF32(fresnel.index);
    in.readF32(cutoff);
    if (*version <= 4) in.readU32(fresnel.on);
    in.readU32(mirror_aux_int);
    if (*version == 1) {
        readFileChildren(in, transparency_tex);
    } else if (*version == 2) {
        // Both paths are read before either texture is built.
        std::u16string transparencyPath, colorPath;
        in.readWString(transparencyPath); in.readF32(color_tex_mult); in.readWString(colorPath);
        color_tex = textureFromFile(colorPath);
        transparency_tex = textureFromFile(transparencyPath);
    } else {
        in.readF32(color_tex_mult);
        if (!readChild(in, transparency_tex) || !readChild(in, color_tex)) return false;
    }
    fresnel.upgrade(transparency_tex);
    if (*version <= 3) return true;
    return readBaseRecord(in);
}

void Mirror_BRDF::resetDefaults()
{
    resetValues();
    transparency_tex = std::make_shared<FresnelTexture>();
}

void Mirror_BRDF::resetValues()
{
    resetBaseDefaults();
    color = whiteColor;
    filter_color = whiteColor;
    transparency_tex_mult = 1;
    color_tex_mult = 1;
    cutoff = 0.01f;
    mirror_aux_int = 1;
    transparency_tex = nullptr;
    color_tex = nullptr;
}

BRDFPtr Mirror_BRDF::clone() const
{
    auto copy = std::make_shared<Mirror_BRDF>(*this);
    copy->transparency_tex = cloneChild(transparency_tex);
    copy->color_tex = cloneChild(color_tex);
    return copy;
}

bool Mirror_BRDF::isEqual(const BRDFPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(transparency_tex, o->transparency_tex) && childEqual(color_tex, o->color_tex) &&
           color == o->color && filter_color == o->filter_color &&
           transparency_tex_mult == o->transparency_tex_mult && color_tex_mult == o->color_tex_mult &&
           cutoff == o->cutoff && mirror_aux_int == o->mirror_aux_int;
}

void Mirror_BRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeLayerXml(writer, url, {
        {"color", color},
        {"transparency", filter_color.complementColor()},
        {"color_tex_mult", color_tex_mult},
        {"transparency_tex_mult", transparency_tex_mult},
        {"cutoff", cutoff},
        {"transparency_tex", transparency_tex, "transparency_texture"},
        {"color_tex", color_tex, "color_texture"},
    });
}

}  // namespace TalvexCore
