// The examples in older container and record versions, spelled out byte by byte.
#pragma once

#include <filesystem>

namespace MakeExamples {

// A material file whose records are all of versions the model reads but no longer writes.
void writeOldRecordsFile(const std::filesystem::path& path);
// The logical stream of a model-written material, stored in the version 2 and version 1 containers.
void writeOldContainerFiles(const std::filesystem::path& dir);

}  // namespace MakeExamples
