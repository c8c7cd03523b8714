#include "textures/bulge_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void BulgeTexture::resetDefaults()
{
    uvwgen = nullptr;
    u_width = v_width = 0.1f;
}

bool BulgeTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    if (!writeRequiredChild(out, uvwgen)) return false;
    out.writeF32(u_width); out.writeF32(v_width);
    return true;
}

bool BulgeTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, uvwgen)) return false;
    in.readF32(u_width); in.readF32(v_width);
    return true;
}

TexturePtr BulgeTexture::clone() const
{
    auto copy = std::make_shared<BulgeTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    return copy;
}

bool BulgeTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen) && u_width == o->u_width && v_width == o->v_width;
}

void BulgeTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url, {{"uvwgen", "uvwgen", uvwgen}});
    xml.writeChildParameters();
    writer.writeFloat("u_width", u_width);
    writer.writeFloat("v_width", v_width);
    xml.close();
}

}  // namespace TalvexCore
