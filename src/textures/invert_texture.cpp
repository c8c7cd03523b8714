#include "textures/invert_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void InvertTexture::resetDefaults()
{
    texture = nullptr;
    invert_alpha = false;
}

bool InvertTexture::writeBinary(QuickArchive& out) const
{
    if (!texture) return false;
    writeVersion(out, 1);
    if (!writeRequiredChild(out, texture)) return false;
    out.writeBool(invert_alpha);
    return true;
}

bool InvertTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    if (!readRequiredChild(in, texture)) return false;
    in.readBool(invert_alpha);
    return true;
}

TexturePtr InvertTexture::clone() const
{
    auto copy = std::make_shared<InvertTexture>(*this);
    copy->texture = cloneChild(texture);
    return copy;
}

bool InvertTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(texture, o->texture) && invert_alpha == o->invert_alpha;
}

void InvertTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url, {{"texture", "base_texture", texture}});
    xml.writeChildParameters();
    writer.writeBool("invert_alpha", invert_alpha);
    xml.close();
}

}  // namespace TalvexCore
