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

inline constexpr const char* knownExtensions = ".talmat, .numat, .talopt, .nuopt";

FileKind kindOf(const std::filesystem::path& path);
// Why a path of no known kind is not converted: the system's reason when it cannot be reached,
// else that its name is not of a known kind.
std::string unknownKindReason(const std::filesystem::path& path);

// Expands folders (recursively, in name order) to the material and options files in them.
// Paths that do not exist are kept, to be reported when they are converted; a folder that holds
// no such file is an error.
std::vector<InputFile> collectInputs(const std::vector<std::string>& arguments, std::vector<std::string>& errors);

}  // namespace CindrelTool
