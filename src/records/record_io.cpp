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

std::optional<uint32_t> readVersionUpTo(QuickArchive& in, uint32_t newest)
{
    uint32_t tag = 0;
    const uint64_t at = in.readPosition();
    in.readU32(tag);
    if ((tag & 0xFFFF) == 0 && versionOf(tag) >= 1 && versionOf(tag) <= newest) return versionOf(tag);
    in.noteFailure(at, "version tag " + hexWord(tag) + " is not one of this record's (0x00010000 to " +
                           hexWord(tagOf(newest)) + ")");
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
