#include "xml/asset_xml_writer.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "archive/text_conversion.h"
#include "records/transform_components.h"
#include "xml/number_text.h"
#include "xml/parameter_heads.h"

namespace TalvexCore {

namespace {

// Wide text up to this length is written in one pass, straight into the stage.
constexpr std::size_t shortText = 2048;

// Indentation is cut from one prepared run of blanks.
constexpr std::string_view blanks = "                                                                ";
// The longest line of markup, or tag around a number, that is written with one check for room.
constexpr std::size_t lineRoom = 32;

// Text prepared for each indentation level, made as the code is compiled: runs of lines around a
// value, copied whole, room and all, and their size then counted.
template <std::size_t Room, std::size_t Levels>
struct LevelTexts {
    static constexpr std::size_t room = Room;
    static constexpr std::size_t levels = Levels;
    char text[Levels][Room] = {};
    uint8_t size[Levels] = {};
};

// `make(level, text)` writes the text of a level through `text`, which takes a run of characters,
// or, for a number, the blanks of that many levels.
template <std::size_t Room, std::size_t Levels, class Make>
constexpr LevelTexts<Room, Levels> makeLevelTexts(Make make)
{
    LevelTexts<Room, Levels> texts;
    for (std::size_t level = 0; level < Levels; ++level) {
        std::size_t n = 0;
        struct Text {
            char* out;
            std::size_t& n;
            constexpr void operator()(std::string_view run) const
            {
                for (const char c : run) out[n++] = c;
            }
            constexpr void operator()(std::size_t depth) const
            {
                for (std::size_t i = 0; i < 2 * depth; ++i) out[n++] = ' ';
            }
        };
        make(level, Text{texts.text[level], n});
        texts.size[level] = static_cast<uint8_t>(n);
    }
    return texts;
}

// The end of a parameter whose value stands on its line, "</value>" then "</parameter>" on a line of
// its own, for each level that the run of blanks indents.
constexpr auto inlineEnds = makeLevelTexts<96, blanks.size() / 2 + 1>([](std::size_t level, auto text) {
    text("</value>\n");
    text(level);
    text("</parameter>\n");
});

// For the level of an asset's line: from the end of its url to its plugin's name, from the end of
// its plugin's type to its first parameter, and from its last parameter to its own end.
constexpr std::size_t assetLevels = 8;
constexpr auto pluginStarts = makeLevelTexts<80, assetLevels>([](std::size_t level, auto text) {
    text("\" >\n");
    text(level + 1);
    text("<plugin>\n");
    text(level + 2);
    text("<nuvaplugin name=\"");
});
constexpr auto parametersStarts = makeLevelTexts<48, assetLevels>([](std::size_t level, auto text) {
    text("\">\n");
    text(level + 3);
    text("<parameters>\n");
});
constexpr auto assetEnds = makeLevelTexts<128, assetLevels>([](std::size_t level, auto text) {
    text(level + 3);
    text("</parameters>\n");
    text(level + 2);
    text("</nuvaplugin>\n");
    text(level + 1);
    text("</plugin>\n");
    text(level);
    text("</Asset>\n");
});

// An integer's text, in at most `intRoom` bytes at `out`; answers its length.
constexpr std::size_t intRoom = 16;
inline std::size_t intText(char* out, int32_t value)
{
    return static_cast<std::size_t>(std::to_chars(out, out + intRoom, value).ptr - out);
}

// Replaces every `from` by `to`, going on behind each replacement; one pass, however many there are.
void replaceAll(std::u16string& text, std::u16string_view from, std::u16string_view to)
{
    std::size_t pos = text.find(from);
    if (pos == std::u16string::npos) return;
    std::u16string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (; pos != std::u16string::npos; pos = text.find(from, done)) {
        result.append(text, done, pos - done);
        result.append(to);
        done = pos + from.size();
    }
    result.append(text, done);
    text = std::move(result);
}

bool needsEscaping(std::u16string_view text)
{
    for (const char16_t c : text)
        if (c == u'&' || c == u'<' || c == u'>') return true;
    return false;
}

// Length of the run of ASCII characters other than zero at the start of the text, eight at a time.
std::size_t asciiRun(std::string_view text)
{
    // A byte with its high bit set, or a zero byte (whose borrow sets it), ends the run.
    const auto plainAt = [&text](std::size_t at) {
        uint64_t word;
        std::memcpy(&word, text.data() + at, 8);
        return (((word - 0x0101010101010101) | word) & 0x8080808080808080) == 0;
    };
    std::size_t i = 0;
    for (; i + 8 <= text.size() && plainAt(i); i += 8) {}
    // The last eight bytes, overlapping what was read, settle most texts without a byte loop.
    if (i + 8 > text.size() && text.size() >= 8 && plainAt(text.size() - 8)) return text.size();
    while (i < text.size() && static_cast<unsigned char>(text[i] - 1) < 0x7F) ++i;
    return i;
}

bool isHighSurrogate(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool isLowSurrogate(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

char* encode3(char* out, char32_t cp)
{
    out[0] = static_cast<char>(0xE0 | (cp >> 12));
    out[1] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out[2] = static_cast<char>(0x80 | (cp & 0x3F));
    return out + 3;
}

// The writer's own UTF-8 back to wide text for a wide stream: whole sequences only, a lone
// surrogate's three bytes included.
void appendStagedAsWide(std::u16string& out, std::string_view utf8)
{
    const auto* p = reinterpret_cast<const unsigned char*>(utf8.data());
    const auto* const end = p + utf8.size();
    out.reserve(out.size() + utf8.size());
    while (p < end) {
        const unsigned char lead = *p;
        if (lead < 0x80) {
            out.push_back(lead);
            ++p;
        } else if (lead < 0xE0 && p + 1 < end) {
            out.push_back(static_cast<char16_t>(((lead & 0x1F) << 6) | (p[1] & 0x3F)));
            p += 2;
        } else if (lead < 0xF0 && p + 2 < end) {
            out.push_back(static_cast<char16_t>(((lead & 0x0F) << 12) | ((p[1] & 0x3F) << 6) | (p[2] & 0x3F)));
            p += 3;
        } else if (p + 3 < end) {
            const char32_t cp = ((lead & 0x07) << 18) | ((p[1] & 0x3F) << 12) | ((p[2] & 0x3F) << 6) | (p[3] & 0x3F);
            out.push_back(static_cast<char16_t>(0xD800 + ((cp - 0x10000) >> 10)));
            out.push_back(static_cast<char16_t>(0xDC00 + ((cp - 0x10000) & 0x3FF)));
            p += 4;
        } else {
            break;
        }
    }
}

// Type names, layer names and url words are mostly a few ASCII characters. Up to sixteen units are
// checked and packed at once, from two loads that may overlap, and written to `out` (which has room
// for sixteen bytes); answers false, having written nothing that counts, when a unit is not ASCII,
// is zero, or (with `escapable`) is "&", "<" or ">".
[[gnu::always_inline]] inline bool packShortAscii(const char16_t* in, std::size_t n, char* out, bool escapable)
{
#if defined(__SSE2__)
    if (n >= 8 && n <= 16) {
        const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
        const __m128i last = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in + n - 8));
        const __m128i high = _mm_and_si128(_mm_or_si128(first, last), _mm_set1_epi16(static_cast<short>(0xFF80)));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) != 0xFFFF) return false;
        const __m128i bytes = _mm_packus_epi16(first, last);
        __m128i stops = _mm_cmpeq_epi8(bytes, _mm_setzero_si128());
        if (escapable)
            stops = _mm_or_si128(stops, _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('&')),
                                                     _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('<')),
                                                                  _mm_cmpeq_epi8(bytes, _mm_set1_epi8('>')))));
        if (_mm_movemask_epi8(stops) != 0) return false;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out), bytes);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + n - 8), _mm_srli_si128(bytes, 8));
        return true;
    }
#endif
    if (n > 16) return false;
    for (std::size_t i = 0; i < n; ++i) {
        const char16_t c = in[i];
        if (static_cast<char16_t>(c - 1) >= 0x7F || (escapable && (c == u'&' || c == u'<' || c == u'>'))) return false;
        out[i] = static_cast<char>(c);
    }
    return true;
}

// Encodes units from `in` up to `end` as UTF-8 at `out`, which has room for three bytes a unit;
// a pair may take the unit at `end` when `pairEnd` lets it. With `upToZero`, a zero unit ends the
// text; with `escapable`, "&", "<" or ">" ends the encoding too. Answers where the output ends, and
// leaves `in` at the unit that stopped it.
template <bool upToZero, bool escapable>
char* encodeWide(const char16_t*& in, const char16_t* end, const char16_t* pairEnd, char* out,
                 LoneSurrogates loneSurrogates)
{
    while (in < end) {
#if defined(__SSE2__)
        // Eight ASCII units at a time, as long as none of them ends the text or is to be escaped.
        while (end - in >= 8) {
            const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
            const __m128i high = _mm_and_si128(units, _mm_set1_epi16(static_cast<short>(0xFF80)));
            if (_mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) != 0xFFFF) break;
            const __m128i bytes = _mm_packus_epi16(units, units);
            __m128i stops = _mm_setzero_si128();
            if constexpr (upToZero) stops = _mm_cmpeq_epi8(bytes, _mm_setzero_si128());
            if constexpr (escapable)
                stops = _mm_or_si128(stops, _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('&')),
                                                         _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('<')),
                                                                      _mm_cmpeq_epi8(bytes, _mm_set1_epi8('>')))));
            if ((_mm_movemask_epi8(stops) & 0xFF) != 0) break;
            _mm_storel_epi64(reinterpret_cast<__m128i*>(out), bytes);
            out += 8;
            in += 8;
        }
#endif
        // Four at a time, the same way.
        while (end - in >= 4) {
            uint64_t units;
            std::memcpy(&units, in, 8);
            if (units & 0xFF80FF80FF80FF80ull) break;
            const auto bytes = static_cast<uint32_t>((units & 0x7F) | ((units >> 8) & 0x7F00) |
                                                     ((units >> 16) & 0x7F0000) | ((units >> 24) & 0x7F000000));
            const auto hasByte = [bytes](uint32_t repeated) {
                const uint32_t x = bytes ^ repeated;
                return ((x - 0x01010101u) & ~x & 0x80808080u) != 0;
            };
            if constexpr (upToZero)
                if (hasByte(0)) break;
            if constexpr (escapable)
                if (hasByte(0x26262626u) || hasByte(0x3C3C3C3Cu) || hasByte(0x3E3E3E3Eu)) break;
            std::memcpy(out, &bytes, 4);
            out += 4;
            in += 4;
        }
        if (in == end) break;
        const char16_t c = *in;
        if (c < 0x80) {
            if constexpr (upToZero)
                if (c == 0) return out;
            if constexpr (escapable)
                if (c == u'&' || c == u'<' || c == u'>') return out;
            *out++ = static_cast<char>(c);
            ++in;
            continue;
        }
        ++in;
        if (c < 0x800) {
            *out++ = static_cast<char>(0xC0 | (c >> 6));
            *out++ = static_cast<char>(0x80 | (c & 0x3F));
        } else if (isHighSurrogate(c) && in < pairEnd && isLowSurrogate(*in)) {
            const char32_t cp = 0x10000 + ((char32_t(c) - 0xD800) << 10) + (*in++ - 0xDC00);
            *out++ = static_cast<char>(0xF0 | (cp >> 18));
            *out++ = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
            *out++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            *out++ = static_cast<char>(0x80 | (cp & 0x3F));
        } else if (isHighSurrogate(c) || isLowSurrogate(c)) {
            out = encode3(out, loneSurrogates == LoneSurrogates::Replaced ? 0xFFFD : c);
        } else {
            out = encode3(out, c);
        }
    }
    return out;
}

}  // namespace

AssetXmlWriter::AssetXmlWriter(std::u16string& stream) : wideOut(&stream), loneSurrogates(LoneSurrogates::Kept) {}

AssetXmlWriter::AssetXmlWriter(std::string& utf8Stream, LoneSurrogates loneSurrogates, Delivery delivery)
    : utf8Out(&utf8Stream), loneSurrogates(loneSurrogates), delivery(delivery)
{
}

void AssetXmlWriter::flush()
{
    spill();
    if (wideOut && flushSink) flushSink(*wideOut);
    if (utf8Out && utf8FlushSink) utf8FlushSink(*utf8Out);
}

void AssetXmlWriter::spill()
{
    if (staged == 0) return;
    if (utf8Out) utf8Out->append(stage, staged);
    else appendStagedAsWide(*wideOut, std::string_view(stage, staged));
    staged = 0;
}

inline void AssetXmlWriter::endOperation()
{
    if (delivery == Delivery::EachOperation) spill();
}

// Text longer than the stage goes to the stream as it stands, behind what was gathered.
void AssetXmlWriter::spillLarge(std::string_view utf8)
{
    spill();
    if (utf8Out) utf8Out->append(utf8);
    else appendStagedAsWide(*wideOut, utf8);
}

[[gnu::always_inline]] inline char* AssetXmlWriter::room(std::size_t n)
{
    if (staged + n > stageSize) [[unlikely]] spill();
    return stage + staged;
}

[[gnu::always_inline]] inline void AssetXmlWriter::put(std::string_view ascii)
{
    if (ascii.size() > stageSize / 2) [[unlikely]] {
        spillLarge(ascii);
        return;
    }
    std::memcpy(room(ascii.size()), ascii.data(), ascii.size());
    staged += ascii.size();
}

[[gnu::always_inline]] inline void AssetXmlWriter::putChar(char ascii)
{
    *room(1) = ascii;
    ++staged;
}

// Narrow text as narrowToWide would read it: up to its first zero byte, as UTF-8 where the whole
// of it is valid UTF-8, else as Windows-1252. An ASCII start reads the same either way.
void AssetXmlWriter::putNarrow(std::string_view text)
{
    const std::size_t ascii = asciiRun(text);
    put(text.substr(0, ascii));
    if (ascii == text.size() || text[ascii] == '\0') return;
    std::string converted;
    appendNarrowAsUtf8(converted, text.substr(ascii));
    put(converted);
}

// The model's wide text, all of it, turned into UTF-8 straight into the stage, in pieces that
// never part a surrogate pair.
[[gnu::always_inline]] inline bool AssetXmlWriter::putShortAscii(std::u16string_view text)
{
    if (!packShortAscii(text.data(), text.size(), room(16), false)) return false;
    staged += text.size();
    return true;
}

void AssetXmlWriter::putWide(std::u16string_view text)
{
    if (putShortAscii(text)) return;
    const char16_t* in = text.data();
    const char16_t* const end = in + text.size();
    while (in < end) {
        const char16_t* const pieceEnd = in + std::min<std::size_t>(static_cast<std::size_t>(end - in), stageSize / 4);
        char* const start = room(3 * static_cast<std::size_t>(pieceEnd - in) + 3);
        staged += static_cast<std::size_t>(encodeWide<false, false>(in, pieceEnd, end, start, loneSurrogates) - start);
    }
}

void AssetXmlWriter::putText(const XmlText& text)
{
    if (!text.isWideText()) {
        putNarrow(text.narrowText());
        return;
    }
    // Short text goes in one pass that stops at a zero; long text is cut first and goes in pieces.
    const std::u16string_view wide = text.wideText();
    if (putShortAscii(wide)) return;
    if (wide.size() > shortText) {
        putWide(wide.substr(0, std::min(wide.size(), wide.find(u'\0'))));
        return;
    }
    const char16_t* in = wide.data();
    char* const start = room(3 * wide.size());
    staged += static_cast<std::size_t>(
        encodeWide<true, false>(in, in + wide.size(), in + wide.size(), start, loneSurrogates) - start);
}

[[gnu::always_inline]] inline void AssetXmlWriter::putFloat(float value)
{
    staged += floatTexts.write(room(FloatTexts::textRoom), value);
}

[[gnu::always_inline]] inline void AssetXmlWriter::putInt(int32_t value)
{
    staged += intText(room(intRoom), value);
}

[[gnu::always_inline]] inline char* AssetXmlWriter::indentedRoom(std::size_t n)
{
    const std::size_t width = 2 * static_cast<std::size_t>(std::max(indentLevel, 0));
    if (width > blanks.size()) [[unlikely]] return nullptr;
    // The whole run is copied, which the compiler does in a few moves; the caller counts the width.
    char* const out = room(blanks.size() + n);
    std::memcpy(out, blanks.data(), blanks.size());
    return out + width;
}

[[gnu::always_inline]] inline void AssetXmlWriter::indent()
{
    if (char* const out = indentedRoom(0)) {
        staged = static_cast<std::size_t>(out - stage);
        return;
    }
    std::size_t width = 2 * static_cast<std::size_t>(indentLevel);
    for (; width > blanks.size(); width -= blanks.size()) put(blanks);
    put(blanks.substr(0, width));
}

std::u16string AssetXmlWriter::indentText() const
{
    std::u16string text;
    for (int32_t i = 0; i < indentLevel; ++i) text += u"  ";
    return text;
}

[[gnu::always_inline]] inline void AssetXmlWriter::lineAscii(std::string_view text)
{
    // Lines of markup are short: one room for the whole line, filled with no further checks.
    if (char* const out = text.size() <= lineRoom ? indentedRoom(lineRoom + 1) : nullptr) {
        std::memcpy(out, text.data(), text.size());
        out[text.size()] = '\n';
        staged = static_cast<std::size_t>(out + text.size() + 1 - stage);
        return;
    }
    indent();
    put(text);
    putChar('\n');
}

AssetXmlWriter::UrlText AssetXmlWriter::escapedText(const XmlText& text)
{
    std::u16string converted;
    escaped.clear();
    appendUrlText(escaped, text.isWideText() ? text.wideText() : text.wideView(converted), loneSurrogates);
    return {escaped};
}

void AssetXmlWriter::appendEscaped(const XmlText& text)
{
    put(escapedText(text).text);
}

void AssetXmlWriter::openRoot(XmlText tag)
{
    rootTag = tag.toWide();
    putChar('<');
    putWide(rootTag);
    put(">\n");
    endOperation();
}

void AssetXmlWriter::closeRoot()
{
    put("</");
    putWide(rootTag);
    put(">\n");
    flush();
}

void AssetXmlWriter::openTag(XmlText tag)
{
    ++indentLevel;
    indent();
    putChar('<');
    putText(tag);
    put(">\n");
    endOperation();
}

void AssetXmlWriter::closeTag(XmlText tag)
{
    indent();
    put("</");
    putText(tag);
    put(">\n");
    --indentLevel;
    endOperation();
}

void AssetXmlWriter::openAsset(XmlText url, XmlText type, XmlText layout)
{
    openAsset(escapedText(url), type, layout);
}

void AssetXmlWriter::openAsset(UrlText url, XmlText type, XmlText layout)
{
    assetLineStart(url, type, layout);
    put("\" >\n");
    endOperation();
}

// The asset's line, one level in, up to the end of its url.
void AssetXmlWriter::assetLineStart(UrlText url, const XmlText& type, const XmlText& layout)
{
    ++indentLevel;
    indent();
    put("<Asset layout=\"");
    putText(layout);
    put("\" renderer=\"nuva\" type=\"");
    putText(type);
    put("\" url=\"");
    put(url.text);
}

void AssetXmlWriter::closeAsset()
{
    lineAscii("</Asset>");
    --indentLevel;
    endOperation();
}

void AssetXmlWriter::openPlugin(XmlText name, XmlText type)
{
    ++indentLevel;
    lineAscii("<plugin>");
    ++indentLevel;
    indent();
    put("<nuvaplugin name=\"");
    putText(name);
    put("\" type=\"");
    putText(type);
    put("\">\n");
    endOperation();
}

void AssetXmlWriter::closePlugin()
{
    lineAscii("</nuvaplugin>");
    --indentLevel;
    lineAscii("</plugin>");
    // A document handed over in pieces gathers a few assets a piece: one flush for each would
    // cost more than the asset's text.
    if (delivery == Delivery::EachOperation || staged >= stageSize / 2) flush();
    --indentLevel;
}

// The asset's level, where its text is prepared; none beyond the prepared levels.
std::optional<std::size_t> AssetXmlWriter::preparedAssetLevel(int32_t level) const
{
    if (level < 0 || static_cast<std::size_t>(level) >= assetLevels) return std::nullopt;
    return static_cast<std::size_t>(level);
}

template <class Texts>
[[gnu::always_inline]] inline void AssetXmlWriter::putLevelText(const Texts& texts, std::size_t level)
{
    std::memcpy(room(Texts::room), texts.text[level], Texts::room);
    staged += texts.size[level];
}

void AssetXmlWriter::beginAsset(UrlText url, XmlText type, XmlText layout, XmlText plugin)
{
    const std::optional<std::size_t> level = preparedAssetLevel(indentLevel + 1);
    if (!level) {
        openAsset(url, type, layout);
        openPlugin(plugin, type);
        openParameters();
        return;
    }
    assetLineStart(url, type, layout);
    putLevelText(pluginStarts, *level);
    putText(plugin);
    put("\" type=\"");
    putText(type);
    putLevelText(parametersStarts, *level);
    indentLevel += 4;
    endOperation();
}

void AssetXmlWriter::endAsset()
{
    const std::optional<std::size_t> level = preparedAssetLevel(indentLevel - 4);
    if (!level) {
        closeParameters();
        closePlugin();
        closeAsset();
        return;
    }
    putLevelText(assetEnds, *level);
    indentLevel -= 5;
    // Handed over as closePlugin hands it over: at once, or a few assets a piece.
    if (delivery == Delivery::EachOperation || staged >= stageSize / 2) flush();
}

void AssetXmlWriter::openParameters()
{
    ++indentLevel;
    lineAscii("<parameters>");
    ++indentLevel;
    endOperation();
}

void AssetXmlWriter::closeParameters()
{
    --indentLevel;
    lineAscii("</parameters>");
    --indentLevel;
    endOperation();
}

namespace {

// The prepared openings of the parameter forms, and the common handler and list type.
constexpr std::string_view stringHead = "<parameter type=\"string\" name=\"";
constexpr std::string_view listHead = "<parameter type=\"list\" name=\"";
constexpr std::string_view byDefault = "\" handler=\"default\" listType=\"";
constexpr std::string_view byFileBrowser = "\" handler=\"FileBrowserHandler\" listType=\"";

// The forms whose list type is "none", each with a number of its own.
constexpr HeadForm floatForm{"<parameter type=\"float\" name=\"", byDefault, 1};
constexpr HeadForm integerForm{"<parameter type=\"integer\" name=\"", byDefault, 2};
constexpr HeadForm boolForm{"<parameter type=\"bool\" name=\"", byDefault, 3};
constexpr HeadForm stringForm{stringHead, byDefault, 4};
constexpr HeadForm fileStringForm{stringHead, byFileBrowser, 5};
constexpr HeadForm pluginForm{"<parameter type=\"plugin\" name=\"", byDefault, 6};
constexpr HeadForm colorForm{"<parameter type=\"color\" name=\"", byDefault, 7};
constexpr HeadForm acolorForm{"<parameter type=\"acolor\" name=\"", byDefault, 8};
constexpr HeadForm vectorForm{"<parameter type=\"vector\" name=\"", byDefault, 9};
constexpr HeadForm matrixForm{"<parameter type=\"matrix\" name=\"", byDefault, 10};
constexpr HeadForm transformForm{"<parameter type=\"transform\" name=\"", byDefault, 11};
constexpr HeadForm componentMatrixForm{"<parameter type=\"componentMatrix\" name=\"", byDefault, 12};
constexpr HeadForm componentTransformForm{"<parameter type=\"componentTransform\" name=\"", byDefault, 13};

}  // namespace

void AssetXmlWriter::parameterHead(std::string_view opening, const XmlText& name, std::string_view handlerAndList,
                                   const XmlText& listType, const XmlText& label, bool isUserData)
{
    indent();
    put(opening);
    putText(name);
    put(handlerAndList);
    putText(listType);
    put(isUserData ? std::string_view("\" isUserData=\"1\" label=\"") : std::string_view("\" label=\""));
    putText(label.empty() ? name : label);
    put("\">\n");
    ++indentLevel;
}

[[gnu::always_inline]] inline void AssetXmlWriter::noneListHead(const HeadForm& form, const XmlText& name,
                                                                 const XmlText& label, bool isUserData, bool withValue)
{
    if (!name.isWideText() && (label.empty() || !label.isWideText())) {
        const std::string_view made = heads.find(
            {form, name.narrowText(), label.empty() ? std::string_view() : label.narrowText(), indentLevel, isUserData,
             withValue});
        if (!made.empty()) {
            // The whole room is copied, which takes a few moves, and the head's size kept.
            std::memcpy(room(ParameterHeads::textRoom), made.data(), ParameterHeads::textRoom);
            staged += made.size();
            ++indentLevel;
            return;
        }
    }
    writeNoneListHead(form, name, label, isUserData, withValue);
}

void AssetXmlWriter::writeNoneListHead(const HeadForm& form, const XmlText& name, const XmlText& label,
                                       bool isUserData, bool withValue)
{
    parameterHead(form.opening, name, form.handler, "none", label, isUserData);
    if (withValue) {
        indent();
        put("<value>");
    }
}

[[gnu::always_inline]] inline void AssetXmlWriter::parameterEnd()
{
    --indentLevel;
    lineAscii("</parameter>");
}

[[gnu::always_inline]] inline void AssetXmlWriter::inlineValueEnd()
{
    --indentLevel;
    if (indentLevel >= 0 && static_cast<std::size_t>(indentLevel) < inlineEnds.levels) {
        putLevelText(inlineEnds, static_cast<std::size_t>(indentLevel));
    } else {
        put("</value>\n");
        lineAscii("</parameter>");
    }
    endOperation();
}

void AssetXmlWriter::blockValueStart()
{
    lineAscii("<value>");
    ++indentLevel;
}

void AssetXmlWriter::blockValueEnd()
{
    --indentLevel;
    lineAscii("</value>");
    parameterEnd();
    endOperation();
}

void AssetXmlWriter::writeFloat(XmlText name, float value, XmlText label, bool isUserData)
{
    noneListHead(floatForm, name, label, isUserData, true);
    putFloat(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeInt(XmlText name, int32_t value, XmlText label, bool isUserData)
{
    noneListHead(integerForm, name, label, isUserData, true);
    putInt(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeBool(XmlText name, bool value, XmlText label, bool isUserData)
{
    noneListHead(boolForm, name, label, isUserData, true);
    putChar(value ? '1' : '0');
    inlineValueEnd();
}

void AssetXmlWriter::writeString(XmlText name, XmlText value, XmlText label, bool isUserData)
{
    noneListHead(stringForm, name, label, isUserData, true);
    putText(value);
    inlineValueEnd();
}

void AssetXmlWriter::writeFileString(XmlText name, XmlText value, XmlText label, bool isUserData)
{
    noneListHead(fileStringForm, name, label, isUserData, true);
    appendEscaped(value);
    inlineValueEnd();
}

void AssetXmlWriter::writePluginName(XmlText name, XmlText value, XmlText label)
{
    noneListHead(pluginForm, name, label, false, true);
    putText(value);
    inlineValueEnd();
}

void AssetXmlWriter::writePlugin(XmlText name, const TalvexXMLSerializable* ref, XmlText url, XmlText label)
{
    writePlugin(name, ref, ref ? escapedText(url) : UrlText{}, label);
}

void AssetXmlWriter::writePlugin(XmlText name, const TalvexXMLSerializable* ref, UrlText url, XmlText label)
{
    noneListHead(pluginForm, name, label, false, ref != nullptr);
    if (!ref) {
        parameterEnd();
        endOperation();
        return;
    }
    put(url.text);
    if (const std::u16string* tail = ref->referenceName()) {
        putChar('/');
        putWide(*tail);
    }
    inlineValueEnd();
}

template <class WriteNumber>
[[gnu::always_inline]] inline void AssetXmlWriter::numberLine(std::string_view open, std::string_view close,
                                                               std::size_t numberRoom, const WriteNumber& writeNumber)
{
    // One room for the whole line, filled with no further checks.
    char* out = open.size() <= lineRoom && close.size() <= lineRoom ? indentedRoom(2 * lineRoom + numberRoom) : nullptr;
    if (!out) [[unlikely]] {
        indent();
        put(open);
        staged += writeNumber(room(numberRoom));
        put(close);
        return;
    }
    std::memcpy(out, open.data(), open.size());
    out += open.size();
    out += writeNumber(out);
    std::memcpy(out, close.data(), close.size());
    staged = static_cast<std::size_t>(out + close.size() - stage);
}

[[gnu::always_inline]] inline void AssetXmlWriter::floatLine(std::string_view open, std::string_view close,
                                                              float value)
{
    numberLine(open, close, FloatTexts::textRoom, [&](char* out) { return floatTexts.write(out, value); });
}

[[gnu::always_inline]] inline void AssetXmlWriter::intLine(std::string_view open, std::string_view close, int32_t value)
{
    numberLine(open, close, intRoom, [value](char* out) { return intText(out, value); });
}

void AssetXmlWriter::vectorBlock(const Vector& v)
{
    lineAscii("<vector>");
    ++indentLevel;
    floatLine("<x>", "</x>\n", v.x);
    floatLine("<y>", "</y>\n", v.y);
    floatLine("<z>", "</z>\n", v.z);
    --indentLevel;
    lineAscii("</vector>");
}

void AssetXmlWriter::writeColor(XmlText name, const Color& value, XmlText label)
{
    noneListHead(colorForm, name, label, false, false);
    blockValueStart();
    floatLine("<r>", "</r>\n", value.r);
    floatLine("<g>", "</g>\n", value.g);
    floatLine("<b>", "</b>\n", value.b);
    blockValueEnd();
}

void AssetXmlWriter::writeAColor(XmlText name, const AColor& value, XmlText label)
{
    noneListHead(acolorForm, name, label, false, false);
    blockValueStart();
    floatLine("<r>", "</r>\n", value.r);
    floatLine("<g>", "</g>\n", value.g);
    floatLine("<b>", "</b>\n", value.b);
    floatLine("<a>", "</a>\n", value.a);
    blockValueEnd();
}

void AssetXmlWriter::writeVector(XmlText name, const Vector& value, XmlText label)
{
    noneListHead(vectorForm, name, label, false, false);
    blockValueStart();
    vectorBlock(value);
    blockValueEnd();
}

void AssetXmlWriter::writeMatrix(XmlText name, const Matrix& value, XmlText label)
{
    noneListHead(matrixForm, name, label, false, false);
    blockValueStart();
    putChar('\n');  // the matrix form keeps an empty line behind its value tag
    lineAscii("<matrix>");
    ++indentLevel;
    for (const Vector& v : value.v) vectorBlock(v);
    --indentLevel;
    lineAscii("</matrix>");
    blockValueEnd();
}

void AssetXmlWriter::writeTransform(XmlText name, const Transform& value, XmlText label)
{
    noneListHead(transformForm, name, label, false, false);
    blockValueStart();
    for (const Vector& v : value.m.v) vectorBlock(v);
    vectorBlock(value.offset);
    blockValueEnd();
}

void AssetXmlWriter::componentBlock(const HeadForm& form, const XmlText& name, const TransformComponents& c,
                                    const XmlText& label)
{
    noneListHead(form, name, label, false, false);
    blockValueStart();
    floatLine("<x_rotation>", "</x_rotation>\n", c.x_rotation);
    floatLine("<y_rotation>", "</y_rotation>\n", c.y_rotation);
    floatLine("<z_rotation>", "</z_rotation>\n", c.z_rotation);
    floatLine("<x_scale>", "</x_scale>\n", c.x_scale);
    floatLine("<y_scale>", "</y_scale>\n", c.y_scale);
    floatLine("<z_scale>", "</z_scale>\n", c.z_scale);
    floatLine("<x_offset>", "</x_offset>\n", c.x_offset);
    floatLine("<y_offset>", "</y_offset>\n", c.y_offset);
    floatLine("<z_offset>", "</z_offset>\n", c.z_offset);
    intLine("<x_mirror>", "</x_mirror>\n", c.x_mirror);
    intLine("<y_mirror>", "</y_mirror>\n", c.y_mirror);
    intLine("<z_mirror>", "</z_mirror>\n", c.z_mirror);
    blockValueEnd();
}

void AssetXmlWriter::writeComponentMatrix(XmlText name, const TransformComponents& value, XmlText label)
{
    componentBlock(componentMatrixForm, name, value, label);
}

void AssetXmlWriter::writeComponentTransform(XmlText name, const TransformComponents& value, XmlText label)
{
    componentBlock(componentTransformForm, name, value, label);
}

void AssetXmlWriter::openList(XmlText name, XmlText elementType, XmlText label)
{
    parameterHead(listHead, name, byDefault, elementType, label, false);
    lineAscii("<value>");
    lineAscii("<list>");
    ++indentLevel;
    endOperation();
}

void AssetXmlWriter::writeEntry(XmlText text)
{
    indent();
    put("<entry>");
    appendEscaped(text);
    put("</entry>\n");
    endOperation();
}

void AssetXmlWriter::writeStringEntry(XmlText text)
{
    indent();
    put("<string>\"");
    putText(text);
    put("\"</string>\n");
    endOperation();
}

void AssetXmlWriter::closeList()
{
    --indentLevel;
    lineAscii("</list>");
    lineAscii("</value>");
    parameterEnd();
    endOperation();
}

void AssetXmlWriter::writeRaw(XmlText text)
{
    putText(text);
    endOperation();
}

std::u16string AssetXmlWriter::unescapeXml(std::u16string_view text)
{
    std::u16string result(text);
    if (result.find(u'&') == std::u16string::npos) return result;
    replaceAll(result, u"&lt;", u"<");
    replaceAll(result, u"&gt;", u">");
    replaceAll(result, u"&amp;", u"&");
    return result;
}

bool AssetXmlWriter::appendUrlText(std::string& out, std::u16string_view url, LoneSurrogates loneSurrogates)
{
    // Url words are mostly short ASCII, taken as they stand.
    if (char plain[16]; packShortAscii(url.data(), url.size(), plain, true)) {
        out.append(plain, url.size());
        return false;
    }
    // Most urls are short and need no escaping: one pass that gives up at the first character to
    // escape, having kept nothing.
    constexpr std::size_t shortUrl = 256;
    if (url.size() <= shortUrl) {
        char text[3 * shortUrl];
        const char16_t* in = url.data();
        const char16_t* const end = in + url.size();
        const char* const textEnd = encodeWide<true, true>(in, end, end, text, loneSurrogates);
        if (in == end || *in == 0) {
            out.append(text, static_cast<std::size_t>(textEnd - text));
            return in != end;
        }
    }
    const std::size_t zero = url.find(u'\0');
    const bool cut = zero != std::u16string_view::npos;
    url = url.substr(0, zero);
    std::u16string escaped;
    if (needsEscaping(url)) url = escaped = escapeXml(url, true);
    const std::size_t start = out.size();
    out.resize(start + 3 * url.size());
    const char16_t* in = url.data();
    char* const begin = out.data() + start;
    const char* const end =
        encodeWide<false, false>(in, url.data() + url.size(), url.data() + url.size(), begin, loneSurrogates);
    out.resize(start + static_cast<std::size_t>(end - begin));
    return cut;
}

std::u16string AssetXmlWriter::escapeXml(std::u16string_view text, bool unescapeFirst)
{
    std::u16string result = unescapeFirst ? unescapeXml(text) : std::u16string(text);
    if (!needsEscaping(result)) return result;
    replaceAll(result, u"&", u"&amp;");
    replaceAll(result, u"<", u"&lt;");
    replaceAll(result, u">", u"&gt;");
    return result;
}

}  // namespace TalvexCore
