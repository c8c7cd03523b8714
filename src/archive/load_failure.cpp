#include "archive/load_failure.h"

#include "archive/text_conversion.h"

namespace TalvexCore {

std::string describe(const LoadFailure& failure)
{
    std::string text;
    for (auto object = failure.objects.rbegin(); object != failure.objects.rend(); ++object) {
        text += text.empty() ? "in " : " > ";
        text += wideToNarrow(*object);
    }
    text += text.empty() ? "at offset " : " at offset ";
    text += std::to_string(failure.offset) + ": " + failure.reason;
    return text;
}

}  // namespace TalvexCore
