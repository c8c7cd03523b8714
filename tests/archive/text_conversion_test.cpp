// Narrow and wide text: UTF-8 both ways, the Windows-1252 fall-back, zeros, surrogates, name comparison.
#include <gtest/gtest.h>

#include "archive/text_conversion.h"
#include "archive/wide_text.h"

using namespace TalvexCore;

TEST(TextConversion, Utf8BothWays)
{
    struct Case {
        std::u16string wide;
        std::string narrow;
    };
    const Case cases[] = {
        {u"", ""},
        {u"plain ascii", "plain ascii"},
        {u"caf\u00e9", "caf\xC3\xA9"},
        {u"\u20AC 5", "\xE2\x82\xAC 5"},
        {u"\uFFFF", "\xEF\xBF\xBF"},
        // Outside the basic plane: a surrogate pair in the wide text, four bytes in UTF-8.
        {u"a\U0001F600b", "a\xF0\x9F\x98\x80" "b"},
        {u"\U0010FFFF", "\xF4\x8F\xBF\xBF"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(wideToNarrow(c.wide), c.narrow);
        EXPECT_EQ(narrowToWide(c.narrow), c.wide);
    }
    EXPECT_EQ(narrowToWide("\xF0\x9F\x98\x80").size(), 2u);
}

// Text that is not valid UTF-8, as a whole, decodes byte by byte as Windows-1252.
TEST(TextConversion, InvalidUtf8DecodesAsWindows1252)
{
    struct Case {
        const char* what;
        std::string narrow;
        std::u16string wide;
    };
    const Case cases[] = {
        {"euro sign byte", "\x80", u"\u20AC"},
        {"latin-1 text", "caf\xE9", u"caf\u00e9"},
        {"unassigned byte", "\x81\x8D", u"\u0081\u008D"},
        {"quotes and dashes", "\x93q\x94\x96", u"\u201Cq\u201D\u2013"},
        {"overlong slash", "\xC0\xAF", u"\u00C0\u00AF"},
        {"overlong three bytes", "\xE0\x80\xAF", u"\u00E0\u20AC\u00AF"},
        {"encoded surrogate", "\xED\xA0\x80", u"\u00ED\u00A0\u20AC"},
        {"above U+10FFFF", "\xF4\x90\x80\x80", u"\u00F4\u0090\u20AC\u20AC"},
        {"cut sequence", "ab\xE2\x82", u"ab\u00E2\u201A"},
        {"lone continuation", "\xBF", u"\u00BF"},
        {"valid UTF-8 beside a bad byte", "\xC3\xA9\xFF", u"\u00C3\u00A9\u00FF"},
    };
    for (const Case& c : cases) EXPECT_EQ(narrowToWide(c.narrow), c.wide) << c.what;
}

TEST(TextConversion, BothStopAtTheFirstZero)
{
    EXPECT_EQ(narrowToWide(std::string("ab\0cd", 5)), u"ab");
    EXPECT_EQ(narrowToWide(std::string("\0x", 2)), u"");
    EXPECT_EQ(wideToNarrow(std::u16string(u"ab\0cd", 5)), "ab");
    std::u16string out = u"kept ";
    appendNarrowAsWide(out, std::string("\xE9\0\xE9", 3));
    EXPECT_EQ(out, u"kept \u00e9");
}

TEST(TextConversion, LoneSurrogatesBecomeReplacementCharacters)
{
    EXPECT_EQ(wideToNarrow(u"\xD800x"), "\xEF\xBF\xBDx");
    EXPECT_EQ(wideToNarrow(u"x\xDC00"), "x\xEF\xBF\xBD");
    EXPECT_EQ(wideToNarrow(u"\xDE00\xD83D"), "\xEF\xBF\xBD\xEF\xBF\xBD");  // a pair in the wrong order
    EXPECT_EQ(wideToNarrow(u"\xD83D\xD83D\xDE00"), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
}

TEST(WideText, NamesCompareWithoutRegardToCase)
{
    EXPECT_TRUE(equalsNoCase(u"TalMat", u"tALmAT"));
    EXPECT_TRUE(equalsNoCase(u"\u00C4pfel \u0141\u00D3D\u0179", u"\u00E4PFEL \u0142\u00F3d\u017A"));
    EXPECT_TRUE(equalsNoCase(u"\u0394\u0416\u0401", u"\u03B4\u0436\u0451"));
    EXPECT_FALSE(equalsNoCase(u"talmat", u"talmat "));
    EXPECT_FALSE(equalsNoCase(u"\u00D7", u"\u00F7"));  // the multiplication sign is no letter
    EXPECT_LT(compareNoCase(u"ABC", u"abd"), 0);
    EXPECT_GT(compareNoCase(u"abc", u"AB"), 0);
    EXPECT_TRUE(NoCaseLess()(u"Alpha", u"beta"));
    EXPECT_FALSE(NoCaseLess()(u"ALPHA", u"alpha"));

    for (char16_t c : {u'\0', u'\t', u'\n', u'\x1F', u'\x7F', u'\x85', u'\x9F'}) EXPECT_TRUE(isWideControl(c)) << int(c);
    for (char16_t c : {u' ', u'a', u'\xA0', u'\xE9', u'\x20AC'}) EXPECT_FALSE(isWideControl(c)) << int(c);
    EXPECT_TRUE(isWideDigit(u'0') && isWideDigit(u'9'));
    EXPECT_FALSE(isWideDigit(u'a') || isWideDigit(u'/') || isWideDigit(u':'));
}
