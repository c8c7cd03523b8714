// Utf8Output: takes the UTF-8 text of a document in pieces and writes it to a byte stream.
#pragma once

#include <cstdio>
#include <string>
#include <utility>

namespace CindrelTool {

class Utf8Output {
public:
    explicit Utf8Output(std::FILE* file) : file(file) {}
    // Writes and empties `text` once it has grown past a piece's size, or always when `force`.
    void take(std::string& text, bool force = false);
    // Writes what is left; false if any write failed.
    bool finish();
    // The system's error number of the first write that failed, or 0.
    int error() const { return firstError; }
    // Characters taken so far that XML 1.0 does not allow in a document (controls other than tab,
    // line feed and carriage return; U+FFFE and U+FFFF). They are written as they are.
    std::size_t forbiddenCharacters() const { return forbidden; }
    // Starts the next document: counting starts anew, and `header`, when not empty, is written
    // ahead of its first byte.
    void startDocument(std::string header);
    // Ends a document that is kept: a header not yet written goes out for an empty document, and
    // with `lineEnd` a document that does not end with a line end gets one.
    void endDocument(bool lineEnd);

private:
    void fail(int number);
    void count(const std::string& text);
    void write(const std::string& text);

    std::FILE* file;
    int firstError = 0;
    bool failed = false;
    std::size_t forbidden = 0;
    std::string header;
    bool documentEmpty = true;
    // The last bytes of the piece before, for U+FFFE and U+FFFF cut between two pieces.
    unsigned char before[2] = {0, 0};
};

}  // namespace CindrelTool
