// SkyTexture: an environment lit by a sun, which several skies may share.
#pragma once

#include <string>

#include "records/uuid.h"
#include "scene/sun_light.h"
#include "textures/base_texture.h"

namespace TalvexCore {

// The sun's parameters beside the sun are a copy that files keep and the XML never shows.
class SkyTexture : public BaseTexture, public SunParameters {
public:
    SunPtr sun = defaultSun();
    bool skyFlag = false;  // stored and compared, with no other use
    std::u16string skyId = newUuid();

    // The newest record carries the document's sun with every sky; a sun that fails to write
    // makes the result false, and writing goes on.
    bool writeBinary(QuickArchive& out) const override;
    // Reading the newest record gives the document's sun the file's values; a sky that names the
    // document's sun then shares that very object.
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override { *this = SkyTexture(); }
    uint32_t typeId() const override { return 12; }
    // A deep copy under a new id; its sun is a clone too, and so another sun.
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    // One parameter, the sun; the document's sun is named and left to the host, and another sun
    // is named under the url it was written with, or under its id.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexSky">(); }

private:
    bool holdsDocumentSun() const;
};

}  // namespace TalvexCore
