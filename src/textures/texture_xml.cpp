#include "textures/texture_xml.h"

namespace TalvexCore {

TextureXml::TextureXml(AssetXmlWriter& writer, const TalvexXMLSerializable& self, const std::u16string& url,
                       std::initializer_list<ChildSlot> slots)
    : AssetFrame(writer, self, AssetUrl(url, self.pluginType()), "", slots)
{
}

}  // namespace TalvexCore
