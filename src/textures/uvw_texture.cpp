#include "textures/uvw_texture.h"

#include "records/record_io.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

void UVWTexture::resetDefaults()
{
    uvwgen = nullptr;
}

bool UVWTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    return writeRequiredChild(out, uvwgen);
}

bool UVWTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    if (!version) return false;
    return readRequiredChild(in, uvwgen);
}

TexturePtr UVWTexture::clone() const
{
    auto copy = std::make_shared<UVWTexture>(*this);
    copy->uvwgen = cloneChild(uvwgen);
    return copy;
}

bool UVWTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && childEqual(uvwgen, o->uvwgen);
}

void UVWTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const TextureXml xml(writer, *this, url, {{"uvwgen", "uvwgen", uvwgen}});
    xml.writeChildParameters();
    xml.close();
}

}  // namespace TalvexCore
