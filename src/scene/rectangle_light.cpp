#include "scene/rectangle_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"
#include "scene/light_xml.h"

namespace TalvexCore {

// Version 1 ends after `ignoreLightNormals`; version 2 adds the shadows, the transform and the size,
// version 3 the shadow colour, the cutoff and the units, version 4 the three bools that close it.
template <class Self, class Fields>
bool RectangleLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.color);
    if (version >= 3) fields(l.shadowColor, l.cutoffThreshold);
    fields(l.shadowBias, l.intensity, l.extraScale);
    if (version >= 3) fields(l.units);
    fields(l.subdivs, l.causticSubdivs, l.photonSubdivs, l.extraMode);
    fields(l.doubleSided, l.invisible, l.lightPortal, l.noDecay, l.enabled, l.storeWithIrradianceMap,
           l.ignoreLightNormals);
    if (version == 1) return true;
    fields(l.shadows, l.transform, l.u_size, l.v_size);
    if (version >= 4) fields(l.affectDiffuse, l.affectSpecular, l.affectReflections);
    return true;
}

bool RectangleLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 4); }
bool RectangleLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3, 4}); }

bool RectangleLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const RectangleLight& l) {
        return std::tie(l.transform, l.color, l.shadowColor, l.cutoffThreshold, l.u_size, l.v_size, l.intensity,
                        l.shadowBias, l.extraScale, l.units, l.subdivs, l.causticSubdivs, l.photonSubdivs,
                        l.extraMode, l.storeWithIrradianceMap, l.doubleSided, l.invisible, l.lightPortal, l.noDecay,
                        l.ignoreLightNormals, l.enabled, l.shadows, l.affectDiffuse, l.affectSpecular,
                        l.affectReflections);
    };
    return o && fields(*this) == fields(*o);
}

void RectangleLight::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const LightXml xml(writer, *this, url);
    writer.writeColor("color", color);
    writer.writeColor("shadowColor", shadowColor);
    writer.writeFloat("cutoffThreshold", cutoffThreshold);
    writer.writeFloat("shadowBias", shadowBias);
    writer.writeFloat("intensity", intensity);
    writer.writeFloat("u_size", u_size);
    writer.writeFloat("v_size", v_size);
    writer.writeInt("units", units);
    writer.writeInt("photonSubdivs", static_cast<int32_t>(photonSubdivs));
    writer.writeInt("causticSubdivs", static_cast<int32_t>(causticSubdivs));
    writer.writeInt("subdivs", static_cast<int32_t>(subdivs));
    for (const auto& [name, value] :
         {std::pair{"enabled", enabled}, {"doubleSided", doubleSided}, {"invisible", invisible},
          {"lightPortal", lightPortal}, {"noDecay", noDecay}, {"storeWithIrradianceMap", storeWithIrradianceMap},
          {"ignoreLightNormals", ignoreLightNormals}, {"shadows", shadows}, {"affectDiffuse", affectDiffuse},
          {"affectSpecular", affectSpecular}, {"affectReflections", affectReflections}})
        writer.writeBool(name, value);
    writer.writeTransform("transform", transform);
    xml.close();
}

}  // namespace TalvexCore
