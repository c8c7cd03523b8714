// The file-system path of a wide path: on Windows the 16-bit units themselves, so that any name
// opens; elsewhere its UTF-8 form.
#pragma once

#include <filesystem>
#include <string>

namespace TalvexCore {

std::filesystem::path filePath(const std::u16string& path);

}  // namespace TalvexCore
