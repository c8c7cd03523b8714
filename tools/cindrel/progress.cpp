#include "archive/file_path.h"
#include "progress.h"

#include <unistd.h>

#include <cstdio>

using TalvexCore::fileNameBytes;

namespace CindrelTool {

Progress::Progress(std::size_t total, bool enabled) : total(total), enabled(enabled && total > 1 && isatty(2)) {}

void Progress::show(std::size_t index, const std::filesystem::path& path)
{
    if (!enabled) return;
    std::fprintf(stderr, "\r\033[K[%zu/%zu] %s", index + 1, total, fileNameBytes(path.filename()).c_str());
    std::fflush(stderr);
    shown = true;
}

void Progress::clear()
{
    if (!shown) return;
    std::fprintf(stderr, "\r\033[K");
    std::fflush(stderr);
    shown = false;
}

}  // namespace CindrelTool
