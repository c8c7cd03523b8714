#include "records/serializable.h"

#include <algorithm>

#include "archive/wide_text.h"

namespace TalvexCore {

void stripControlCharacters(std::u16string& text)
{
    std::erase_if(text, [](char16_t c) { return isWideControl(c); });
}

}  // namespace TalvexCore
