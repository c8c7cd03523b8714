#include "records/record_io.h"

#include <cstdio>

namespace TalvexCore {

namespace {

std::string hexWord(uint32_t value)
{
    char text[11];
    std::snprintf(text, sizeof text, "0x%08X", value);
    return text;
}

}  // namespace

std::optional<uint32_t> readVersion(QuickArchive& in, std::initializer_list<uint32_t> known)
{
    uint32_t tag = 0;
    const uint64_t at = in.readPosition();
    in.readU32(tag);
    if ((tag & 0xFFFF) == 0)
        for (uint32_t version : known)
            if (versionOf(tag) == version) return version;
    std::string reason = "version tag " + hexWord(tag) + " is not one of this record's (";
    for (uint32_t version : known) reason += (version == *known.begin() ? "" : ", ") + hexWord(tagOf(version));
    in.noteFailure(at, reason + ")");
    return std::nullopt;
}

bool readListCount(QuickArchive& in, uint64_t& count, uint64_t bytesEach)
{
    const uint64_t at = in.readPosition();
    in.readCount(count);
    if (in.countFits(count, bytesEach)) return true;
    in.noteFailure(at, "a count of " + std::to_string(count) + " that the " + std::to_string(in.dataLeft()) +
                           " bytes left cannot hold");
    return false;
}

}  // namespace TalvexCore
