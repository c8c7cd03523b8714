// The examples of wrapper, reference, toon and environment-override materials.
#pragma once

#include <filesystem>

namespace MakeExamples {

// Chains of wrappers several deep, each collapsing into one standard asset.
bool writeWrapperChainsFile(const std::filesystem::path& path);
// References with and without a target, multi-materials, an instance and a linked material.
bool writeReferencesFile(const std::filesystem::path& path);
// The four classes with a layout of their own, and an environment override.
bool writeOwnLayoutsFile(const std::filesystem::path& path);
// Wrapper and reference records of versions the model reads but no longer writes.
void writeOldWrapperRecordsFile(const std::filesystem::path& path);

}  // namespace MakeExamples
