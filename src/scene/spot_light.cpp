#include "scene/spot_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"
#include "scene/light_xml.h"

namespace TalvexCore {

// Version 1 ends after `enabled`; version 2 adds the shadows, the transform and the cone, version 3
// the shadow colour, the cutoff, the barn doors and the units, version 4 the two bools that close it.
template <class Self, class Fields>
bool SpotLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.color);
    if (version >= 3)
        fields(l.shadowColor, l.cutoffThreshold, l.barnDoorLeft, l.barnDoorRight, l.barnDoorTop, l.barnDoorBottom);
    fields(l.shadowBias, l.decay, l.intensity, l.extraScale);
    if (version >= 3) fields(l.units);
    fields(l.photonSubdivs, l.causticSubdivs, l.extraMode, l.enabled);
    if (version == 1) return true;
    if (version >= 3) fields(l.barnDoor);
    fields(l.shadows, l.shadowSubdivs, l.shadowRadius, l.transform, l.coneAngle, l.penumbraAngle);
    if (version >= 4) fields(l.affectDiffuse, l.affectSpecular);
    return true;
}

bool SpotLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 4); }
bool SpotLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3, 4}); }

bool SpotLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const SpotLight& l) {
        return std::tie(l.transform, l.color, l.shadowColor, l.cutoffThreshold, l.barnDoorLeft, l.barnDoorRight,
                        l.barnDoorTop, l.barnDoorBottom, l.intensity, l.decay, l.shadowBias, l.shadowRadius,
                        l.coneAngle, l.penumbraAngle, l.extraScale, l.units, l.photonSubdivs, l.causticSubdivs,
                        l.shadowSubdivs, l.extraMode, l.enabled, l.shadows, l.barnDoor, l.affectDiffuse,
                        l.affectSpecular);
    };
    return o && fields(*this) == fields(*o);
}

void SpotLight::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const LightXml xml(writer, *this, url);
    writer.writeColor("color", color);
    writer.writeColor("shadowColor", shadowColor);
    for (const auto& [name, value] : {std::pair{"cutoffThreshold", cutoffThreshold}, {"barnDoorLeft", barnDoorLeft},
                                      {"barnDoorRight", barnDoorRight}, {"barnDoorTop", barnDoorTop},
                                      {"barnDoorBottom", barnDoorBottom}, {"shadowBias", shadowBias},
                                      {"decay", decay}, {"intensity", intensity}, {"shadowRadius", shadowRadius},
                                      {"coneAngle", coneAngle}, {"penumbraAngle", penumbraAngle}})
        writer.writeFloat(name, value);
    writer.writeInt("units", units);
    writer.writeInt("photonSubdivs", static_cast<int32_t>(photonSubdivs));
    writer.writeInt("causticSubdivs", static_cast<int32_t>(causticSubdivs));
    writer.writeInt("shadowSubdivs", static_cast<int32_t>(shadowSubdivs));
    writer.writeBool("enabled", enabled);
    writer.writeBool("barnDoor", barnDoor);
    writer.writeBool("shadows", shadows);
    writer.writeBool("affectDiffuse", affectDiffuse);
    writer.writeBool("affectSpecular", affectSpecular);
    writer.writeTransform("transform", transform);
    // Tells the renderer to read the cone the old way, whatever the light holds.
    writer.writeBool("legacyMode", true, "Legacy Mode", true);
    xml.close();
}

}  // namespace TalvexCore
