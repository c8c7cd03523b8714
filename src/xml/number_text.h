// The text of numbers in asset XML, the same in every locale.
#pragma once

#include <cstdint>
#include <string>

namespace TalvexCore {

// At most six significant digits, fixed or exponent form as %g picks, with an exponent of at
// least three digits: 0.5, 1, 1.23457e+006, 1e-005.
std::string formatFloat(double value);
void appendFloat(std::u16string& out, double value);
void appendFloat(std::string& out, double value);
void appendInt(std::u16string& out, int32_t value);
void appendInt(std::string& out, int32_t value);

}  // namespace TalvexCore
