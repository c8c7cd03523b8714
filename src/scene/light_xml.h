// The asset frame of a light: its url adds the plug-in type; a light has no children.
#pragma once

#include <string>

#include "scene/base_light.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

class LightXml : public AssetFrame {
public:
    LightXml(AssetXmlWriter& writer, const BaseLight& light, const std::u16string& url)
        : AssetFrame(writer, light, AssetUrl(url, light.pluginType()), "")
    {
    }
};

}  // namespace TalvexCore
