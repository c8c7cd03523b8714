#include "textures/texture_xml.h"

namespace TalvexCore {

namespace {

std::u16string textureUrl(std::u16string url, const TalvexXMLSerializable& self)
{
    url += u'/';
    url += self.pluginType();
    return url;
}

}  // namespace

TextureXml::TextureXml(AssetXmlWriter& writer, const TalvexXMLSerializable& self, std::u16string url,
                       std::initializer_list<ChildSlot> slots)
    : AssetFrame(writer, self, textureUrl(std::move(url), self), "", slots)
{
}

}  // namespace TalvexCore
