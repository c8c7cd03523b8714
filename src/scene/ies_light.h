// IESLight: a light whose distribution comes from a photometric file.
#pragma once

#include <string>

#include "records/shared_constants.h"
#include "scene/base_light.h"

namespace TalvexCore {

// The photon default differs from the family's, and there is no extra scale or mode.
class IESLight : public BaseLight {
public:
    Transform transform = identityTransform;
    Color color = whiteColor, shadowColor = blackColor, filter_color = whiteColor;
    float shadowBias = 0, cutoffThreshold = 0.005f, intensity = 1;
    uint32_t photonSubdivs = 8, causticSubdivs = 1000, shadow_subdivs = 8;
    bool enabled = true, shadows = true, soft_shadows = false;
    std::u16string ies_file;
    bool affectDiffuse = true, affectSpecular = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 6; }
    LightPtr clone() const override { return std::make_shared<IESLight>(*this); }
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = IESLight(); }
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"LightIES">(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

}  // namespace TalvexCore
