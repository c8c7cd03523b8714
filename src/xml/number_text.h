// The text of numbers in asset XML, the same in every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace TalvexCore {

// At most six significant digits, fixed or exponent form as %g picks, with an exponent of at
// least three digits: 0.5, 1, 1.23457e+006, 1e-005.
std::string formatFloat(double value);
// The same text written at `out`, which has room for floatTextSize bytes; answers its length.
inline constexpr std::size_t floatTextSize = 48;
std::size_t formatFloat(char* out, double value);
void appendFloat(std::u16string& out, double value);
void appendFloat(std::string& out, double value);
void appendInt(std::u16string& out, int32_t value);
void appendInt(std::string& out, int32_t value);

}  // namespace TalvexCore
