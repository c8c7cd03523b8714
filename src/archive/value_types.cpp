#include "archive/value_types.h"

#include <algorithm>

namespace TalvexCore {

Color Color::complementColor() const
{
    return {std::max(0.0f, 1.0f - r), std::max(0.0f, 1.0f - g), std::max(0.0f, 1.0f - b)};
}

}  // namespace TalvexCore
