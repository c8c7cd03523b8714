// TalvexFrameData: camera, clipping and region data of one frame, its record and its asset.
#pragma once

#include <cstdint>

#include "archive/value_types.h"
#include "options/options_base.h"
#include "options/plugin_base.h"

namespace NuvaUtils {

// The frame fields, in stored order.
struct NuvaFrameData : PluginBase {
    double t = 0, frameStart = 0, frameEnd = 0;
    int32_t currentFrame = 0;
    TalvexCore::TransformD worldToCam, camToWorld;
    float fov = 0, nearRange = 0, farRange = 0;
    float focal_dist = 0, aperture = 0, rotation = 0;
    int32_t clippingPlanes = 0;
    float clipNear = 0, clipFar = 0;
    int32_t projType = 0;
    float zoomFractor = 0;
    int32_t infiniteProj = 0;
    float height = 0;
    int32_t auto_fit = 0;
    float dist = 0, curve = 0;
    int32_t orthoAdjustToScene = 0;
    TalvexCore::Color ambient, background, globalLightLevel, nuvaGIBackground, nuvaRRBackground,
        nuvaRefractBackground;
    float rgn_left = 0, rgn_width = 0, rgn_top = 0, rgn_height = 0;
    int32_t frame_aux_int_1 = 0, frame_aux_int_2 = 0;
    int32_t bmp_width = 0, bmp_height = 0;
    int32_t r_left = 0, r_width = 0, r_top = 0, r_height = 0;
    float devAspect = 0;
    int32_t fieldMask = 0, fieldOrder = 0, firstField = 0;
    float dark_mult = 0, bright_mult = 0;
};

}  // namespace NuvaUtils

namespace TalvexCore {

class TalvexFrameData : public TalvexOptionsBase, public NuvaUtils::NuvaFrameData {
public:
    static constexpr uint32_t version = 1;

    TalvexFrameData() { TalvexFrameData::resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    // The matrices reset to zeros, not to the identity.
    void resetDefaults() override;
    // An asset of its own; the options file shows these values through its groups instead.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"FrameData">(); }

    bool isEqual(const TalvexFrameData& other) const;
    bool operator==(const TalvexFrameData& other) const { return isEqual(other); }
};

}  // namespace TalvexCore
