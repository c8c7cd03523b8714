// The file-system path of a wide path: on Windows the 16-bit units themselves, so that any name
// opens; elsewhere the name's bytes (see wideToFileName).
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace TalvexCore {

// The path up to its first zero character.
std::filesystem::path filePath(const std::u16string& path);

// The wide form of a file-system path, which filePath takes back to the same path.
std::u16string widePath(const std::filesystem::path& path);

// A path and the bytes of its name, as a command line and a terminal hold it: on Windows its UTF-8
// form, elsewhere the bytes themselves (see fileNameToWide).
std::filesystem::path filePath(std::string_view nameBytes);
std::string fileNameBytes(const std::filesystem::path& path);

}  // namespace TalvexCore
