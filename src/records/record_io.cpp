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

// A version gate's answer: the version of an accepted tag, told to the trace as the record's own
// when the tag is its first word; a refused tag noted with the versions the record knows.
template <class KnownTags>
std::optional<uint32_t> gate(QuickArchive& in, uint64_t at, uint32_t tag, bool accepted, KnownTags&& knownTags)
{
    if (accepted) {
        if (LoadTrace* trace = in.loadTrace()) trace->acceptVersion(at, versionOf(tag));
        return versionOf(tag);
    }
    in.noteFailure(at, "version tag " + hexWord(tag) + " is not one of this record's (" + knownTags() + ")");
    return std::nullopt;
}

}  // namespace

std::optional<uint32_t> readVersion(QuickArchive& in, std::initializer_list<uint32_t> known)
{
    uint32_t tag = 0;
    const uint64_t at = in.readPosition();
    in.readU32(tag);
    bool accepted = false;
    if ((tag & 0xFFFF) == 0)
        for (uint32_t version : known) accepted = accepted || versionOf(tag) == version;
    return gate(in, at, tag, accepted, [&] {
        std::string tags;
        for (uint32_t version : known) tags += (tags.empty() ? "" : ", ") + hexWord(tagOf(version));
        return tags;
    });
}

std::optional<uint32_t> readVersionUpTo(QuickArchive& in, uint32_t newest)
{
    uint32_t tag = 0;
    const uint64_t at = in.readPosition();
    in.readU32(tag);
    const bool accepted = (tag & 0xFFFF) == 0 && versionOf(tag) >= 1 && versionOf(tag) <= newest;
    return gate(in, at, tag, accepted, [&] { return "0x00010000 to " + hexWord(tagOf(newest)); });
}

std::optional<uint32_t> readMarkedVersion(QuickArchive& in, uint32_t mark, bool (*known)(uint32_t),
                                          const char* knownTags)
{
    uint32_t tag = 0;
    const uint64_t at = in.readPosition();
    in.readU32(tag);
    const bool accepted = (tag & 0xFFFF) == mark && known(versionOf(tag));
    return gate(in, at, tag, accepted, [&] { return std::string(knownTags); });
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
