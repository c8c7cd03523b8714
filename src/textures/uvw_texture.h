// UVWTexture: shows the coordinates of its generator as a colour.
#pragma once

#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class UVWTexture : public BaseTexture {
public:
    UVWPtr uvwgen;

    UVWTexture() { resetDefaults(); }

    // Tests nothing before it writes: an empty generator fails behind the tag.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 2; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexUVW">(); }
};

}  // namespace TalvexCore
