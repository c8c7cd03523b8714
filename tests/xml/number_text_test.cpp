// The text of numbers in asset XML: six significant digits, three exponent digits, any locale.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <limits>
#include <locale>

#include "archive/text_conversion.h"
#include "xml/asset_xml_writer.h"
#include "xml/number_text.h"

using namespace TalvexCore;

TEST(NumberText, NumbersAsTheFormatPrintsThem)
{
    using F = std::numeric_limits<float>;
    const std::pair<double, const char*> floats[] = {
        {0.5f, "0.5"},          {1, "1"},           {-0.0f, "-0"},           {1.0f / 3.0f, "0.333333"},
        {0.0001f, "0.0001"},    {1e-5f, "1e-005"},  {123456.7f, "123457"},   {999999.6f, "1e+006"},
        {-1234567, "-1.23457e+006"}, {F::max(), "3.40282e+038"}, {F::denorm_min(), "1.4013e-045"},
        {1e100, "1e+100"},      {1.5e-300, "1.5e-300"},
    };
    for (const auto& [value, text] : floats) EXPECT_EQ(formatFloat(value), text);
    std::u16string out = u"<";
    appendFloat(out, 1234567);
    appendInt(out, -1);
    EXPECT_EQ(out, u"<1.23457e+006-1");
    for (auto [value, text] : {std::pair<int32_t, const char*>{0, "0"}, {-1, "-1"}, {INT32_MIN, "-2147483648"},
                               {INT32_MAX, "2147483647"}}) {
        std::u16string out;
        appendInt(out, value);
        EXPECT_EQ(wideToNarrow(out), text);
    }
}

// A process locale with a decimal comma and digit grouping changes nothing in the XML.
TEST(NumberText, ProcessLocaleDoesNotChangeTheText)
{
    std::locale german;
    try {
        german = std::locale("de_DE.UTF-8");
    } catch (const std::runtime_error&) {
        GTEST_SKIP() << "no de_DE.UTF-8 locale on this machine";
    }
    const std::locale previousGlobal = std::locale::global(german);
    const std::string previousC = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    std::u16string text;
    AssetXmlWriter writer(text);
    writer.writeInt("i", 1234567);
    writer.writeColor("c", {1234.5f, 1e-5f, 1234567});
    std::setlocale(LC_ALL, previousC.c_str());
    std::locale::global(previousGlobal);
    const std::string xml = wideToNarrow(text);
    for (const char* line : {"<value>1234567</value>", "<r>1234.5</r>", "<g>1e-005</g>", "<b>1.23457e+006</b>"})
        EXPECT_NE(xml.find(line), std::string::npos) << line;
}
