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
    const auto version = readVersionUpTo(in, newestVersion);
    resetDefaults();
    if (!version) return false;
    return readSettings<P>(table, in, *this, static_cast<uint16_t>(*version));
}

bool TalvexParams::isEqual(const TalvexParams& other) const
{
    return settingsEqual<P>(table, *this, other);
}

}  // namespace TalvexCore
