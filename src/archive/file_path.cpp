#include "archive/file_path.h"

#include "archive/text_conversion.h"

namespace TalvexCore {

std::filesystem::path filePath(const std::u16string& path)
{
#ifdef _WIN32
    const std::u16string_view units(path.c_str());
    return std::filesystem::path(std::wstring(units.begin(), units.end()));
#else
    return std::filesystem::path(wideToFileName(path));
#endif
}

std::u16string widePath(const std::filesystem::path& path)
{
#ifdef _WIN32
    const std::wstring& units = path.native();
    return std::u16string(units.begin(), units.end());
#else
    return fileNameToWide(path.native());
#endif
}

std::filesystem::path filePath(std::string_view nameBytes)
{
    return filePath(fileNameToWide(nameBytes));
}

std::string fileNameBytes(const std::filesystem::path& path)
{
#ifdef _WIN32
    return wideToFileName(widePath(path));
#else
    return path.native();
#endif
}

}  // namespace TalvexCore
