// OutputFile: a file in an output folder that appears whole or not at all.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>

namespace CindrelTool {

// Writes go to a temporary name beside the target; commit() renames it into place once every byte
// is on disk, and anything else removes it, so that a full disk or a failed conversion never
// leaves a cut or empty file behind. Errors carry the system's reason.
class OutputFile {
public:
    explicit OutputFile(std::filesystem::path target);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    // False, with the reason in error(), when the temporary file cannot be made.
    bool open();
    std::FILE* file() const { return stream; }
    // The name the file has until it is committed, for a writer that opens it by name.
    const std::string& temporaryName() const { return temporary; }
    // Flushes, closes and renames into place; false, removing the temporary, with the reason.
    // `writeError` is the error number of a write that already failed, or 0.
    bool commit(int writeError);
    // Removes the temporary file.
    void abandon();
    const std::string& error() const { return reason; }

private:
    bool fail(int number);

    std::filesystem::path target;
    std::string temporary;
    std::FILE* stream = nullptr;
    std::string reason;
};

}  // namespace CindrelTool
