// The sun: its identity through records and copies, and an XML written once per writer, never for
// the document's sun.
#include <gtest/gtest.h>

#include "scene/sun_light.h"
#include "support/byte_builder.h"
#include "support/document_sun.h"
#include "textures/texture_test_support.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

// The shared run of a sun and a sky from up_vector to shadows, at the defaults but two.
ByteBuilder& sunParameters(ByteBuilder& b, float turbidity, float ozone = 0.35f)
{
    return b.floats({0, 0, 1, 0, turbidity, 2, 1, 1, 50, 150, ozone}).i32(500).i32(1000).i32(8).boolean(true);
}

}  // namespace

TEST(SunLightRecords, EachVersionReadsItsFieldsAndOldOnesGetANewId)
{
    ByteBuilder v1;
    sunParameters(transform(v1.tag(1), 1, 5), 7);
    const auto first = readFrom<SunLight>(v1);
    const auto second = readFrom<SunLight>(v1);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(std::pair(first->turbidity, first->transform.valueAt(0.0).offset), std::pair(7.0f, Vector{5, 5, 5}));
    EXPECT_FALSE(first->sunId.empty() || first->isEqual(second));  // each load made a new id

    ByteBuilder v3;
    sunParameters(transform(v3.tag(3), 1, 0), 4).str("{ABC}").str("Noon").boolean(false).boolean(true);
    const auto sun3 = readFrom<SunLight>(v3);
    ASSERT_TRUE(sun3);
    EXPECT_TRUE(sun3->sunId == u"{ABC}" && sun3->sunName == u"Noon" && !sun3->enabled && sun3->invisible);

    // The newest record puts the key frames last; a count of 8 bytes per time is required.
    SunLight sun(u"Noon", u"{ABC}");
    sun.ozone = 0.5f;
    QuickArchive out(1);
    ASSERT_TRUE(sun.writeBinary(out));
    ByteBuilder v4;
    sunParameters(v4.tag(4), 3, 0.5f).str("{ABC}").str("Noon").boolean(true).boolean(false);
    transform(v4.tag(1).u32(1).u32(8).f64(0), 1, 0);
    EXPECT_EQ(writtenBytes(out), v4.bytes);
    auto back = std::make_shared<SunLight>();
    ASSERT_TRUE(back->readBinary(out));
    EXPECT_TRUE(back->isEqual(std::make_shared<SunLight>(sun)));
    v4.bytes[v4.bytes.size() - 48 - 8 - 4] = 4;  // a time of 4 bytes is refused
    EXPECT_FALSE(readFrom<SunLight>(v4));
}

TEST(SunLightRecords, ACloneIsAnotherSunAndNamesCompareWithCase)
{
    auto sun = std::make_shared<SunLight>(u"Noon", u"{ABC}");
    const auto copy = std::dynamic_pointer_cast<SunLight>(sun->clone());
    ASSERT_TRUE(copy);
    EXPECT_FALSE(copy->sunId == sun->sunId || copy->isEqual(sun));
    copy->sunId = sun->sunId;
    EXPECT_TRUE(copy->isEqual(sun));
    copy->sunName = u"noon";
    EXPECT_FALSE(copy->isEqual(sun));
}

TEST(SunLightXml, WrittenOncePerWriterAndNeverTheDocumentSun)
{
    SunLight sun(u"Noon", u"{ABC}");
    sun.turbidity = 5;
    // With an empty url the sun stands under its id, braces and all, and a second call adds nothing.
    const auto once = xmlWithOneWriter(1, sun, sun);
    EXPECT_EQ(once.substr(0, once.find("<parameter ")),
              "  <Asset layout=\"\" renderer=\"nuva\" type=\"light\" url=\"/{ABC}\" >\n    <plugin>\n"
              "      <nuvaplugin name=\"SunLight\" type=\"light\">\n        <parameters>\n          ");
    // up_vector comes first, shadowBias right behind it.
    const auto first = once.find("<parameter "), second = once.find("<parameter ", first + 1);
    EXPECT_EQ(first, once.find("<parameter type=\"vector\" name=\"up_vector\""));
    EXPECT_EQ(second, once.find("<parameter type=\"float\" name=\"shadowBias\""));
    EXPECT_EQ(valueOf(once, "up_vector"), "<vector><x>0</x><y>0</y><z>1</z></vector>");
    EXPECT_EQ(std::tuple(valueOf(once, "turbidity"), valueOf(once, "ozone"), valueOf(once, "shadow_subdivs")),
              std::tuple("5", "0.35", "8"));
    EXPECT_EQ(valueOf(once, "invisible"), "0");
    EXPECT_LT(once.find("name=\"enabled\""), once.find("name=\"shadows\""));
    EXPECT_EQ(valueOf(once, "transform"), "<vector><x>1</x><y>0</y><z>0</z></vector><vector><x>0</x><y>1</y><z>0</z>"
                                          "</vector><vector><x>0</x><y>0</y><z>1</z></vector><vector><x>0</x><y>0</y>"
                                          "<z>0</z></vector>");
    EXPECT_EQ(once.find("<Asset", once.find("<Asset") + 1), std::string::npos);

    // The document's sun, whatever the case of its id, is the host's to supply.
    const SunLight document(u"Default", u"{d3be9766-e4aa-418B-81a9-23414a2ba98d}");
    EXPECT_EQ(xmlWithOneWriter(1, document), "");

    // In the numbering mode suns stand under the plug-in name and the count of suns before them.
    const SunLight other(u"Dusk", u"{DEF}");
    const auto numbered = xmlWithOneWriter(0, sun, document, other, sun);
    EXPECT_TRUE(assetsInOrder(numbered, {"/SunLight", "/SunLight1", "/SunLight2"}));
    EXPECT_EQ(numbered.find("url=\"/SunLight3\""), std::string::npos);

    // A url given is taken as it stands.
    std::u16string text;
    AssetXmlWriter writer(text);
    sun.writeXml(writer, u"/scene/key & fill");
    EXPECT_EQ(writer.sunDirectory.at(u"{ABC}"), u"/scene/key & fill");
    EXPECT_NE(std::string(text.begin(), text.end()).find("url=\"/scene/key &amp; fill\" "), std::string::npos);
}
