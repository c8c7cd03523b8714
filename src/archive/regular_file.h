// RegularFile: a file opened for reading only when it is a regular file.
#pragma once

#include <istream>
#include <memory>
#include <string>

namespace TalvexCore {

// Opens a path for binary input without ever blocking: a FIFO, a device, a socket or a folder is
// refused, since reading one could wait for ever or never end. A FIFO or a terminal gives up no
// byte to the attempt; a device that answers reads is refused after its first one.
class RegularFile {
public:
    explicit RegularFile(const std::string& fileName);     // the name's bytes
    explicit RegularFile(const std::u16string& path);      // a wide name, see fileNameToWide
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    bool isOpen() const { return buffer != nullptr; }
    // The file's bytes; a stream with no buffer, which fails every read, when it did not open.
    std::istream& stream() { return in; }
    // Why it did not open: the system's reason, or the kind of thing the path names.
    std::string failureReason() const;

private:
    int error = 0;
    std::unique_ptr<std::streambuf> buffer;
    std::istream in{nullptr};
};

}  // namespace TalvexCore
