// The options examples: files of the newest version made through the model, and older versions
// spelled out byte by byte.
#pragma once

#include <cstdint>
#include <filesystem>

namespace MakeExamples {

// The options files of the example library.
bool writeOptionsExamples(const std::filesystem::path& dir);
// One options file of each version, for a fuzzing corpus.
bool writeOptionsOfEveryVersion(const std::filesystem::path& dir);

// A studio setup with every environment texture slot in use, through the model.
bool writeStudioSettings(const std::filesystem::path& path);
// The options a new scene starts with, through the model.
bool writeDefaultSettings(const std::filesystem::path& path);
// An options file of `version` (0 to 9, 0x10 to 0x17) as that version stored it.
bool writeOldOptions(const std::filesystem::path& path, uint32_t version);

}  // namespace MakeExamples
