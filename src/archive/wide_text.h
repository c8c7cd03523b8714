// Character tests of wide text: control characters and digits.
#pragma once

namespace TalvexCore {

bool isWideControl(char16_t c);
bool isWideDigit(char16_t c);

}  // namespace TalvexCore
