// Narrow and wide text: UTF-8 both ways, the Windows-1252 fall-back, zeros, surrogates, name comparison.
#include <gtest/gtest.h>

#include "archive/name_compare.h"
#include "archive/text_conversion.h"
#include "archive/wide_text.h"

using namespace TalvexCore;

namespace {

struct Texts {
    std::string narrow;
    std::u16string wide;
};

}  // namespace

TEST(TextConversion, Utf8BothWays)
{
    // Outside the basic plane: a surrogate pair in the wide text, four bytes in UTF-8.
    const Texts cases[] = {{"", u""},
                           {"caf\xC3\xA9 \xE2\x82\xAC", u"caf\u00e9 \u20AC"},
                           {"\xEF\xBF\xBF", u"\uFFFF"},
                           {"a\xF0\x9F\x98\x80" "b", u"a\U0001F600b"},
                           {"\xF4\x8F\xBF\xBF", u"\U0010FFFF"}};
    for (const Texts& c : cases) {
        EXPECT_EQ(wideToNarrow(c.wide), c.narrow);
        EXPECT_EQ(narrowToWide(c.narrow), c.wide) << c.narrow;
    }
}

// Text that is not valid UTF-8, as a whole, decodes byte by byte as Windows-1252; both ways the
// text ends at its first zero.
TEST(TextConversion, OneWayCases)
{
    const Texts toWide[] = {
        {"caf\xE9 \x80", u"caf\u00e9 \u20AC"},
        {"\x81\x8D", u"\u0081\u008D"},                         // unassigned bytes
        {"\xC0\xAF", u"\u00C0\u00AF"},                         // overlong slash
        {"\xED\xA0\x80", u"\u00ED\u00A0\u20AC"},               // encoded surrogate
        {"\xF4\x90\x80\x80", u"\u00F4\u0090\u20AC\u20AC"},     // above U+10FFFF
        {"ab\xE2\x82", u"ab\u00E2\u201A"},                     // cut sequence
        {"\xC3\xA9\xFF", u"\u00C3\u00A9\u00FF"},               // valid UTF-8 beside a bad byte
        {std::string("ab\0cd", 5), u"ab"},
    };
    for (const Texts& c : toWide) {
        EXPECT_EQ(narrowToWide(c.narrow), c.wide) << c.narrow;
        // Straight to UTF-8, the same text as by way of the wide form.
        std::string utf8 = "kept ";
        appendNarrowAsUtf8(utf8, c.narrow);
        EXPECT_EQ(utf8, "kept " + wideToNarrow(c.wide)) << c.narrow;
    }
    // Lone surrogates, also a pair in the wrong order, become replacement characters.
    const Texts toNarrow[] = {
        {"\xEF\xBF\xBDx", u"\xD800x"},
        {"x\xEF\xBF\xBD", u"x\xDC00"},
        {"\xEF\xBF\xBD\xEF\xBF\xBD", u"\xDE00\xD83D"},
        {"\xEF\xBF\xBD\xF0\x9F\x98\x80", u"\xD83D\xD83D\xDE00"},
        {"ab", std::u16string(u"ab\0cd", 5)},
    };
    for (const Texts& c : toNarrow) EXPECT_EQ(wideToNarrow(c.wide), c.narrow) << c.narrow;
    // Kept, a lone surrogate is its own three bytes; a pair is still one character of four.
    std::string kept;
    appendWideAsNarrow(kept, u"\xDE00\xD83D\xD83D\xDE00x", LoneSurrogates::Kept);
    EXPECT_EQ(kept, "\xED\xB8\x80\xED\xA0\xBD\xF0\x9F\x98\x80x");
    std::u16string out = u"kept ";
    appendNarrowAsWide(out, std::string("\xE9\0\xE9", 3));
    EXPECT_EQ(out, u"kept \u00e9");
}

// Every length around the short and the sixteen-byte steps, with a zero, a Windows-1252 byte or a
// UTF-8 sequence at every place: the text widens as it would one byte at a time.
TEST(TextConversion, NarrowTextWidensAlikeAtEveryLengthAndPlace)
{
    const auto expected = [](const std::string& narrow) {
        std::u16string wide = u"kept ";
        const std::string text = narrow.substr(0, narrow.find('\0'));
        // A lone byte above ASCII is never valid UTF-8: the text is read as Windows-1252.
        for (const char c : text) wide += c == '\x80' ? u'\u20AC' : static_cast<char16_t>(static_cast<unsigned char>(c));
        return wide;
    };
    for (std::size_t size = 0; size <= 40; ++size) {
        std::string plain(size, 'a');
        for (std::size_t i = 0; i < size; ++i) plain[i] = static_cast<char>('a' + i % 26);
        std::u16string out = u"kept ";
        appendNarrowAsWide(out, plain);
        EXPECT_EQ(out, expected(plain)) << size;
        for (std::size_t at = 0; at < size; ++at)
            for (const char odd : {'\0', '\x80', '\xE9'}) {
                std::string text = plain;
                text[at] = odd;
                out = u"kept ";
                appendNarrowAsWide(out, text);
                EXPECT_EQ(out, expected(text)) << size << " " << at << " " << int(odd);
            }
    }
    std::u16string out = u"kept ";
    appendNarrowAsWide(out, "caf\xC3\xA9s");
    EXPECT_EQ(out, u"kept caf\u00e9s");
}

TEST(TextConversion, FileNamesKeepTheirBytes)
{
    // Stray bytes stand as lone surrogates U+DC80..U+DCFF; valid UTF-8 around them decodes.
    const Texts cases[] = {{"wood.talmat", u"wood.talmat"},
                           {"caf\xE9.talmat", u"caf\xDCE9.talmat"},
                           {"\xC3\xA9\xFF\xC3", u"\u00e9\xDCFF\xDCC3"},
                           {"\xED\xB3\xBF", u"\xDCED\xDCB3\xDCBF"},  // an encoded surrogate is no UTF-8
                           {"a\xF0\x9F\x98\x80", u"a\U0001F600"}};
    for (const Texts& c : cases) {
        EXPECT_EQ(fileNameToWide(c.narrow), c.wide) << c.narrow;
        EXPECT_EQ(wideToFileName(c.wide), c.narrow) << c.narrow;
    }
    // A low surrogate that completes a pair is no escaped byte; both stop at the first zero.
    EXPECT_EQ(wideToFileName(u"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(fileNameToWide(std::string("a\0b", 3)), u"a");
    EXPECT_EQ(wideToFileName(std::u16string(u"a\0b", 3)), "a");
}

TEST(WideText, NamesCompareWithoutRegardToCase)
{
    EXPECT_TRUE(equalsNoCase(u"TalMat", u"tALmAT"));
    EXPECT_TRUE(equalsNoCase(u"\u00C4pfel \u0141\u00D3D\u0179 \u0394\u0416\u0401", u"\u00E4PFEL \u0142\u00F3d\u017A \u03B4\u0436\u0451"));
    EXPECT_FALSE(equalsNoCase(u"talmat", u"talmat "));
    EXPECT_FALSE(equalsNoCase(u"\u00D7", u"\u00F7"));  // the multiplication sign is no letter
    EXPECT_TRUE(compareNoCase(u"ABC", u"abd") < 0 && compareNoCase(u"abc", u"AB") > 0);
    EXPECT_FALSE(NoCaseLess()(u"ALPHA", u"alpha"));
    for (char16_t c : {u'\0', u'\x1F', u'\x7F', u'\x85', u'\x9F'}) EXPECT_TRUE(isWideControl(c)) << int(c);
    for (char16_t c : {u' ', u'\xA0', u'\x20AC'}) EXPECT_FALSE(isWideControl(c)) << int(c);
    EXPECT_TRUE(isWideDigit(u'0') && isWideDigit(u'9') && !isWideDigit(u'/') && !isWideDigit(u':'));
}
