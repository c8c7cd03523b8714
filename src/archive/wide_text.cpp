#include "archive/wide_text.h"

namespace TalvexCore {

bool isWideControl(char16_t c)
{
    return c < 0x20 || (c >= 0x7F && c <= 0x9F) || c == 0x2028 || c == 0x2029;
}

bool isWideDigit(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

}  // namespace TalvexCore
