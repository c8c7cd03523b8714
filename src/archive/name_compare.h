// How names compare: code unit by code unit without regard to case, as typed otherwise.
#pragma once

#include <string>
#include <string_view>

namespace TalvexCore {

// Lower-case form of one code unit: ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic.
char16_t foldCase(char16_t c);

// Compares code unit by code unit after folding to lower case; <0, 0 or >0.
int compareNoCase(std::u16string_view a, std::u16string_view b);
inline bool equalsNoCase(std::u16string_view a, std::u16string_view b)
{
    return a.size() == b.size() && compareNoCase(a, b) == 0;
}

// Orders keys without regard to case, so that keys differing in case only are one key.
struct NoCaseLess {
    bool operator()(std::u16string_view a, std::u16string_view b) const { return compareNoCase(a, b) < 0; }
};

}  // namespace TalvexCore
