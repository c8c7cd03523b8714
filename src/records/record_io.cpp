#include "records/record_io.h"

namespace TalvexCore {

std::optional<uint32_t> readVersion(QuickArchive& in, std::initializer_list<uint32_t> known)
{
    uint32_t tag = 0;
    in.readU32(tag);
    if ((tag & 0xFFFF) != 0) return std::nullopt;
    for (uint32_t version : known)
        if (versionOf(tag) == version) return version;
    return std::nullopt;
}

}  // namespace TalvexCore
