// Phong_BRDF and Blinn_BRDF: the twin glossy reflection layers, alike in all but their type id.
#pragma once

#include "archive/value_types.h"
#include "materials/base_brdf.h"
#include "textures/base_texture.h"

namespace TalvexCore {

// What the two glossy layers share: fields, defaults, record and XML.
class Glossy_BRDF : public Base_BRDF {
public:
    Color color;
    Color filter_color;  // the XML shows its complement as the transparency
    float hilightGlossiness = 1;
    float reflectionGlossiness = 1;
    float cutoff = 0;
    float hilightGlossiness_tex_mult = 1;
    float reflectionGlossiness_tex_mult = 1;
    float color_tex_mult = 1;
    float transparency_tex_mult = 1;
    float anisotropy = 0;
    float anisotropy_rotation = 0;
    uint32_t subdivs = 8;
    uint32_t aux_int = 5;  // stored and compared, never in XML
    uint32_t back_side = 0;
    TexturePtr hilightGlossiness_tex;
    TexturePtr reflectionGlossiness_tex;
    TexturePtr color_tex;
    TexturePtr transparency_tex;

    Glossy_BRDF() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // The default Fresnel texture never survives a load: only the record's own children stay.
    bool readBinary(QuickArchive& in) override;
    // Makes a new default Fresnel texture the transparency texture.
    void resetDefaults() final;
    bool isEqual(const BRDFPtr& other) const final;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const final;
    const std::u16string& pluginType() const final { return typeName<u"BRDFReflection">(); }

protected:
    // Gives the copy clones of this layer's children in place of the shared ones.
    BRDFPtr withClonedChildren(std::shared_ptr<Glossy_BRDF> copy) const;

private:
    // Every default but the transparency texture, which is left empty: a record read gives its own.
    void resetValues();
    // The newest record behind its tag.
    bool readNewest(QuickArchive& in);
    // Rows that recur in several versions: the three texture multipliers, the anisotropy pair.
    void readMultipliers(QuickArchive& in);
    void readAnisotropy(QuickArchive& in);
};

class Phong_BRDF final : public Glossy_BRDF {
public:
    uint32_t typeId() const override { return 8; }
    BRDFPtr clone() const override { return withClonedChildren(std::make_shared<Phong_BRDF>(*this)); }
};

class Blinn_BRDF final : public Glossy_BRDF {
public:
    uint32_t typeId() const override { return 4; }
    BRDFPtr clone() const override { return withClonedChildren(std::make_shared<Blinn_BRDF>(*this)); }
};

}  // namespace TalvexCore
