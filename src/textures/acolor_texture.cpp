#include "textures/acolor_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void AColorTexture::resetDefaults()
{
    texture = {1, 1, 1, 1};
}

bool AColorTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    out.writeAColor(texture);
    return true;
}

bool AColorTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    in.readAColor(texture);
    return true;
}

TexturePtr AColorTexture::clone() const
{
    return std::make_shared<AColorTexture>(*this);
}

bool AColorTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && texture == o->texture;
}

void AColorTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url);
    writer.writeAColor("texture", texture);
    xml.close();
}

}  // namespace TalvexCore
