#include "textures/cloth_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void ClothTexture::resetDefaults()
{
    uvwgen = nullptr;
    gap_color = {1, 1, 1, 1};
    u_color = {0, 0, 0, 1};
    v_color = {1, 1, 1, 1};
    u_width = v_width = 0.1f;
    tile = true;
}

bool ClothTexture::writeBinary(QuickArchive& out) const
{
    if (!uvwgen) return false;
    writeVersion(out, 2);
    if (!writeRequiredChild(out, uvwgen)) return false;
    out.writeAColor(gap_color); out.writeAColor(u_color); out.writeAColor(v_color);
    out.writeF32(u_width); out.writeF32(v_width);
    out.writeBool(tile);
    return true;
}

// Version 1 has no tile flag.
bool ClothTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen)) return false;
    in.readAColor(gap_color); in.readAColor(u_color); in.readAColor(v_color);
    in.readF32(u_width); in.readF32(v_width);
    if (*version >= 2) in.readBool(tile);
    return true;
}

TexturePtr ClothTexture::clone() const
{
    auto copy = std::make_shared<ClothTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    return copy;
}

bool ClothTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && gap_color == o->gap_color && u_color == o->u_color &&
           v_color == o->v_color && u_width == o->u_width && v_width == o->v_width && tile == o->tile;
}

// The renderer tiles each direction on its own; the one stored flag serves both.
void ClothTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url, {{"uvwgen", "uvwgen", uvwgen}});
    xml.writeChildParameters();
    writer.writeAColor("gap_color", gap_color);
    writer.writeAColor("u_color", u_color);
    writer.writeAColor("v_color", v_color);
    writer.writeFloat("u_width", u_width);
    writer.writeFloat("v_width", v_width);
    writer.writeBool("tile_u", tile);
    writer.writeBool("tile_v", tile);
    xml.close();
}

}  // namespace TalvexCore
