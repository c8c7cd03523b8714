// Conversions between narrow text (UTF-8, or Windows-1252 where it is not valid UTF-8) and the
// model's wide strings of 16-bit code units.
#pragma once

#include <string>
#include <string_view>

namespace TalvexCore {

// UTF-8 form of the wide text up to its first zero character. A lone surrogate becomes U+FFFD.
std::string wideToNarrow(std::u16string_view wide);

// Wide form of the narrow text up to its first zero byte: strict UTF-8 first; text that is not
// valid UTF-8 decodes as Windows-1252. Characters outside the basic plane become surrogate pairs.
std::u16string narrowToWide(std::string_view narrow);

// Appends the wide form of the narrow text to `out`, as narrowToWide would give it.
void appendNarrowAsWide(std::u16string& out, std::string_view narrow);

// What becomes of a lone surrogate in UTF-8: U+FFFD, or its own three bytes, which a reader that
// lets surrogates pass takes back as the same lone surrogate.
enum class LoneSurrogates { Replaced, Kept };

// Appends the UTF-8 form of the wide text to `out`, all of it, zero characters included.
void appendWideAsNarrow(std::string& out, std::u16string_view wide,
                        LoneSurrogates loneSurrogates = LoneSurrogates::Replaced);

// Appends the narrow text up to its first zero byte as UTF-8, as narrowToWide then
// appendWideAsNarrow would give it: valid UTF-8 as it stands, other text decoded as Windows-1252.
void appendNarrowAsUtf8(std::string& out, std::string_view narrow);

// File names are bytes. In their wide form each byte that is not part of valid UTF-8 stands as the
// lone surrogate U+DC80 to U+DCFF, as the interpreter gives such names, so that every name opens
// as the bytes it is. Both stop at the first zero.
std::u16string fileNameToWide(std::string_view bytes);
std::string wideToFileName(std::u16string_view wide);

}  // namespace TalvexCore
