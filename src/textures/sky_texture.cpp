#include "textures/sky_texture.h"

#include "archive/name_compare.h"
#include "records/record_io.h"
#include "scene/light_record.h"
#include "textures/texture_xml.h"

namespace TalvexCore {

namespace {

// The sun ahead of every version: a flag, then its record with no type id. A sun that fails to read
// is kept as it stands and does not fail the sky.
void readOwnSun(QuickArchive& in, SunPtr& sun)
{
    bool present = false;
    in.readBool(present);
    if (!present) return;
    sun = std::make_shared<SunLight>();
    sun->readBinary(in);
}

// The url a sun was written under, or `fallback` for a sun not written by this writer.
std::u16string writtenUrl(const AssetXmlWriter& writer, const std::u16string& sunId, std::u16string fallback)
{
    const auto found = writer.sunDirectory.find(sunId);
    return found != writer.sunDirectory.end() ? found->second : fallback;
}

}  // namespace

bool SkyTexture::holdsDocumentSun() const
{
    return sun && equalsNoCase(sun->sunId, defaultSun()->sunId);
}

bool SkyTexture::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 3);
    bool written = true;
    out.writeBool(sun != nullptr);
    if (sun) written = sun->writeBinary(out);
    LightFieldWriter fields(out);
    SunParameters::stored(*this, fields);
    fields(skyFlag, skyId);
    written = transform.writeBinary(out) && written;
    written = defaultSun()->writeBinary(out) && written;
    out.writeBool(holdsDocumentSun());
    return written;
}

// Version 1 holds the sun alone; version 2 adds the copy of its parameters, the transform as one
// value ahead of them; version 3 stores the transform's key frames behind them, then the document's
// sun and whether the sky's sun is that one.
bool SkyTexture::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3});
    resetDefaults();
    if (!version) return false;
    readOwnSun(in, sun);
    if (*version == 1) return true;
    LightFieldReader fields(in);
    if (*version == 2) fields.keyed(transform, false);
    SunParameters::stored(*this, fields);
    fields(skyFlag, skyId);
    if (*version == 2) return true;
    if (!transform.readBinary(in) || !readDocumentSun(in)) return false;
    bool documentSun = false;
    in.readBool(documentSun);
    if (documentSun) sun = defaultSun();
    return true;
}

TexturePtr SkyTexture::clone() const
{
    auto copy = std::make_shared<SkyTexture>(*this);
    if (sun) copy->sun = std::static_pointer_cast<SunLight>(sun->clone());
    copy->skyId = newUuid();
    return copy;
}

bool SkyTexture::isEqual(const TexturePtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && equalsNoCase(skyId, o->skyId) && childEqual(sun, o->sun) &&
           static_cast<const SunParameters&>(*this) == *o && skyFlag == o->skyFlag;
}

void SkyTexture::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    std::u16string sunUrl;
    if (writer.sunUrlMode != 0) {
        if (sun && equalsNoCase(sun->sunId, documentSunId)) {
            sun->writeXml(writer, {});  // writes nothing unless this writer wrote it before
            sunUrl = u"/Host Document Sun";
        }
        if (sunUrl.empty() && sun) sunUrl = writtenUrl(writer, sun->sunId, u'/' + sun->sunId);
    } else if (sun) {
        sun->writeXml(writer, {});
        sunUrl = writtenUrl(writer, sun->sunId, u"/SunLight");
    }
    const TextureXml xml(writer, *this, url);
    writer.writePlugin("sun", sun, sunUrl);
    xml.close();
}

}  // namespace TalvexCore
