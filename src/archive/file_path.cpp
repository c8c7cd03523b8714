#include "archive/file_path.h"

#include "archive/text_conversion.h"

namespace TalvexCore {

std::filesystem::path filePath(const std::u16string& path)
{
#ifdef _WIN32
    // The path up to its first zero character, as the narrow form is.
    const std::u16string_view units(path.c_str());
    return std::filesystem::path(std::wstring(units.begin(), units.end()));
#else
    return std::filesystem::path(wideToNarrow(path));
#endif
}

}  // namespace TalvexCore
