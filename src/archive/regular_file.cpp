#include "archive/regular_file.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cerrno>
#include <system_error>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

#include <ext/stdio_filebuf.h>

#include "archive/file_path.h"
#include "archive/text_conversion.h"

namespace TalvexCore {

namespace {

// Not a system error number: the path names something other than a regular file or a folder.
constexpr int notRegularFile = -1;
#ifdef _WIN32
// Not a Windows error number either: the path names a folder, which opened.
constexpr int folderNotFile = -2;
#endif

}  // namespace

RegularFile::~RegularFile() = default;

std::string RegularFile::failureReason() const
{
    if (error == notRegularFile) return "not a regular file";
#ifdef _WIN32
    if (error == folderNotFile) return std::generic_category().message(EISDIR);
    return std::system_category().message(error);
#else
    return std::strerror(error);
#endif
}

#ifdef _WIN32

// The name's bytes stand for its wide form, as every narrow name does.
RegularFile::RegularFile(const std::string& fileName) : RegularFile(fileNameToWide(fileName)) {}

RegularFile::RegularFile(const std::u16string& path)
{
    // Reading only, shared with every other reader and writer. Backup semantics let a folder
    // open, so that it is told apart from a missing file.
    const HANDLE handle = ::CreateFileW(filePath(path).c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        error = static_cast<int>(::GetLastError());
        return;
    }
    BY_HANDLE_FILE_INFORMATION information{};
    if (::GetFileType(handle) != FILE_TYPE_DISK) error = notRegularFile;
    else if (!::GetFileInformationByHandle(handle, &information)) error = static_cast<int>(::GetLastError());
    else if (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) error = folderNotFile;
    const int fd = error == 0 ? ::_open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_RDONLY | _O_BINARY) : -1;
    if (fd < 0) {
        if (error == 0) error = ERROR_TOO_MANY_OPEN_FILES;
        ::CloseHandle(handle);
        return;
    }
    buffer = std::make_unique<__gnu_cxx::stdio_filebuf<char>>(fd, std::ios::in | std::ios::binary);
    in.rdbuf(buffer.get());
}

#else

RegularFile::RegularFile(const std::u16string& path) : RegularFile(filePath(path).native()) {}

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
    // O_NONBLOCK stays: it changes nothing in the reading of a regular file.
    buffer = std::make_unique<__gnu_cxx::stdio_filebuf<char>>(fd, std::ios::in | std::ios::binary);
    in.rdbuf(buffer.get());
}

#endif

}  // namespace TalvexCore
