#include "materials/diffuse_brdf.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

bool Diffuse_BRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 4);
    out.writeColor(color); out.writeColor(transparency);
    out.writeF32(color_tex_mult); out.writeF32(transparency_tex_mult);
    if (!writeChild(out, color_tex) || !writeChild(out, transparency_tex)) return false;
    writeBaseRecord(out);
    out.writeBool(use_color_tex_alpha_as_transparency);
    return true;
}

// Diffuse layer: colour and transparency with their textures; version 1 stored file paths.
bool Diffuse_BRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3, 4});
    resetDefaults();
    if (!version) return false;
    in.readColor(color); in.readColor(transparency);
    in.readF32(color_tex_mult); in.readF32(transparency_tex_mult);
    if (*version == 1) return readFileChildren(in, color_tex, transparency_tex);
    if (!readChild(in, color_tex) || !readChild(in, transparency_tex)) return false;
    if (*version == 2) return true;
    const bool base = readBaseRecord(in);
    if (*version >= 4) in.readBool(use_color_tex_alpha_as_transparency);
    return base;
}

void Diffuse_BRDF::resetDefaults()
{
    resetBaseDefaults();
    color = {0.5f, 0.5f, 0.5f};
    transparency = blackColor;
    color_tex_mult = 1;
    transparency_tex_mult = 1;
    color_tex = nullptr;
    transparency_tex = nullptr;
    use_color_tex_alpha_as_transparency = false;
}

BRDFPtr Diffuse_BRDF::clone() const
{
    auto copy = std::make_shared<Diffuse_BRDF>(*this);
    copy->color_tex = cloneChild(color_tex);
    copy->transparency_tex = cloneChild(transparency_tex);
    return copy;
}

bool Diffuse_BRDF::isEqual(const BRDFPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(color_tex, o->color_tex) && childEqual(transparency_tex, o->transparency_tex) &&
           color == o->color && transparency == o->transparency && color_tex_mult == o->color_tex_mult &&
           transparency_tex_mult == o->transparency_tex_mult &&
           use_color_tex_alpha_as_transparency == o->use_color_tex_alpha_as_transparency;
}

void Diffuse_BRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeLayerXml(writer, url, {
        {"color", color},
        {"transparency", transparency},
        {"color_tex_mult", color_tex_mult},
        {"transparency_tex_mult", transparency_tex_mult},
        {"color_tex", color_tex, "color_texture"},
        {"transparency_tex", transparency_tex, "transparency_texture"},
        {"use_color_tex_alpha_as_transparency", use_color_tex_alpha_as_transparency},
    });
}

}  // namespace TalvexCore
