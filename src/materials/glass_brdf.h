// Glass_BRDF: the refractive layer, with fog, translucency and scattering and five textures.
#pragma once

#include "archive/value_types.h"
#include "materials/base_brdf.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class Glass_BRDF : public Base_BRDF {
public:
    Color color;
    Color transparency;
    Color fog_color;
    Color translucency;
    float ior = 0;
    float aux_ior = 0;  // stored and compared, never in XML
    float cutoff = 0;
    float fog_color_mult = 0;
    float glossiness = 0;
    float color_tex_mult = 0;
    float transparency_tex_mult = 0;
    float glossiness_tex_mult = 0;
    float ior_tex_mult = 0;
    float translucency_tex_mult = 0;
    float thickness = 0;
    float scatter_coeff = 0;
    float scatter_direction = 0;
    uint32_t subdivs = 0;
    uint32_t aux_int = 0;  // stored and compared, never in XML
    uint32_t affect_shadows = 0;  // truth values held in 32 bits
    uint32_t affect_alpha = 0;
    uint32_t translucency_on = 0;
    TexturePtr color_tex;
    TexturePtr transparency_tex;
    TexturePtr glossiness_tex;
    TexturePtr ior_texture;
    TexturePtr translucency_tex;

    Glass_BRDF() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // Resets the name and the flags only: a reused layer keeps its values where an old version
    // has no item for them.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 1; }
    void resetDefaults() override;
    BRDFPtr clone() const override;
    bool isEqual(const BRDFPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"BRDFRefraction">(); }

private:
    void writeTranslucency(QuickArchive& out) const;
    void readTranslucency(QuickArchive& in);
};

}  // namespace TalvexCore
