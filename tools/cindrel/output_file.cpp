#include "output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace CindrelTool {

OutputFile::OutputFile(std::filesystem::path target) : target(std::move(target)) {}

OutputFile::~OutputFile()
{
    abandon();
}

bool OutputFile::fail(int number)
{
    reason = std::strerror(number);
    abandon();
    return false;
}

bool OutputFile::open()
{
    // A hidden name in the target's own folder, so that the rename never crosses a file system.
    const std::filesystem::path pattern =
        target.parent_path() / ("." + target.filename().string() + ".XXXXXX");
    std::vector<char> name(pattern.native().begin(), pattern.native().end());
    name.push_back('\0');
    const int fd = ::mkstemp(name.data());
    if (fd < 0) return fail(errno);
    temporary = name.data();
    // mkstemp makes the file private; the result gets the mode of any new file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    stream = ::fdopen(fd, "wb");
    if (stream == nullptr) {
        const int number = errno;
        ::close(fd);
        return fail(number);
    }
    return true;
}

bool OutputFile::commit(int writeError)
{
    if (writeError != 0) return fail(writeError);
    if (std::fflush(stream) != 0 || ::fsync(::fileno(stream)) != 0) return fail(errno);
    std::FILE* closing = stream;
    stream = nullptr;
    if (std::fclose(closing) != 0) return fail(errno);
    if (std::rename(temporary.c_str(), target.c_str()) != 0) return fail(errno);
    temporary.clear();
    return true;
}

void OutputFile::abandon()
{
    if (stream != nullptr) std::fclose(stream);
    stream = nullptr;
    if (!temporary.empty()) ::unlink(temporary.c_str());
    temporary.clear();
}

}  // namespace CindrelTool
