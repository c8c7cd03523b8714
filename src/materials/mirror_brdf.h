// Mirror_BRDF: the plain reflective layer, whose transparency is a Fresnel texture by default.
#pragma once

#include "archive/value_types.h"
#include "materials/base_brdf.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class Mirror_BRDF : public Base_BRDF {
public:
    Color color;
    Color filter_color;  // the XML shows its complement as the transparency
    float transparency_tex_mult = 1;
    float color_tex_mult = 1;
    float cutoff = 0;
    uint32_t mirror_aux_int = 1;  // stored and compared, never in XML
    TexturePtr transparency_tex;
    TexturePtr color_tex;

    Mirror_BRDF() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // The default Fresnel texture never survives a load: only the record's own children stay.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 16; }
    // Makes a new default Fresnel texture the transparency texture.
    void resetDefaults() override;
    BRDFPtr clone() const override;
    bool isEqual(const BRDFPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"BRDFReflection">(); }

private:
    // Every default but the transparency texture, which is left empty: a record read gives its own.
    void resetValues();
};

}  // namespace TalvexCore
