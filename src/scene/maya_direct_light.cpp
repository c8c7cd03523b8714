#include "scene/maya_direct_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"
#include "scene/light_xml.h"

namespace TalvexCore {

// Version 1 ends early; version 2 stores the transform as one value, version 3 as key frames, and
// version 4 adds the shadow colour.
template <class Self, class Fields>
bool MayaDirectLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.color);
    if (version >= 4) fields(l.shadowColor);
    fields(l.shadowBias, l.intensity, l.extraScale, l.causticSubdivs, l.photonSubdivs, l.extraMode, l.enabled);
    if (version == 1) return true;
    fields(l.shadows, l.shadowSubdivs, l.shadowRadius);
    return fields.keyed(l.transform, version >= 3);
}

bool MayaDirectLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 4); }
bool MayaDirectLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3, 4}); }

bool MayaDirectLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const MayaDirectLight& l) {
        return std::tie(l.color, l.shadowColor, l.shadowBias, l.shadowRadius, l.intensity, l.extraScale,
                        l.photonSubdivs, l.causticSubdivs, l.shadowSubdivs, l.extraMode, l.enabled, l.shadows);
    };
    return o && fields(*this) == fields(*o);
}

void MayaDirectLight::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const LightXml xml(writer, *this, url);
    writer.writeColor("color", color);
    writer.writeColor("shadowColor", shadowColor);
    writer.writeFloat("shadowBias", shadowBias);
    writer.writeFloat("shadowRadius", shadowRadius);
    writer.writeFloat("intensity", intensity);
    writer.writeInt("causticSubdivs", static_cast<int32_t>(causticSubdivs));
    writer.writeInt("photonSubdivs", static_cast<int32_t>(photonSubdivs));
    writer.writeInt("shadowSubdivs", static_cast<int32_t>(shadowSubdivs));
    writer.writeBool("enabled", enabled);
    writer.writeBool("shadows", shadows);
    xml.close();
}

}  // namespace TalvexCore
