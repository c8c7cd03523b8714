// The text of numbers in asset XML: six significant digits, three exponent digits, any locale.
#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <string>
#include <vector>

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

namespace {

// The classic stream default: the C library's %g, its exponent widened to at least three digits.
std::string classicFloatText(double value)
{
    char buf[64];
    std::string text(buf, static_cast<std::size_t>(std::snprintf(buf, sizeof buf, "%g", value)));
    const auto e = text.find('e');
    if (e != std::string::npos && text.size() - (e + 2) < 3) text.insert(e + 2, 3 - (text.size() - (e + 2)), '0');
    return text;
}

// Values where six-digit rounding is hardest: every power of ten and the halfway points around it,
// each with its neighbouring doubles and floats; random bit patterns of both widths; subnormals.
std::vector<double> hardValues()
{
    std::vector<double> values;
    const auto withNeighbours = [&values](double v) {
        for (double d : {v, std::nextafter(v, 0.0), std::nextafter(v, HUGE_VAL)}) {
            values.push_back(d);
            values.push_back(-d);
            const auto f = static_cast<float>(d);
            values.push_back(f);
            values.push_back(std::nextafter(f, 0.0f));
            values.push_back(std::nextafter(f, HUGE_VALF));
        }
    };
    for (int exponent = -324; exponent <= 308; ++exponent) {
        const double scale = std::pow(10.0, exponent);
        for (double mantissa : {1.0, 9.999995, 9.9999949999, 9.999994999, 1.000005, 1.0000049999, 1.234565,
                                 9.5, 5.0, 2.5, 9.99999, 1.00001})
            withNeighbours(mantissa * scale);
    }
    for (double v : {0.0001, 0.000099999949999, 0.000099999950001, 0.00009999995, 1e-5, 999999.5, 999999.4999,
                     999999.5001, 9999995.0, 123456.5, 0.5, 1.0, 0.1, 0.2, 0.3})
        withNeighbours(v);
    std::mt19937_64 random(20261123);
    for (int i = 0; i < 200000; ++i) {
        const auto d = std::bit_cast<double>(random());
        const auto f = std::bit_cast<float>(static_cast<uint32_t>(random()));
        if (std::isfinite(d)) values.push_back(d);
        if (std::isfinite(f)) values.push_back(f);
        // Subnormal floats and doubles: the fewest digits stored, the most for rounding to find.
        values.push_back(std::bit_cast<float>(static_cast<uint32_t>(random() & 0x807FFFFF)));
        values.push_back(std::bit_cast<double>(random() & 0x800FFFFFFFFFFFFF));
    }
    for (double v : std::initializer_list<double>{std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::min(),
                     std::numeric_limits<float>::max(), std::numeric_limits<double>::denorm_min(),
                     std::numeric_limits<double>::min(), std::numeric_limits<double>::max(), 0.0, -0.0})
        withNeighbours(v);
    return values;
}

}  // namespace

// Every finite value prints as the classic %g with a three-digit exponent; the non-finite values
// print as they always have. A float's kept text is its text, however many values share a slot.
TEST(NumberText, FloatTextIsTheClassicGeneralFormat)
{
    int failures = 0;
    FloatTexts& kept = FloatTexts::ofThisThread();
    for (double value : hardValues()) {
        const std::string expected = classicFloatText(value);
        const std::string text = formatFloat(value);
        std::string appended = "<";
        appendFloat(appended, value);
        const auto single = static_cast<float>(value);
        char keptText[FloatTexts::textRoom];
        if (static_cast<double>(single) == value && std::string(keptText, kept.write(keptText, single)) != expected)
            appended += " kept as " + std::string(keptText, kept.write(keptText, single));
        if (text != expected || appended != "<" + expected) {
            ADD_FAILURE() << std::hexfloat << value << ": " << text << " / " << appended << ", expected " << expected;
            if (++failures == 20) break;
        }
    }
    const double inf = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& [value, text] : {std::pair{inf, "inf"}, {-inf, "-inf"}, {nan, "nan"}, {-nan, "-nan"}}) {
        EXPECT_EQ(formatFloat(value), text);
        char keptText[FloatTexts::textRoom];
        EXPECT_EQ(std::string(keptText, kept.write(keptText, static_cast<float>(value))), text);
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
