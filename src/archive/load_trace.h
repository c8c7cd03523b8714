// LoadTrace: the objects a load read, where each lies and how far it got, for a caller that
// inspects a file; the reads that load it fill it in when the archive carries one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "archive/load_failure.h"

namespace TalvexCore {

// One object as its record was read. Offsets count from the start of the file.
struct TracedObject {
    std::u16string className;         // the object's plug-in type
    std::optional<uint32_t> typeId;   // the stored id it was made from; none for an embedded record
    std::optional<uint32_t> version;  // the version its own tag named, once accepted
    uint64_t offset = 0;              // of the record's first byte, its tag
    uint64_t length = 0;              // the bytes its reads took, up to where they ended
    int depth = 0;                    // 0 for the file's own objects
    bool complete = false;            // false for each object the load stopped in
};

class LoadTrace {
public:
    // What the container found, set by the file's loader.
    std::optional<uint32_t> fileVersion;  // set when the file is binary of its kind: its header's version
    uint64_t declaredObjects = 0;         // the objects its header counts, where it has a header
    bool readPastEnd = false;             // the reads went on past the end of the data
    std::optional<LoadFailure> failure;   // where and why the load stopped, as the archive noted it

    // Where the archive's first byte lies in the file, so that offsets are the file's.
    void setOrigin(uint64_t offset) { origin = offset; }

    void beginObject(std::u16string className, std::optional<uint32_t> typeId, uint64_t at);
    // Takes the version of the tag at `at` when that tag is the innermost open object's own first
    // word; the tags of a record's inner parts are not the object's version.
    void acceptVersion(uint64_t at, uint32_t version);
    void endObject(uint64_t at, bool complete);

    // Objects in the order their records began; a child follows its parent, one level deeper.
    const std::vector<TracedObject>& objects() const { return traced; }

private:
    uint64_t origin = 0;
    std::vector<TracedObject> traced;
    std::vector<std::size_t> open;  // indices of the objects begun and not yet ended
};

}  // namespace TalvexCore
