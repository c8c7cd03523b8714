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

TEST(NumberText, FloatsAsTheFormatPrintsThem)
{
    struct Case {
        float value;
        const char* text;
    };
    const Case cases[] = {
        {0.5f, "0.5"},
        {1, "1"},
        {0, "0"},
        {-0.0f, "-0"},
        {-2.5f, "-2.5"},
        {0.1f, "0.1"},
        {1.0f / 3.0f, "0.333333"},
        {0.01f, "0.01"},
        {0.0001f, "0.0001"},
        {1e-5f, "1e-005"},
        {123456.7f, "123457"},
        {999999.4f, "999999"},
        {999999.6f, "1e+006"},
        {1234567, "1.23457e+006"},
        {-1234567, "-1.23457e+006"},
        {57.29578f, "57.2958"},
        {std::numeric_limits<float>::max(), "3.40282e+038"},
        {std::numeric_limits<float>::min(), "1.17549e-038"},
        {std::numeric_limits<float>::denorm_min(), "1.4013e-045"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(formatFloat(c.value), c.text);
        std::u16string out = u"<";
        appendFloat(out, c.value);
        EXPECT_EQ(wideToNarrow(out), std::string("<") + c.text);
    }
    EXPECT_EQ(formatFloat(1e100), "1e+100");
    EXPECT_EQ(formatFloat(1.5e-300), "1.5e-300");
}

TEST(NumberText, Integers)
{
    for (auto [value, text] : {std::pair<int32_t, const char*>{0, "0"}, {-1, "-1"}, {1, "1"},
                               {INT32_MIN, "-2147483648"}, {INT32_MAX, "2147483647"}}) {
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
    writer.writeFloat("f", 1234.5f);
    writer.writeInt("i", 1234567);
    writer.writeColor("c", {0.5f, 1e-5f, 1234567});
    const std::string formatted = formatFloat(0.25);

    std::setlocale(LC_ALL, previousC.c_str());
    std::locale::global(previousGlobal);
    EXPECT_EQ(formatted, "0.25");
    EXPECT_EQ(wideToNarrow(text),
              "<parameter type=\"float\" name=\"f\" handler=\"default\" listType=\"none\" label=\"f\">\n"
              "  <value>1234.5</value>\n</parameter>\n"
              "<parameter type=\"integer\" name=\"i\" handler=\"default\" listType=\"none\" label=\"i\">\n"
              "  <value>1234567</value>\n</parameter>\n"
              "<parameter type=\"color\" name=\"c\" handler=\"default\" listType=\"none\" label=\"c\">\n"
              "  <value>\n    <r>0.5</r>\n    <g>1e-005</g>\n    <b>1.23457e+006</b>\n  </value>\n</parameter>\n");
}
