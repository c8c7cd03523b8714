#include "utf8_output.h"

#include <cerrno>

#include "archive/text_conversion.h"

namespace CindrelTool {

namespace {

constexpr std::size_t pieceSize = 1 << 16;

bool forbiddenInXml(char16_t c)
{
    return (c < 0x20 && c != u'\t' && c != u'\n' && c != u'\r') || c == 0xFFFE || c == 0xFFFF;
}

}  // namespace

void Utf8Output::fail(int number)
{
    if (!failed) firstError = number != 0 ? number : EIO;
    failed = true;
}

void Utf8Output::take(std::u16string& text, bool force)
{
    if (text.empty() || (!force && text.size() < pieceSize)) return;
    for (const char16_t c : text)
        if (forbiddenInXml(c)) ++forbidden;
    std::u16string_view piece = text;
    std::u16string joined;
    if (pendingHighSurrogate != 0) {
        joined.reserve(text.size() + 1);
        joined.push_back(pendingHighSurrogate);
        joined += text;
        piece = joined;
        pendingHighSurrogate = 0;
    }
    // A pair split between two pieces is held back until its second half arrives.
    if (!force && piece.back() >= 0xD800 && piece.back() <= 0xDBFF) {
        pendingHighSurrogate = piece.back();
        piece.remove_suffix(1);
    }
    bytes.clear();
    TalvexCore::appendWideAsNarrow(bytes, piece);
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) fail(errno);
    text.clear();
}

bool Utf8Output::finish()
{
    if (pendingHighSurrogate != 0) {
        std::u16string rest(1, pendingHighSurrogate);
        pendingHighSurrogate = 0;
        take(rest, true);
    }
    if (std::fflush(file) != 0) fail(errno);
    return !failed;
}

}  // namespace CindrelTool
