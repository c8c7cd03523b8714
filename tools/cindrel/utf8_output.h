// Utf8Output: takes the wide text of a document in pieces and writes it to a byte stream as UTF-8.
#pragma once

#include <cstdio>
#include <string>

namespace CindrelTool {

class Utf8Output {
public:
    explicit Utf8Output(std::FILE* file) : file(file) {}
    // Writes and empties `text` once it has grown past a piece's size, or always when `force`.
    void take(std::u16string& text, bool force = false);
    // Writes what is left; false if any write failed.
    bool finish();

private:
    std::FILE* file;
    std::string bytes;
    char16_t pendingHighSurrogate = 0;
    bool failed = false;
};

}  // namespace CindrelTool
