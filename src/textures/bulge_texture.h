// BulgeTexture: a pattern of rounded tiles over the coordinates of its generator.
#pragma once

#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class BulgeTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    float u_width = 0;
    float v_width = 0;

    BulgeTexture() { resetDefaults(); }

    // An empty generator fails with the tag already written.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 8; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexBulge">(); }
};

}  // namespace TalvexCore
