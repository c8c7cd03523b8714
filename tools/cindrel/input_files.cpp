#include "input_files.h"

#include <algorithm>
#include <system_error>

#include "archive/text_conversion.h"
#include "module/file_routing.h"

namespace CindrelTool {

namespace fs = std::filesystem;

FileKind kindOf(const fs::path& path)
{
    const std::u16string wide = TalvexCore::fileNameToWide(path.native());
    if (TalvexCore::isMaterialFilePath(wide)) return FileKind::Material;
    if (TalvexCore::isOptionsFilePath(wide)) return FileKind::Options;
    return FileKind::Unknown;
}

std::string unknownKindReason(const fs::path& path)
{
    std::error_code ec;
    if (fs::status(path, ec).type() == fs::file_type::not_found && !ec) ec = std::make_error_code(std::errc::no_such_file_or_directory);
    if (ec) return ec.message();
    return std::string("not a material or options file (") + knownExtensions + ")";
}

std::vector<InputFile> collectInputs(const std::vector<std::string>& arguments, std::vector<std::string>& errors)
{
    std::vector<InputFile> inputs;
    for (const std::string& argument : arguments) {
        const fs::path root(argument);
        std::error_code ec;
        if (!fs::is_directory(root, ec)) {
            inputs.push_back({root, {}, kindOf(root)});
            continue;
        }
        std::vector<InputFile> found;
        fs::recursive_directory_iterator it(root, fs::directory_options::skip_permission_denied, ec);
        if (ec) {
            errors.push_back(argument + ": cannot read folder: " + ec.message());
            continue;
        }
        for (; it != fs::recursive_directory_iterator(); it.increment(ec)) {
            if (ec) {
                errors.push_back(argument + ": " + ec.message());
                break;
            }
            if (!it->is_regular_file(ec)) continue;
            const FileKind kind = kindOf(it->path());
            if (kind == FileKind::Unknown) continue;
            fs::path below = it->path().parent_path().lexically_relative(root);
            if (below == ".") below.clear();
            found.push_back({it->path(), below, kind});
        }
        if (found.empty())
            errors.push_back(argument + ": the folder holds no material or options file (" + knownExtensions + ")");
        std::sort(found.begin(), found.end(),
                  [](const InputFile& a, const InputFile& b) { return a.path < b.path; });
        inputs.insert(inputs.end(), found.begin(), found.end());
    }
    return inputs;
}

}  // namespace CindrelTool
