// The files a command line names: files as given, and the material and options files under folders.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace CindrelTool {

enum class FileKind { Material, Options, Unknown };

struct InputFile {
    std::filesystem::path path;
    std::filesystem::path relativeDir;  // the folder below a named folder, for the output tree
    FileKind kind = FileKind::Unknown;
};

FileKind kindOf(const std::filesystem::path& path);

// Expands folders (recursively, in name order) to the material and options files in them.
// Paths that do not exist are kept, to be reported when they are converted.
std::vector<InputFile> collectInputs(const std::vector<std::string>& arguments, std::vector<std::string>& errors);

}  // namespace CindrelTool
