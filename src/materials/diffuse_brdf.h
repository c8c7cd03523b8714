// Diffuse_BRDF: the diffuse layer, a colour and a transparency with their textures.
#pragma once

#include "archive/value_types.h"
#include "materials/base_brdf.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class Diffuse_BRDF : public Base_BRDF {
public:
    Color color;
    Color transparency;
    float color_tex_mult = 1;
    float transparency_tex_mult = 1;
    TexturePtr color_tex;
    TexturePtr transparency_tex;
    bool use_color_tex_alpha_as_transparency = false;

    Diffuse_BRDF() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 2; }
    void resetDefaults() override;
    BRDFPtr clone() const override;
    bool isEqual(const BRDFPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"BRDFDiffuse">(); }
};

}  // namespace TalvexCore
