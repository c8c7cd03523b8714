// TalOptFile: the render-options file, one options record in archive blocks with no header.
#pragma once

#include <iosfwd>
#include <string>

namespace TalvexCore {

class AllOptions;
class LoadTrace;

// Holds nothing: it moves an options object to and from a file. The record's own version tag is
// the file's only version mark.
class TalOptFile {
public:
    TalOptFile() = default;
    virtual ~TalOptFile() = default;

    // Writes the archive's blocks whole. After each block the position must be 4096: a record of
    // more than one block is written up to its second block and answers false.
    virtual bool save(const AllOptions& options, const std::u16string& path);
    // Reads the whole file as one archive into `options`; false for an empty file or a record
    // the options refuse.
    virtual bool load(AllOptions& options, const std::u16string& path);

    // `trace`, when given, takes the objects the load read, the options record's version when the
    // file is an options file, and where and why a load stopped.
    bool load(AllOptions& options, std::istream& in, LoadTrace* trace = nullptr);
};

}  // namespace TalvexCore
