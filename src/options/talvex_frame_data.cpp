#include "options/talvex_frame_data.h"

#include "options/talvex_frame_data_settings.h"
#include "xml/asset_frame.h"
#include "records/record_io.h"

namespace TalvexCore {

using FrameDataSettings::F;
using FrameDataSettings::table;

void TalvexFrameData::resetDefaults()
{
    resetSettings<F>(table, *this);
}

bool TalvexFrameData::writeBinary(QuickArchive& out) const
{
    writeVersion(out, version);
    return writeSettings<F>(table, out, *this);
}

bool TalvexFrameData::readBinary(QuickArchive& in)
{
    resetDefaults();
    if (!readVersion(in, {version})) return false;
    return readSettings<F>(table, in, *this, version);
}

bool TalvexFrameData::isEqual(const TalvexFrameData& other) const
{
    return settingsEqual<F>(table, *this, other);
}

void TalvexFrameData::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const AssetFrame frame(writer, *this, AssetUrl(url, pluginType()), "");
    writeSettingParameters(writer, SettingsGroups::FrameData, frame.url(), bindSettings(table, static_cast<const F&>(*this)));
    frame.close();
}

}  // namespace TalvexCore
