// MayaDirectLight: an infinite direct light with a key-framed transform that the XML leaves out.
#pragma once

#include "records/shared_constants.h"
#include "scene/animated_values.h"
#include "scene/base_light.h"

namespace TalvexCore {

class MayaDirectLight : public BaseLight {
public:
    AnimatedTransform transform = identityKeyFrames();
    Color color = whiteColor, shadowColor = blackColor;
    float shadowBias = 0, shadowRadius = 0, intensity = 1, extraScale = 1;
    uint32_t photonSubdivs = 500, causticSubdivs = 1000, shadowSubdivs = 8;
    int32_t extraMode = 3;
    bool enabled = true, shadows = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 0; }
    LightPtr clone() const override { return std::make_shared<MayaDirectLight>(*this); }
    // Every stored field but the key-framed transform.
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = MayaDirectLight(); }
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"MayaLightDirect">(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

}  // namespace TalvexCore
