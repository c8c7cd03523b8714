#include "archive/regular_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <ext/stdio_filebuf.h>

#include "archive/text_conversion.h"

namespace TalvexCore {

namespace {

// Not a system error number: the path names something other than a regular file or a folder.
constexpr int notRegularFile = -1;

}  // namespace

RegularFile::RegularFile(const std::u16string& path) : RegularFile(wideToFileName(path)) {}

RegularFile::RegularFile(const std::string& fileName)
{
    // Without O_NONBLOCK the open of a FIFO itself waits for a writer.
    const int fd = ::open(fileName.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        error = errno;
        return;
    }
    struct stat status {};
    if (::fstat(fd, &status) != 0) error = errno;
    else if (S_ISDIR(status.st_mode)) error = EISDIR;
    else if (!S_ISREG(status.st_mode)) error = notRegularFile;
    if (error != 0) {
        ::close(fd);
        return;
    }
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags >= 0) ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK);
    buffer = std::make_unique<__gnu_cxx::stdio_filebuf<char>>(fd, std::ios::in | std::ios::binary);
    in.rdbuf(buffer.get());
}

RegularFile::~RegularFile() = default;

std::string RegularFile::failureReason() const
{
    if (error == notRegularFile) return "not a regular file";
    return std::strerror(error);
}

}  // namespace TalvexCore
