#include "output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#include <process.h>
#else
#include <unistd.h>
#endif

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <vector>

namespace CindrelTool {

namespace {

#ifdef _WIN32

// No mkstemp: a name of the process and a serial number, created only where no file has it.
int createTemporary(const std::filesystem::path& pattern, std::filesystem::path& name)
{
    static unsigned serial = 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = pattern;
        name += "." + std::to_string(::_getpid()) + "-" + std::to_string(++serial);
        const int fd = ::_wopen(name.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IREAD | _S_IWRITE);
        if (fd >= 0 || errno != EEXIST) return fd;
    }
    return -1;
}

int flushToDisk(int fd)
{
    return ::_commit(fd);
}

#else

int createTemporary(const std::filesystem::path& pattern, std::filesystem::path& name)
{
    std::vector<char> bytes(pattern.native().begin(), pattern.native().end());
    const std::string suffix = ".XXXXXX";
    bytes.insert(bytes.end(), suffix.begin(), suffix.end());
    bytes.push_back('\0');
    const int fd = ::mkstemp(bytes.data());
    if (fd < 0) return fd;
    name = bytes.data();
    // mkstemp makes the file private; the result gets the mode of any new file.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(fd, 0666 & ~mask);
    return fd;
}

int flushToDisk(int fd)
{
    return ::fsync(fd);
}

#endif

}  // namespace

OutputFile::OutputFile(std::filesystem::path target) : target(std::move(target)) {}

OutputFile::~OutputFile()
{
    abandon();
}

bool OutputFile::fail(int number)
{
    return fail(std::error_code(number, std::generic_category()));
}

bool OutputFile::fail(const std::error_code& error)
{
    reason = error.message();
    abandon();
    return false;
}

bool OutputFile::open()
{
    // A hidden name in the target's own folder, so that the rename never crosses a file system.
    std::filesystem::path pattern = target.parent_path() / ".";
    pattern += target.filename();
    const int fd = createTemporary(pattern, temporary);
    if (fd < 0) return fail(errno);
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
    if (std::fflush(stream) != 0 || flushToDisk(::fileno(stream)) != 0) return fail(errno);
    std::FILE* closing = stream;
    stream = nullptr;
    if (std::fclose(closing) != 0) return fail(errno);
    std::error_code ec;
    std::filesystem::rename(temporary, target, ec);
    if (ec) return fail(ec);
    temporary.clear();
    return true;
}

void OutputFile::abandon()
{
    if (stream != nullptr) std::fclose(stream);
    stream = nullptr;
    std::error_code ec;
    if (!temporary.empty()) std::filesystem::remove(temporary, ec);
    temporary.clear();
}

}  // namespace CindrelTool
