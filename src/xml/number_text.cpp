#include "xml/number_text.h"

#include <charconv>
#include <cstring>

namespace TalvexCore {

namespace {

// Writes the text into buf and answers its length.
std::size_t floatText(char (&buf)[48], double value)
{
    const auto result = std::to_chars(buf, buf + 40, value, std::chars_format::general, 6);
    std::size_t n = static_cast<std::size_t>(result.ptr - buf);
    char* e = static_cast<char*>(std::memchr(buf, 'e', n));
    if (e != nullptr) {
        // to_chars gives at least two exponent digits; the format wants three.
        char* digits = e + 2;
        const std::size_t count = static_cast<std::size_t>(buf + n - digits);
        if (count < 3) {
            const std::size_t pad = 3 - count;
            std::memmove(digits + pad, digits, count);
            std::memset(digits, '0', pad);
            n += pad;
        }
    }
    return n;
}

// Numbers are formatted on the stack and appended in one step, to either width.
template <class Text>
void appendFloatTo(Text& out, double value)
{
    char buf[48];
    const std::size_t n = floatText(buf, value);
    out.append(buf, buf + n);
}

template <class Text>
void appendIntTo(Text& out, int32_t value)
{
    char buf[16];
    const auto result = std::to_chars(buf, buf + sizeof buf, value);
    out.append(buf, result.ptr);
}

}  // namespace

std::string formatFloat(double value)
{
    char buf[48];
    return std::string(buf, floatText(buf, value));
}

void appendFloat(std::u16string& out, double value) { appendFloatTo(out, value); }
void appendFloat(std::string& out, double value) { appendFloatTo(out, value); }
void appendInt(std::u16string& out, int32_t value) { appendIntTo(out, value); }
void appendInt(std::string& out, int32_t value) { appendIntTo(out, value); }

}  // namespace TalvexCore
