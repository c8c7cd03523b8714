// RectangleLight: an area light of a given size, also used as a light portal.
#pragma once

#include "records/shared_constants.h"
#include "scene/base_light.h"

namespace TalvexCore {

class RectangleLight : public BaseLight {
public:
    Transform transform = identityTransform;
    Color color = whiteColor, shadowColor = blackColor;
    float cutoffThreshold = 0.005f, u_size = 1, v_size = 1, intensity = 30, shadowBias = 0, extraScale = 1;
    int32_t units = 0;
    uint32_t subdivs = 8, causticSubdivs = 1000, photonSubdivs = 500;
    int32_t extraMode = 3;
    bool storeWithIrradianceMap = false, doubleSided = false, invisible = false, lightPortal = false,
         noDecay = false, ignoreLightNormals = true, enabled = true, shadows = true;
    bool affectDiffuse = true, affectSpecular = true, affectReflections = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 3; }
    LightPtr clone() const override { return std::make_shared<RectangleLight>(*this); }
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = RectangleLight(); }
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"LightRectangle">(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

}  // namespace TalvexCore
