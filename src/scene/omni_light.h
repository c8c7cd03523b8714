// OmniLight: a point light; its XML names the units "causticSubdivs".
#pragma once

#include "records/shared_constants.h"
#include "scene/base_light.h"

namespace TalvexCore {

class OmniLight : public BaseLight {
public:
    Transform transform = identityTransform;
    Color color = whiteColor, shadowColor = blackColor;
    float cutoffThreshold = 0.005f, shadowBias = 0, shadowRadius = 0, decay = 0, intensity = 30, extraScale = 1;
    int32_t units = 0;
    uint32_t photonSubdivs = 500, causticSubdivs = 1000, shadowSubdivs = 8;
    int32_t extraMode = 3;
    bool enabled = true, shadows = true, affectDiffuse = true, affectSpecular = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 2; }
    LightPtr clone() const override { return std::make_shared<OmniLight>(*this); }
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = OmniLight(); }
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"LightOmni">(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

}  // namespace TalvexCore
