// The examples of skies: several skies sharing one sun, skies holding the document's sun, and
// skies of each record version.
#pragma once

#include <filesystem>

namespace MakeExamples {

bool writeSharedSunFile(const std::filesystem::path& path);
bool writeDocumentSunFile(const std::filesystem::path& path);
// The newest sky written by the model beside older ones spelled out byte by byte.
bool writeSkyVersionsFile(const std::filesystem::path& path);
// Render options whose environment slots hold skies: the document's sun, and one sun shared.
bool writeSkyEnvironmentFile(const std::filesystem::path& path);

}  // namespace MakeExamples
