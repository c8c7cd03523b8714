#include "scene/omni_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"
#include "scene/light_xml.h"

namespace TalvexCore {

// Version 1 ends after `enabled`; version 2 adds the shadows and the transform, version 3 the
// shadow colour, the cutoff and the units, version 4 the two bools that close it.
template <class Self, class Fields>
bool OmniLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.color);
    if (version >= 3) fields(l.shadowColor, l.cutoffThreshold);
    fields(l.shadowBias, l.decay, l.intensity, l.extraScale);
    if (version >= 3) fields(l.units);
    fields(l.photonSubdivs, l.causticSubdivs, l.extraMode, l.enabled);
    if (version == 1) return true;
    fields(l.shadows, l.shadowSubdivs, l.shadowRadius, l.transform);
    if (version >= 4) fields(l.affectDiffuse, l.affectSpecular);
    return true;
}

bool OmniLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 4); }
bool OmniLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3, 4}); }

bool OmniLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const OmniLight& l) {
        return std::tie(l.transform, l.color, l.shadowColor, l.cutoffThreshold, l.shadowBias, l.shadowRadius, l.decay,
                        l.intensity, l.extraScale, l.units, l.photonSubdivs, l.causticSubdivs, l.shadowSubdivs,
                        l.extraMode, l.enabled, l.shadows, l.affectDiffuse, l.affectSpecular);
    };
    return o && fields(*this) == fields(*o);
}

void OmniLight::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const LightXml xml(writer, *this, url);
    writer.writeColor("color", color);
    writer.writeColor("shadowColor", shadowColor);
    writer.writeFloat("cutoffThreshold", cutoffThreshold);
    writer.writeFloat("shadowBias", shadowBias);
    writer.writeFloat("decay", decay);
    writer.writeFloat("intensity", intensity);
    writer.writeFloat("shadowRadius", shadowRadius);
    // The units go out under the caustics' name, and the caustics follow under it again.
    writer.writeInt("causticSubdivs", units);
    writer.writeInt("photonSubdivs", static_cast<int32_t>(photonSubdivs));
    writer.writeInt("causticSubdivs", static_cast<int32_t>(causticSubdivs));
    writer.writeInt("shadowSubdivs", static_cast<int32_t>(shadowSubdivs));
    writer.writeBool("enabled", enabled);
    writer.writeBool("shadows", shadows);
    writer.writeBool("affectDiffuse", affectDiffuse);
    writer.writeBool("affectSpecular", affectSpecular);
    writer.writeTransform("transform", transform);
    xml.close();
}

}  // namespace TalvexCore
