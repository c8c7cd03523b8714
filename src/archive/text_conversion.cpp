#include "archive/text_conversion.h"

#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace TalvexCore {

namespace {

#if defined(__SSE2__)
// One bit for each byte that is ASCII other than zero (positive as a signed byte).
inline int plainBytes(__m128i bytes)
{
    return _mm_movemask_epi8(_mm_cmpgt_epi8(bytes, _mm_setzero_si128()));
}

inline __m128i loadEight(const char* at)
{
    return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(at));
}

// The low eight bytes as eight units at `out`.
inline void storeWidened(char16_t* out, __m128i bytes)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(bytes, _mm_setzero_si128()));
}
#endif

// Windows-1252 at 0x80 to 0x9F; the five unassigned bytes map to the control characters.
constexpr char16_t cp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::string_view upToZero(std::string_view s)
{
    const auto zero = s.find('\0');
    return zero == std::string_view::npos ? s : s.substr(0, zero);
}

std::u16string_view upToZero(std::u16string_view s)
{
    const auto zero = s.find(u'\0');
    return zero == std::u16string_view::npos ? s : s.substr(0, zero);
}

void appendCodePoint(std::u16string& out, char32_t cp)
{
    if (cp < 0x10000) {
        out.push_back(static_cast<char16_t>(cp));
    } else {
        cp -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    }
}

// Length of the strict UTF-8 sequence at `i` and its code point, or 0 where none starts: no
// overlong forms, no surrogates, nothing above U+10FFFF, no cut sequence.
std::size_t utf8Sequence(std::string_view s, std::size_t i, char32_t& cp)
{
    const unsigned char lead = static_cast<unsigned char>(s[i]);
    if (lead < 0x80) {
        cp = lead;
        return 1;
    }
    std::size_t extra;
    char32_t minimum;
    if (lead >= 0xC2 && lead <= 0xDF) extra = 1, cp = lead & 0x1F, minimum = 0x80;
    else if (lead >= 0xE0 && lead <= 0xEF) extra = 2, cp = lead & 0x0F, minimum = 0x800;
    else if (lead >= 0xF0 && lead <= 0xF4) extra = 3, cp = lead & 0x07, minimum = 0x10000;
    else return 0;
    if (i + extra >= s.size()) return 0;
    for (std::size_t k = 1; k <= extra; ++k) {
        const unsigned char c = static_cast<unsigned char>(s[i + k]);
        if ((c & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (c & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    return extra + 1;
}

bool decodeUtf8(std::string_view s, std::u16string& out)
{
    for (std::size_t i = 0; i < s.size();) {
        char32_t cp = 0;
        const std::size_t length = utf8Sequence(s, i, cp);
        if (length == 0) return false;
        appendCodePoint(out, cp);
        i += length;
    }
    return true;
}

constexpr char16_t escapedByteBase = 0xDC00;

void decodeCp1252(std::string_view s, std::u16string& out)
{
    for (unsigned char c : s)
        out.push_back(c >= 0x80 && c < 0xA0 ? cp1252High[c - 0x80] : static_cast<char16_t>(c));
}

void encodeUtf8(char32_t cp, std::string& out)
{
    if (cp < 0x80) {
        out.push_back(static_cast<char>(cp));
    } else if (cp < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
    }
}

}  // namespace

void appendNarrowAsWide(std::u16string& out, std::string_view narrow)
{
    // A word of plain ASCII, the most common text, is widened beside and appended in one step.
    if (narrow.size() <= 16) {
        char16_t word[16];
        const std::size_t n = narrow.size();
        bool plain = true;
#if defined(__SSE2__)
        if (n >= 8) {
            // Two loads of eight bytes, overlapping where the word is shorter than sixteen.
            const __m128i head = loadEight(narrow.data());
            const __m128i tail = loadEight(narrow.data() + n - 8);
            plain = (plainBytes(head) & plainBytes(tail) & 0xFF) == 0xFF;
            storeWidened(word, head);
            storeWidened(word + n - 8, tail);
        } else
#endif
            for (std::size_t i = 0; i < n && plain; ++i) {
                const auto c = static_cast<unsigned char>(narrow[i]);
                plain = c - 1u < 0x7Fu;
                word[i] = c;
            }
        if (plain) {
            out.append(word, n);
            return;
        }
    }
    // Widened in place in one pass, up to a zero, as long as the text is ASCII; most text is.
    const std::size_t start = out.size();
    out.resize(start + narrow.size());
    char16_t* const wide = out.data() + start;
    std::size_t ascii = 0;
#if defined(__SSE2__)
    // Sixteen bytes at a time while all of them are ASCII other than zero (positive as signed bytes).
    for (; ascii + 16 <= narrow.size(); ascii += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(narrow.data() + ascii));
        if (plainBytes(bytes) != 0xFFFF) break;
        storeWidened(wide + ascii, bytes);
        storeWidened(wide + ascii + 8, _mm_srli_si128(bytes, 8));
    }
    if (ascii + 8 <= narrow.size()) {
        const __m128i bytes = loadEight(narrow.data() + ascii);
        if ((plainBytes(bytes) & 0xFF) == 0xFF) {
            storeWidened(wide + ascii, bytes);
            ascii += 8;
        }
    }
#endif
    for (unsigned char c; ascii < narrow.size() && (c = static_cast<unsigned char>(narrow[ascii])) - 1u < 0x7Fu; ++ascii)
        wide[ascii] = c;
    if (ascii == narrow.size() || narrow[ascii] == '\0') {
        out.resize(start + ascii);
        return;
    }
    out.resize(start);
    narrow = upToZero(narrow);
    if (!decodeUtf8(narrow, out)) {
        out.resize(start);
        decodeCp1252(narrow, out);
    }
}

std::u16string narrowToWide(std::string_view narrow)
{
    std::u16string out;
    appendNarrowAsWide(out, narrow);
    return out;
}

void appendWideAsNarrow(std::string& out, std::u16string_view wide, LoneSurrogates loneSurrogates)
{
    const char32_t lone = loneSurrogates == LoneSurrogates::Replaced ? 0xFFFD : 0;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char16_t c = wide[i];
        if (c < 0x80) {
            out.push_back(static_cast<char>(c));
        } else if (c >= 0xD800 && c <= 0xDBFF && i + 1 < wide.size() && wide[i + 1] >= 0xDC00 &&
                   wide[i + 1] <= 0xDFFF) {
            encodeUtf8(0x10000 + ((char32_t(c) - 0xD800) << 10) + (wide[i + 1] - 0xDC00), out);
            ++i;
        } else if (c >= 0xD800 && c <= 0xDFFF) {
            encodeUtf8(lone != 0 ? lone : c, out);
        } else {
            encodeUtf8(c, out);
        }
    }
}

void appendNarrowAsUtf8(std::string& out, std::string_view narrow)
{
    narrow = upToZero(narrow);
    bool valid = true;
    for (std::size_t i = 0; i < narrow.size() && valid;) {
        char32_t cp = 0;
        const std::size_t length = utf8Sequence(narrow, i, cp);
        valid = length != 0;
        i += length;
    }
    if (valid) {
        out.append(narrow);
        return;
    }
    out.reserve(out.size() + narrow.size() * 2);
    for (const unsigned char c : narrow)
        encodeUtf8(c >= 0x80 && c < 0xA0 ? cp1252High[c - 0x80] : static_cast<char32_t>(c), out);
}

std::string wideToNarrow(std::u16string_view wide)
{
    std::string out;
    appendWideAsNarrow(out, upToZero(wide));
    return out;
}


std::u16string fileNameToWide(std::string_view bytes)
{
    bytes = upToZero(bytes);
    std::u16string out;
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        char32_t cp = 0;
        const std::size_t length = utf8Sequence(bytes, i, cp);
        if (length == 0) {
            out.push_back(static_cast<char16_t>(escapedByteBase + static_cast<unsigned char>(bytes[i])));
            ++i;
            continue;
        }
        appendCodePoint(out, cp);
        i += length;
    }
    return out;
}

std::string wideToFileName(std::u16string_view wide)
{
    wide = upToZero(wide);
    std::string out;
    out.reserve(wide.size());
    std::size_t done = 0;
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char16_t c = wide[i];
        const bool escapedByte = c >= escapedByteBase + 0x80 && c <= escapedByteBase + 0xFF &&
                                 (i == 0 || wide[i - 1] < 0xD800 || wide[i - 1] > 0xDBFF);
        if (!escapedByte) continue;
        appendWideAsNarrow(out, wide.substr(done, i - done));
        out.push_back(static_cast<char>(c - escapedByteBase));
        done = i + 1;
    }
    appendWideAsNarrow(out, wide.substr(done));
    return out;
}

}  // namespace TalvexCore
