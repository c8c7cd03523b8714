// LoadFailure: where and why a load stopped, as the reads that load a file found it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace TalvexCore {

// Noted once, at the first refusal, by the read that refused (a version tag, a type id, a count,
// the nesting bound); each enclosing object adds its name as the refusal travels outwards.
struct LoadFailure {
    uint64_t offset = 0;                  // of the refused value in the archive's data
    std::string reason;
    std::vector<std::u16string> objects;  // innermost first
};

// "in material 1 (MtlLayered) > BRDFDiffuse at offset 1234: <reason>", as UTF-8.
std::string describe(const LoadFailure& failure);

}  // namespace TalvexCore
