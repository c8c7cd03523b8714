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

#include <algorithm>
#include <cstdint>
#include <cstdio>

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

// Reads at most this much at a time; a file of this size or less arrives in one read.
constexpr std::size_t readSize = std::size_t(1) << 16;

#ifdef _WIN32
// The descriptor's own position stands at `offset`: every seek goes through the system.
int readAt(int fd, char* into, std::size_t size, int64_t /*offset*/)
{
    return ::_read(fd, into, static_cast<unsigned>(size));
}
int64_t seekTo(int fd, int64_t offset, int whence) { return ::_lseeki64(fd, offset, whence); }
void closeDescriptor(int fd) { ::_close(fd); }
#else
// Every read names its offset, so the descriptor's position means nothing and no seek asks the system.
ssize_t readAt(int fd, char* into, std::size_t size, int64_t offset)
{
    ssize_t got = ::pread(fd, into, size, static_cast<off_t>(offset));
    while (got < 0 && errno == EINTR) got = ::pread(fd, into, size, static_cast<off_t>(offset));
    return got;
}
int64_t seekTo(int fd, int64_t offset, int whence) { return whence == SEEK_END ? ::lseek(fd, offset, whence) : offset; }
void closeDescriptor(int fd) { ::close(fd); }
#endif

// Reads the descriptor straight through the system, with no C stream between: a small file
// arrives in one read, and only a seek outside what was read last asks the system again.
class DescriptorBuffer final : public std::streambuf {
public:
    // `first` holds the file's first `firstSize` bytes, already read, in `room` bytes.
    DescriptorBuffer(int fd, std::unique_ptr<char[]> first, std::size_t room, std::size_t firstSize)
        : fd(fd), room(room), data(std::move(first))
    {
        setg(data.get(), data.get(), data.get() + firstSize);
    }
    ~DescriptorBuffer() override { closeDescriptor(fd); }

protected:
    int_type underflow() override
    {
        if (gptr() == egptr()) {
            start += egptr() - eback();
            const auto got = readAt(fd, data.get(), room, start);
            setg(data.get(), data.get(), data.get() + std::max<decltype(got)>(got, 0));
            if (got <= 0) return traits_type::eof();
        }
        return traits_type::to_int_type(*gptr());
    }

    pos_type seekoff(off_type offset, std::ios_base::seekdir way, std::ios_base::openmode which) override
    {
        if (!(which & std::ios_base::in)) return pos_type(off_type(-1));
        if (way == std::ios_base::end) return moveTo(seekTo(fd, offset, SEEK_END));
        const int64_t target = way == std::ios_base::beg ? offset : start + (gptr() - eback()) + offset;
        // Within what was read last: no call to the system.
        if (target >= start && target <= start + (egptr() - eback())) {
            setg(eback(), eback() + (target - start), egptr());
            return pos_type(target);
        }
        return target < 0 ? pos_type(off_type(-1)) : moveTo(seekTo(fd, target, SEEK_SET));
    }

    pos_type seekpos(pos_type position, std::ios_base::openmode which) override
    {
        return seekoff(off_type(position), std::ios_base::beg, which);
    }

private:
    // The system's position is now `at`: nothing read is kept.
    pos_type moveTo(int64_t at)
    {
        if (at < 0) return pos_type(off_type(-1));
        start = at;
        setg(data.get(), data.get(), data.get());
        return pos_type(at);
    }

    int fd;
    std::size_t room;
    std::unique_ptr<char[]> data;
    int64_t start = 0;  // where in the file the buffer's first byte lies
};

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
    const int64_t size = static_cast<int64_t>(information.nFileSizeHigh) << 32 | information.nFileSizeLow;
    // One byte more than the file, so that a file read whole is seen to end.
    const auto room = static_cast<std::size_t>(std::clamp<int64_t>(size + 1, 1, int64_t{readSize}));
    buffer = std::make_unique<DescriptorBuffer>(fd, std::make_unique_for_overwrite<char[]>(room), room, 0);
    in.rdbuf(buffer.get());
}

#else

RegularFile::RegularFile(const std::u16string& path) : RegularFile(wideToFileName(path)) {}

RegularFile::RegularFile(const std::string& fileName)
{
    // Without O_NONBLOCK the open of a FIFO itself waits for a writer.
    const int fd = ::open(fileName.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) {
        error = errno;
        return;
    }
    // The first bytes are read before anything asks what the path names: a read at an offset is
    // refused by a FIFO or a terminal, taking nothing from it, and by a folder. A read that comes
    // back short of the room has found a file's end, and an ordinary file costs no more than that.
    // Only a read that fills the room or finds nothing asks the system, so that a device is refused
    // (one that never ends, or one that is empty) and an empty file opens.
    auto first = std::make_unique_for_overwrite<char[]>(readSize);
    const ssize_t got = readAt(fd, first.get(), readSize, 0);
    if (got < 0) error = errno == ESPIPE ? notRegularFile : errno;
    if (got == 0 || static_cast<std::size_t>(got) == readSize) {
        struct stat status {};
        if (::fstat(fd, &status) != 0) error = errno;
        else if (S_ISDIR(status.st_mode)) error = EISDIR;
        else if (!S_ISREG(status.st_mode)) error = notRegularFile;
    }
    if (error != 0) {
        ::close(fd);
        return;
    }
    // O_NONBLOCK stays: it changes nothing in the reading of a regular file.
    buffer = std::make_unique<DescriptorBuffer>(fd, std::move(first), readSize, static_cast<std::size_t>(got));
    in.rdbuf(buffer.get());
}

#endif

}  // namespace TalvexCore
