#include "scene/sun_light.h"

#include <tuple>

#include "archive/name_compare.h"
#include "records/record_io.h"
#include "scene/light_record.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

// Version 1 has no id and no name, version 2 no `enabled` and `invisible`; before version 4 the
// transform is one value ahead of everything, from version 4 key frames behind everything.
template <class Self, class Fields>
bool SunLight::record(Self& s, Fields& fields, uint32_t version)
{
    if (version <= 3) fields.keyed(s.transform, false);
    SunParameters::stored(s, fields);
    if (version >= 2) fields(s.sunId, s.sunName);
    if (version >= 3) fields(s.enabled, s.invisible);
    return version <= 3 || fields.keyed(s.transform, true);
}

bool SunLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 4); }
bool SunLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2, 3, 4}); }

LightPtr SunLight::clone() const
{
    auto copy = std::make_shared<SunLight>(*this);
    copy->sunId = newUuid();
    return copy;
}

bool SunLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const SunLight& s) {
        return std::tie(s.sunId, s.sunName, static_cast<const SunParameters&>(s), s.enabled, s.invisible);
    };
    return o && fields(*this) == fields(*o);
}

void SunLight::writeXml(AssetXmlWriter& writer, const std::u16string& ownerUrl) const
{
    std::u16string url = ownerUrl;
    if (writer.sunDirectory.contains(sunId)) return;
    if (writer.sunUrlMode == 0) {
        const auto written = writer.sunDirectory.size();
        url = u'/' + pluginType();
        if (written != 0) for (char c : std::to_string(written)) url.push_back(static_cast<char16_t>(c));
    } else if (url.empty()) {
        if (equalsNoCase(sunId, defaultSun()->sunId)) return;  // the host's document supplies it
        url = u'/' + sunId;
    }
    writer.sunDirectory.emplace(sunId, url);

    const AssetFrame xml(writer, *this, url, "");
    writer.writeVector("up_vector", up_vector);
    for (const auto& [name, value] :
         {std::pair{"shadowBias", shadowBias}, {"turbidity", turbidity}, {"water_vapour", water_vapour},
          {"intensity_multiplier", intensity_multiplier}, {"size_multiplier", size_multiplier},
          {"photon_radius", photon_radius}, {"photon_emit_distance", photon_emit_distance}, {"ozone", ozone}})
        writer.writeFloat(name, value);
    writer.writeInt("photonSubdivs", photonSubdivs);
    writer.writeInt("causticSubdivs", causticSubdivs);
    writer.writeInt("shadow_subdivs", shadow_subdivs);
    writer.writeBool("enabled", enabled);
    writer.writeBool("shadows", shadows);
    writer.writeBool("invisible", invisible);
    writer.writeTransform("transform", transform.valueAt(0.0));
    xml.close();
}

const SunPtr& defaultSun()
{
    static const SunPtr sun = std::make_shared<SunLight>(u"Default", documentSunId);
    return sun;
}

bool readDocumentSun(QuickArchive& in)
{
    // Read into a copy and take it whole: what the record holds lands as reading the sun itself would
    // leave it (a record cut short included), and a refused record leaves the sun as it was.
    SunLight read = *defaultSun();
    if (!read.readBinary(in)) return false;
    *defaultSun() = std::move(read);
    return true;
}

}  // namespace TalvexCore
