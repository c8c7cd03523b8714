// The asset frame of a light: the asset under its url, its plugin and its parameters. Lights have
// no children, so nothing stands before it.
#pragma once

#include <string>

#include "scene/base_light.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

class LightXml {
public:
    // `assetUrl` is the url the asset stands under, already extended as the class wants it.
    LightXml(AssetXmlWriter& writer, const BaseLight& light, const std::u16string& assetUrl) : writer(writer)
    {
        writer.openAsset(assetUrl, light.assetType(), "");
        writer.openPlugin(light.pluginType(), light.assetType());
        writer.openParameters();
    }
    void close() const
    {
        writer.closeParameters();
        writer.closePlugin();
        writer.closeAsset();
    }

private:
    AssetXmlWriter& writer;
};

// The url of a light's asset: the owner's url, "/" and the plug-in type.
inline std::u16string lightUrl(const BaseLight& light, std::u16string url)
{
    return url + u'/' + light.pluginType();
}

}  // namespace TalvexCore
