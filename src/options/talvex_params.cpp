#include "options/talvex_params.h"

#include "options/talvex_params_settings.h"
#include "records/record_io.h"

namespace TalvexCore {

using ParamsSettings::P;
using ParamsSettings::table;

void TalvexParams::resetDefaults()
{
    resetSettings<P>(table, *this);
}

bool TalvexParams::writeBinary(QuickArchive& out) const
{
    writeVersion(out, newestVersion);
    return writeSettings<P>(table, out, *this);
}

bool TalvexParams::readBinary(QuickArchive& in)
{
    uint32_t tag = 0;
    in.readU32(tag);
    resetDefaults();
    const uint32_t version = versionOf(tag);
    if ((tag & 0xFFFF) != 0 || version < 1 || version > newestVersion) return false;
    return readSettings<P>(table, in, *this, static_cast<uint16_t>(version));
}

bool TalvexParams::isEqual(const TalvexParams& other) const
{
    return settingsEqual<P>(table, *this, other);
}

}  // namespace TalvexCore
