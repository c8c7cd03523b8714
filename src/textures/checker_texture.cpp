#include "textures/checker_texture.h"

#include "records/record_io.h"
#include "textures/acolor_texture.h"
#include "textures/space_uvw.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void CheckerTexture::resetDefaults()
{
    uvwgen = std::make_shared<GenPlanarWorldUVW>();
    white_color = std::make_shared<AColorTexture>(AColor{1, 1, 1, 1});
    black_color = std::make_shared<AColorTexture>(AColor{0, 0, 0, 1});
    whiteMultiplier = blackMultiplier = 1.0f;
    tile_u = tile_v = true;
}

bool CheckerTexture::writeBinary(QuickArchive& out) const
{
    if (!uvwgen || !white_color || !black_color) return false;
    writeVersion(out, 2);
    if (!writeRequiredChild(out, uvwgen) || !writeRequiredChild(out, white_color) ||
        !writeRequiredChild(out, black_color))
        return false;
    out.writeBool(tile_u); out.writeBool(tile_v);
    out.writeF32(whiteMultiplier); out.writeF32(blackMultiplier);
    return true;
}

// Version 1 ends with the two tile flags: it has no multipliers.
bool CheckerTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen) || !readRequiredChild(in, white_color) || !readRequiredChild(in, black_color))
        return false;
    in.readBool(tile_u); in.readBool(tile_v);
    if (*version >= 2) { in.readF32(whiteMultiplier); in.readF32(blackMultiplier); }
    return true;
}

TexturePtr CheckerTexture::clone() const
{
    auto copy = std::make_shared<CheckerTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    copy->white_color = cloneChild(white_color);
    copy->black_color = cloneChild(black_color);
    return copy;
}

bool CheckerTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && childEqual(white_color, o->white_color) &&
           childEqual(black_color, o->black_color) && whiteMultiplier == o->whiteMultiplier &&
           blackMultiplier == o->blackMultiplier && tile_u == o->tile_u && tile_v == o->tile_v;
}

void CheckerTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"uvwgen", "uvwgen", uvwgen},
                          {"white_color", "white_color", white_color},
                          {"black_color", "black_color", black_color}});
    xml.writeChildParameters();
    writer.writeBool("tile_u", tile_u);
    writer.writeBool("tile_v", tile_v);
    xml.close();
}

}  // namespace TalvexCore
