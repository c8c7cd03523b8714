// RampTexture: a gradient along the coordinates of its generator, its colours taken from a child.
#pragma once

#include "textures/base_texture.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class RampTexture : public BaseTexture {
public:
    UVWPtr uvwgen;
    TexturePtr colors;
    float positions = 0;
    float u_wave = 0;
    float v_wave = 0;
    int32_t type = 0;
    int32_t interpolation = 0;

    RampTexture() { resetDefaults(); }

    // Tests nothing before it writes: an empty child fails where it stands in the record.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 11; }
    TexturePtr clone() const override;
    bool isEqual(const TexturePtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"TexRamp">(); }
};

}  // namespace TalvexCore
