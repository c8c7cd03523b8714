// The interpreter's wide text and the model's 16-bit strings: the same text in units of another width.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TalvexCore {

namespace codeUnits {

inline constexpr char32_t replacement = 0xFFFD;
inline constexpr char32_t lastCharacter = 0x10FFFF;

inline bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
inline bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace codeUnits

// Wide text up to its first zero, as 16-bit code units. Units of 16 bits are taken as they are;
// of 32 bits, a character above the basic plane becomes a surrogate pair, a lone surrogate stays
// as it is, and a value that is no character becomes U+FFFD.
template <class Unit>
std::u16string toUtf16Units(const Unit* text)
{
    std::u16string out;
    for (; *text != 0; ++text) {
        if constexpr (sizeof(Unit) == sizeof(char16_t)) {
            out += static_cast<char16_t>(*text);
        } else {
            char32_t c = static_cast<char32_t>(*text);
            if (c > codeUnits::lastCharacter) c = codeUnits::replacement;
            if (c < 0x10000) {
                out += static_cast<char16_t>(c);
            } else {
                c -= 0x10000;
                out += static_cast<char16_t>(0xD800 + (c >> 10));
                out += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
            }
        }
    }
    return out;
}

// 16-bit code units up to their first zero, as zero-terminated wide text of `Unit`: units of 32
// bits join each surrogate pair into its character and keep a lone surrogate as it is.
template <class Unit>
std::vector<Unit> fromUtf16Units(std::u16string_view text)
{
    if (const auto zero = text.find(u'\0'); zero != std::u16string_view::npos) text = text.substr(0, zero);
    std::vector<Unit> out;
    out.reserve(text.size() + 1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if constexpr (sizeof(Unit) > sizeof(char16_t)) {
            if (codeUnits::isHighSurrogate(c) && i + 1 < text.size() && codeUnits::isLowSurrogate(text[i + 1]))
                c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        }
        out.push_back(static_cast<Unit>(c));
    }
    out.push_back(0);
    return out;
}

// UTF-8 text whose lone surrogates stand as their own three bytes, up to its first zero, unit by
// unit: `emit(unit)` for each unit of the text fromUtf16Units gives for the same 16-bit units.
// Units of 16 bits take a character above the basic plane as a surrogate pair.
template <class Unit, class Emit>
void forEachUtf8Unit(std::string_view text, Emit emit)
{
    if (const auto zero = text.find('\0'); zero != std::string_view::npos) text = text.substr(0, zero);
    for (std::size_t i = 0; i < text.size();) {
        const unsigned char lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t c = length == 1 ? lead : lead & (0x7F >> length);
        for (std::size_t k = 1; k < length && i + k < text.size(); ++k)
            c = (c << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
        i += length;
        if constexpr (sizeof(Unit) == sizeof(char16_t)) {
            if (c >= 0x10000) {
                c -= 0x10000;
                emit(static_cast<Unit>(0xD800 + (c >> 10)));
                c = 0xDC00 + (c & 0x3FF);
            }
        }
        emit(static_cast<Unit>(c));
    }
}

// The same units as zero-terminated wide text of `Unit`.
template <class Unit>
std::vector<Unit> fromUtf8Units(std::string_view text)
{
    std::vector<Unit> out;
    out.reserve(text.size() + 1);
    forEachUtf8Unit<Unit>(text, [&out](Unit unit) { out.push_back(unit); });
    out.push_back(0);
    return out;
}

}  // namespace TalvexCore
