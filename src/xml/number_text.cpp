#include "xml/number_text.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace TalvexCore {

namespace {

// Powers of ten that doubles hold exactly.
constexpr double exactPowers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};


// The fixed form of a value whose six digits are plain to see: 1e-4 <= |value| < 1e6, rounded to
// six significant digits, trailing zeros dropped. Answers 0 where the rounding is close enough to
// a tie to need the exact digits, or where the value is out of that range; the general path then
// decides.
std::size_t quickFixedText(char* buf, double value)
{
    const double magnitude = value < 0 ? -value : value;
    if (!(magnitude >= 1e-4 && magnitude < 1e6)) return 0;
    // The decimal exponent, so that magnitude * 10^(5 - exponent) has six digits before the point.
    // A guess one off either way gives seven or five digits, and the general path.
    constexpr double lowerBounds[] = {1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1, 1e2, 1e3, 1e4, 1e5};
    int exponent = 5;
    while (exponent > -4 && magnitude < lowerBounds[exponent + 4]) --exponent;
    const double scaled = magnitude * exactPowers[5 - exponent];
    const double whole = static_cast<double>(static_cast<int64_t>(scaled));
    const double fraction = scaled - whole;
    // The product is within 1e-9 of the exact one; nearer a tie than that, the exact digits decide.
    if (fraction > 0.5 - 1e-9 && fraction < 0.5 + 1e-9) return 0;
    const int64_t digits = static_cast<int64_t>(whole) + (fraction > 0.5 ? 1 : 0);
    if (digits < 100000 || digits > 999999) return 0;
    char six[6];
    int64_t rest = digits;
    for (int i = 5; i >= 0; --i, rest /= 10) six[i] = static_cast<char>('0' + rest % 10);
    int last = 5;  // the last digit kept: trailing zeros of the fraction go
    const int integerDigits = exponent + 1;
    while (last >= integerDigits && last > 0 && six[last] == '0') --last;
    std::size_t n = 0;
    if (value < 0) buf[n++] = '-';
    if (integerDigits <= 0) {
        buf[n++] = '0';
        buf[n++] = '.';
        for (int i = integerDigits; i < 0; ++i) buf[n++] = '0';
        for (int i = 0; i <= last; ++i) buf[n++] = six[i];
        return n;
    }
    for (int i = 0; i < integerDigits; ++i) buf[n++] = six[i];
    if (last >= integerDigits) {
        buf[n++] = '.';
        for (int i = integerDigits; i <= last; ++i) buf[n++] = six[i];
    }
    return n;
}

// Writes the text into buf and answers its length.
std::size_t floatText(char* buf, double value)
{
    if (value == 0) {
        if (std::signbit(value)) {
            buf[0] = '-';
            buf[1] = '0';
            return 2;
        }
        buf[0] = '0';
        return 1;
    }
    // Whole numbers of up to six digits, the most common values, print as integers do.
    if (value > -1e6 && value < 1e6) {
        const auto whole = static_cast<int32_t>(value);
        if (whole == value) return static_cast<std::size_t>(std::to_chars(buf, buf + 8, whole).ptr - buf);
    }
    if (const std::size_t n = quickFixedText(buf, value)) return n;
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

std::size_t formatFloat(char* out, double value) { return floatText(out, value); }

std::string formatFloat(double value)
{
    char buf[48];
    return std::string(buf, floatText(buf, value));
}

void appendFloat(std::u16string& out, double value) { appendFloatTo(out, value); }
void appendFloat(std::string& out, double value) { appendFloatTo(out, value); }
void appendInt(std::u16string& out, int32_t value) { appendIntTo(out, value); }
void appendInt(std::string& out, int32_t value) { appendIntTo(out, value); }

FloatTexts& FloatTexts::ofThisThread()
{
    thread_local FloatTexts texts;
    return texts;
}

void FloatTexts::make(Slot& slot, uint32_t bits, float value)
{
    char text[floatTextSize];
    const std::size_t size = floatText(text, value);
    std::memcpy(slot.text, text, textRoom);
    slot.size = static_cast<uint32_t>(size);
    slot.bits = bits;
}

}  // namespace TalvexCore
