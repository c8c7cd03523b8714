#include "scene/ies_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"
#include "scene/light_xml.h"

namespace TalvexCore {

// Version 1 ends after the file; version 2 adds the two bools, version 3 the intensity.
template <class Self, class Fields>
bool IESLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.transform, l.color, l.shadowColor, l.filter_color, l.shadowBias, l.cutoffThreshold);
    fields(l.photonSubdivs, l.causticSubdivs, l.shadow_subdivs, l.enabled, l.shadows, l.soft_shadows, l.ies_file);
    if (version >= 2) fields(l.affectDiffuse, l.affectSpecular);
    if (version >= 3) fields(l.intensity);
    return true;
}

bool IESLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 3); }
bool IESLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3}); }

bool IESLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const IESLight& l) {
        return std::tie(l.transform, l.color, l.shadowColor, l.filter_color, l.shadowBias, l.cutoffThreshold,
                        l.intensity, l.photonSubdivs, l.causticSubdivs, l.shadow_subdivs, l.enabled, l.shadows,
                        l.soft_shadows, l.ies_file, l.affectDiffuse, l.affectSpecular);
    };
    return o && fields(*this) == fields(*o);
}

void IESLight::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const LightXml xml(writer, *this, url);
    writer.writeTransform("transform", transform);
    writer.writeColor("color", color);
    writer.writeColor("shadowColor", shadowColor);
    writer.writeColor("filter_color", filter_color);
    writer.writeFloat("shadowBias", shadowBias);
    writer.writeFloat("cutoffThreshold", cutoffThreshold);
    writer.writeFloat("intensity", intensity);
    writer.writeInt("photonSubdivs", static_cast<int32_t>(photonSubdivs));
    writer.writeInt("causticSubdivs", static_cast<int32_t>(causticSubdivs));
    writer.writeInt("shadow_subdivs", static_cast<int32_t>(shadow_subdivs));
    writer.writeBool("enabled", enabled);
    writer.writeBool("shadows", shadows);
    writer.writeBool("soft_shadows", soft_shadows);
    writer.writeBool("affectDiffuse", affectDiffuse);
    writer.writeBool("affectSpecular", affectSpecular);
    writer.writeFileString("ies_file", ies_file);
    xml.close();
}

}  // namespace TalvexCore
