// SpotLight: a cone light with barn doors; its XML always closes with the legacy mark.
#pragma once

#include "records/shared_constants.h"
#include "scene/base_light.h"

namespace TalvexCore {

class SpotLight : public BaseLight {
public:
    Transform transform = identityTransform;
    Color color = whiteColor, shadowColor = blackColor;
    float cutoffThreshold = 0.005f;
    float barnDoorLeft = 20, barnDoorRight = 20, barnDoorTop = 20, barnDoorBottom = 20;
    float intensity = 50, decay = 0, shadowBias = 0, shadowRadius = 0, coneAngle = 1, penumbraAngle = 0;
    float extraScale = 1;
    int32_t units = 0;
    uint32_t photonSubdivs = 500, causticSubdivs = 1000, shadowSubdivs = 8;
    int32_t extraMode = 3;
    bool enabled = true, shadows = true, barnDoor = false, affectDiffuse = true, affectSpecular = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 4; }
    LightPtr clone() const override { return std::make_shared<SpotLight>(*this); }
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = SpotLight(); }
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"LightSpot">(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

}  // namespace TalvexCore
