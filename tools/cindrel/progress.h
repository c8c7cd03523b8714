// Progress: one line on a terminal's standard error that tells how far a batch has come.
#pragma once

#include <cstddef>
#include <filesystem>

namespace CindrelTool {

// Shown only for a batch of more than one file when standard error is a terminal; every other
// line written to standard error or to the same terminal clears it first.
class Progress {
public:
    Progress(std::size_t total, bool enabled);
    // "[3/250] wood.talmat": the file at `index` is under way.
    void show(std::size_t index, const std::filesystem::path& path);
    void clear();

private:
    std::size_t total;
    bool enabled;
    bool shown = false;
};

}  // namespace CindrelTool
