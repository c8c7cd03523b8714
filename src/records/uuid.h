// newUuid: a fresh random identifier in the usual text form.
#pragma once

#include <string>

namespace TalvexCore {

// A new random (version 4) UUID: 36 characters, lower-case hexadecimal with hyphens, no braces.
std::u16string newUuid();

}  // namespace TalvexCore
