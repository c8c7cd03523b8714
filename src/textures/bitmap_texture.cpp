#include "textures/bitmap_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void BitmapTexture::resetDefaults()
{
    uvwgen = nullptr;
    bitmap = nullptr;
    tile = true;
}

// Both type ids stand ahead of both records.
bool BitmapTexture::writeBinary(QuickArchive& out) const
{
    if (!uvwgen || !bitmap) return false;
    writeVersion(out, 1);
    out.writeI32(static_cast<int32_t>(uvwgen->typeId()));
    out.writeI32(static_cast<int32_t>(bitmap->typeId()));
    if (!writeChildRecord(out, uvwgen) || !writeChildRecord(out, bitmap)) return false;
    out.writeBool(tile);
    return true;
}

bool BitmapTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    uint32_t uvwId = 0, bitmapId = 0;
    const uint64_t at = in.readPosition();
    in.readU32(uvwId);
    in.readU32(bitmapId);
    if (!makeChild(in, uvwgen, uvwId, at) || !makeChild(in, bitmap, bitmapId, at + 4)) return false;
    if (!readChildRecord(in, uvwgen) || !readChildRecord(in, bitmap)) return false;
    in.readBool(tile);
    return true;
}

TexturePtr BitmapTexture::clone() const
{
    auto copy = std::make_shared<BitmapTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    copy->bitmap = cloneChild(bitmap);
    return copy;
}

bool BitmapTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && childEqual(bitmap, o->bitmap) && tile == o->tile;
}

void BitmapTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url,
                         {{"uvwgen", "uvwgen", uvwgen}, {"bitmap", "buffer", bitmap}});
    xml.writeChildParameters();
    writer.writeBool("tile", tile);
    xml.close();
}

}  // namespace TalvexCore
