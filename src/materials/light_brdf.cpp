#include "materials/light_brdf.h"

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

bool Light_BRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 5);
    out.writeColor(color); out.writeColor(transparency);
    out.writeF32(intensity); out.writeF32(aux_mult);
    out.writeF32(color_tex_mult); out.writeF32(transparency_tex_mult);
    if (!writeChild(out, color_tex) || !writeChild(out, transparency_tex)) return false;
    writeBaseRecord(out);
    out.writeU32(doubleSided);
    return true;
}

// Light layer: version 1 had no transparency colour and one texture path; version 2 two paths;
// the name came with version 4 and the double-sided switch with version 5.
bool Light_BRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3, 4, 5});
    resetDefaults();
    if (!version) return false;
    if (*version == 1) {
        in.readColor(color); in.readF32(intensity); in.readF32(transparency_tex_mult);
        return readFileChildren(in, transparency_tex);
    }
    in.readColor(color); in.readColor(transparency);
    in.readF32(intensity); in.readF32(aux_mult);
    in.readF32(color_tex_mult); in.readF32(transparency_tex_mult);
    if (*version == 2) return readFileChildren(in, color_tex, transparency_tex);
    if (!readChild(in, color_tex) || !readChild(in, transparency_tex)) return false;
    if (*version == 3) return true;
    if (!readBaseRecord(in)) return false;
    if (*version >= 5) in.readU32(doubleSided);
    return true;
}

void Light_BRDF::resetDefaults()
{
    resetBaseDefaults();
    color = whiteColor;
    transparency = blackColor;
    intensity = 1;
    aux_mult = 1;
    transparency_tex_mult = 1;
    color_tex_mult = 1;
    transparency_tex = nullptr;
    color_tex = nullptr;
    doubleSided = 1;
}

BRDFPtr Light_BRDF::clone() const
{
    auto copy = std::make_shared<Light_BRDF>(*this);
    copy->transparency_tex = cloneChild(transparency_tex);
    copy->color_tex = cloneChild(color_tex);
    return copy;
}

bool Light_BRDF::isEqual(const BRDFPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(color_tex, o->color_tex) && childEqual(transparency_tex, o->transparency_tex) &&
           color == o->color && transparency == o->transparency && intensity == o->intensity &&
           aux_mult == o->aux_mult && transparency_tex_mult == o->transparency_tex_mult &&
           color_tex_mult == o->color_tex_mult && doubleSided == o->doubleSided;
}

// The transparency child stands under the short url word "transp_texture" in this layer only.
void Light_BRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeLayerXml(writer, url, {
        {"color", color},
        {"transparency", transparency},
        {"intensity", intensity},
        {"transparency_tex_mult", transparency_tex_mult},
        {"color_tex_mult", color_tex_mult},
        {"doubleSided", doubleSided != 0},
        {"color_tex", color_tex, "color_texture"},
        {"transparency_tex", transparency_tex, "transp_texture"},
    });
}

}  // namespace TalvexCore
