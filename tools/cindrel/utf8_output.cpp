#include "utf8_output.h"

#include <cerrno>

namespace CindrelTool {

namespace {

constexpr std::size_t pieceSize = 1 << 16;

}  // namespace

void Utf8Output::fail(int number)
{
    if (!failed) firstError = number != 0 ? number : EIO;
    failed = true;
}

// A forbidden control is one byte; U+FFFE and U+FFFF are EF BF BE and EF BF BF.
void Utf8Output::count(const std::string& text)
{
    for (const char byte : text) {
        const unsigned char c = static_cast<unsigned char>(byte);
        if (c < 0x20 && c != '\t' && c != '\n' && c != '\r') ++forbidden;
        else if ((c == 0xBE || c == 0xBF) && before[0] == 0xEF && before[1] == 0xBF) ++forbidden;
        before[0] = before[1];
        before[1] = c;
    }
}

void Utf8Output::write(const std::string& text)
{
    if (std::fwrite(text.data(), 1, text.size(), file) != text.size()) fail(errno);
}

void Utf8Output::take(std::string& text, bool force)
{
    if (text.empty() || (!force && text.size() < pieceSize)) return;
    if (!header.empty()) write(std::exchange(header, {}));
    count(text);
    write(text);
    documentEmpty = false;
    text.clear();
}

void Utf8Output::startDocument(std::string documentHeader)
{
    forbidden = 0;
    header = std::move(documentHeader);
    documentEmpty = true;
}

void Utf8Output::endDocument(bool lineEnd)
{
    if (!header.empty()) write(std::exchange(header, {}));
    if (lineEnd && !documentEmpty && before[1] != '\n') write("\n");
}

bool Utf8Output::finish()
{
    if (std::fflush(file) != 0) fail(errno);
    return !failed;
}

}  // namespace CindrelTool
