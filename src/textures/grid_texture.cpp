#include "textures/grid_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void GridTexture::resetDefaults()
{
    uvwgen = nullptr;
    line_color = fill_color = nullptr;
    lineMultiplier = fillMultiplier = 1.0f;
    u_width = v_width = 0.1f;
}

bool GridTexture::writeBinary(QuickArchive& out) const
{
    if (!uvwgen || !line_color || !fill_color) return false;
    writeVersion(out, 2);
    if (!writeRequiredChild(out, uvwgen) || !writeRequiredChild(out, line_color) ||
        !writeRequiredChild(out, fill_color))
        return false;
    out.writeF32(lineMultiplier); out.writeF32(fillMultiplier);
    out.writeF32(u_width); out.writeF32(v_width);
    return true;
}

// Version 1 has no multipliers.
bool GridTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen) || !readRequiredChild(in, line_color) || !readRequiredChild(in, fill_color))
        return false;
    if (*version >= 2) { in.readF32(lineMultiplier); in.readF32(fillMultiplier); }
    in.readF32(u_width); in.readF32(v_width);
    return true;
}

TexturePtr GridTexture::clone() const
{
    auto copy = std::make_shared<GridTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    copy->line_color = cloneChild(line_color);
    copy->fill_color = cloneChild(fill_color);
    return copy;
}

bool GridTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && childEqual(line_color, o->line_color) &&
           childEqual(fill_color, o->fill_color) && lineMultiplier == o->lineMultiplier &&
           fillMultiplier == o->fillMultiplier && u_width == o->u_width && v_width == o->v_width;
}

void GridTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"uvwgen", "uvwgen", uvwgen},
                          {"line_color", "line_color", line_color},
                          {"fill_color", "fill_color", fill_color}});
    xml.writeChildParameters();
    writer.writeFloat("u_width", u_width);
    writer.writeFloat("v_width", v_width);
    xml.close();
}

}  // namespace TalvexCore
