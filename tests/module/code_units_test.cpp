// The interpreter's wide text in 32-bit units and the model's 16-bit strings: characters beyond the
// basic plane, lone surrogates, values that are no character, and the first zero.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archive/text_conversion.h"
#include "module/code_units.h"

using namespace TalvexCore;

namespace {

std::u32string widened(std::u16string_view units)
{
    const std::vector<char32_t> wide = fromUtf16Units<char32_t>(units);
    return std::u32string(wide.data());
}

}  // namespace

TEST(CodeUnits, WideTextOfThirtyTwoBitsBothWays)
{
    struct Case {
        std::u32string wide;
        std::u16string units;
    };
    const std::vector<Case> cases = {
        {U"", u""},
        {U"caf\u00e9 \u20ac\uffff", u"caf\u00e9 \u20ac\uffff"},
        {U"\U0001F600", u"\xD83D\xDE00"},
        {U"a\U00010000\U0010FFFFz", u"a\xD800\xDC00\xDBFF\xDFFFz"},
        // Lone surrogates stay as they are, wherever they stand.
        {U"\xD800", u"\xD800"},
        {U"x\xDC00\xD800y", u"x\xDC00\xD800y"},
        {U"\xD83D\U0001F600", u"\xD83D\xD83D\xDE00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::PrintToString(c.units));
        EXPECT_EQ(toUtf16Units(c.wide.c_str()), c.units);
        EXPECT_EQ(widened(c.units), c.wide);
        // The document's UTF-8, lone surrogates kept, gives the interpreter the same text.
        std::string utf8;
        appendWideAsNarrow(utf8, c.units, LoneSurrogates::Kept);
        EXPECT_EQ(std::u32string(fromUtf8Units<char32_t>(utf8).data()), c.wide);
        EXPECT_EQ(std::u16string(fromUtf8Units<char16_t>(utf8).data()), c.units);
    }
}

TEST(CodeUnits, EndsAtTheFirstZeroAndReplacesWhatIsNoCharacter)
{
    EXPECT_EQ(fromUtf16Units<char32_t>(std::u16string_view(u"ab\0cd", 5)), (std::vector<char32_t>{U'a', U'b', 0}));
    const char32_t wide[] = {U'a', 0, U'b', 0};
    EXPECT_EQ(toUtf16Units(wide), u"a");
    // An interpreter's unit may be signed, and may hold values beyond the last character.
    const std::int32_t signedUnits[] = {-1, 0x110000, 0x7fffffff, 0x41, 0};
    EXPECT_EQ(toUtf16Units(signedUnits), u"\uFFFD\uFFFD\uFFFDA");
}

TEST(CodeUnits, UnitsOfSixteenBitsAreTakenAsTheyAre)
{
    const char16_t units[] = {0xD83D, 0xDE00, 0xDC00, u'z', 0};
    EXPECT_EQ(toUtf16Units(units), std::u16string(units));
    EXPECT_EQ(fromUtf16Units<char16_t>(units), std::vector<char16_t>(units, units + 5));
}
