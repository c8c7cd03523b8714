// The asset frame of every texture, generator and bitmap: its url adds the plug-in type.
#pragma once

#include <initializer_list>
#include <string>

#include "xml/asset_frame.h"

namespace TalvexCore {

// Extends the url by "/" and the plug-in type, writes each present child under its slot url, and
// opens the asset with no layout, the plugin and the parameters. The class then writes its
// parameters, naming its children through writeChildParameters, and calls close.
class TextureXml : public AssetFrame {
public:
    TextureXml(AssetXmlWriter& writer, const TalvexXMLSerializable& self, const std::u16string& url,
               std::initializer_list<ChildSlot> slots = {});
};

}  // namespace TalvexCore
