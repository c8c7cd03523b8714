// Light_BRDF: the self-illuminated layer, a colour and an intensity with their textures.
#pragma once

#include "archive/value_types.h"
#include "materials/base_brdf.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class Light_BRDF : public Base_BRDF {
public:
    Color color;
    Color transparency;
    float intensity = 1;
    float aux_mult = 1;  // stored and compared, never in XML
    float transparency_tex_mult = 1;
    float color_tex_mult = 1;
    TexturePtr transparency_tex;
    TexturePtr color_tex;
    uint32_t doubleSided = 1;  // a truth value held in 32 bits

    Light_BRDF() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 32; }
    void resetDefaults() override;
    BRDFPtr clone() const override;
    bool isEqual(const BRDFPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"BRDFLight">(); }
};

}  // namespace TalvexCore
