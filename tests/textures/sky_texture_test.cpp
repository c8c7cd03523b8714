// The sky: its three records, the document's sun that the newest one carries and shares, copies,
// comparison, and the url under which a sky names its sun.
#include <gtest/gtest.h>

#include "support/byte_builder.h"
#include "support/document_sun.h"
#include "texture_test_support.h"
#include "textures/sky_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

// A sun's or sky's shared run from up_vector to shadows, at the defaults but the turbidity.
ByteBuilder& parameters(ByteBuilder& b, float turbidity)
{
    return b.floats({0, 0, 1, 0, turbidity, 2, 1, 1, 50, 150, 0.35f}).i32(500).i32(1000).i32(8).boolean(true);
}

// A newest sun record with one key frame of identity.
ByteBuilder& sunRecord(ByteBuilder& b, const std::string& id, float turbidity)
{
    parameters(b.tag(4), turbidity).str(id).str("Sun").boolean(true).boolean(false);
    return transform(b.tag(1).u32(1).u32(8).f64(0), 1, 0);
}

// A newest sky record: its own sun when `sunId` isn't empty, then the document's sun, then the flag.
ByteBuilder newestSky(const std::string& sunId, float documentTurbidity, bool holdsDocumentSun,
                      uint32_t documentSunTag = 4, const std::string& skyId = "sky-1")
{
    ByteBuilder b;
    b.tag(3).boolean(!sunId.empty());
    if (!sunId.empty()) sunRecord(b, sunId, 6);
    parameters(b, 4).boolean(true).str(skyId);
    transform(b.tag(1).u32(1).u32(8).f64(0), 1, 0);
    ByteBuilder document;
    sunRecord(document, "{D3BE9766-E4AA-418b-81A9-23414A2BA98D}", documentTurbidity);
    document.bytes[2] = static_cast<uint8_t>(documentSunTag);
    return b.append(document).boolean(holdsDocumentSun);
}

}  // namespace

using SkyRecords = DocumentSunTest;
using SkyXml = DocumentSunTest;

TEST_F(SkyRecords, OlderVersionsHoldTheSunAndThenACopyOfItsParameters)
{
    const auto bare = readFrom<SkyTexture>(ByteBuilder().tag(1).boolean(false));
    ASSERT_TRUE(bare && bare->sun == defaultSun());
    EXPECT_FALSE(bare->skyId.empty() || bare->isEqual(readFrom<SkyTexture>(ByteBuilder().tag(1).boolean(false))));

    // An embedded sun that fails to read is kept as it stands, and the sky still loads.
    ByteBuilder broken;
    const auto withBrokenSun = readFrom<SkyTexture>(broken.tag(1).boolean(true).u32(0x50000));
    ASSERT_TRUE(withBrokenSun);
    EXPECT_NE(withBrokenSun->sun, defaultSun());

    // What the XML does not show of version 2 (the example library holds the rest).
    ByteBuilder v2;
    sunRecord(v2.tag(2).boolean(true), "{S}", 6);
    parameters(transform(v2, 2, 1), 9).boolean(true).str("{Sky}");
    const auto sky = readFrom<SkyTexture>(v2);
    ASSERT_TRUE(sky);
    EXPECT_TRUE(sky->skyFlag && sky->skyId == u"{Sky}");
    EXPECT_EQ(defaultSun()->turbidity, saved.turbidity);  // only the newest record carries it

    for (uint32_t tag : {0x30001u, 0x40000u}) EXPECT_FALSE(readFrom<SkyTexture>(ByteBuilder().u32(tag).boolean(false)));
}

TEST_F(SkyRecords, NewestRecordGivesTheDocumentSunItsValuesAndSharesIt)
{
    const auto first = readFrom<SkyTexture>(newestSky("", 5, true));
    ASSERT_TRUE(first);
    EXPECT_TRUE(first->sun == defaultSun() && defaultSun()->turbidity == 5.0f && defaultSun()->sunName == u"Sun");

    // A later sky with its own sun still changes the same document sun, which the first one holds.
    const auto second = readFrom<SkyTexture>(newestSky("{OWN}", 8, false));
    ASSERT_TRUE(second);
    EXPECT_TRUE(second->sun->sunId == u"{OWN}" && first->sun->turbidity == 8.0f);

    // A document sun that fails to read fails the sky and leaves every value of the sun as it was.
    const auto before = std::make_shared<SunLight>(*defaultSun());
    EXPECT_FALSE(readFrom<SkyTexture>(newestSky("", 2, true, 9)));
    EXPECT_TRUE(defaultSun()->isEqual(before));
    // So does one that the end of the data cuts short before its transform, whose tag is then missing:
    // a long id pushes it to the end of a block.
    ByteBuilder cut = newestSky("", 2, true, 4, std::string(3900, 'x'));
    ASSERT_GT(cut.bytes.size(), QuickArchive::BlockSize);
    cut.bytes.resize(QuickArchive::BlockSize);
    EXPECT_FALSE(readFrom<SkyTexture>(cut));
    EXPECT_TRUE(defaultSun()->isEqual(before));
}

TEST_F(SkyRecords, WrittenAndReadBackEqualAndCopiesAreOtherSkies)
{
    auto sky = std::make_shared<SkyTexture>();
    sky->sun = std::make_shared<SunLight>(u"Noon", u"{NOON}");
    sky->ozone = 0.25f;
    sky->skyFlag = true;
    const auto back = readFrom<SkyTexture>(recordOf(*sky));
    ASSERT_TRUE(back);
    EXPECT_TRUE(back->isEqual(sky) && back->sun != defaultSun());
    back->skyId = u"OTHER";
    EXPECT_FALSE(back->isEqual(sky));

    // The id compares without regard to case; a copy has an id and a sun of its own.
    auto upper = std::make_shared<SkyTexture>(*sky);
    for (auto& c : upper->skyId) c = static_cast<char16_t>(std::toupper(c));
    EXPECT_TRUE(upper->isEqual(sky));
    const auto copy = std::dynamic_pointer_cast<SkyTexture>(sky->clone());
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->skyId != sky->skyId && copy->sun->sunId != u"{NOON}");
    EXPECT_FALSE(SkyTexture().isEqual(std::make_shared<SkyTexture>()));

    // A sky that holds the document's sun says so in the last byte and reads back sharing it.
    const ByteBuilder documentSky = recordOf(SkyTexture());
    EXPECT_EQ(documentSky.bytes.back(), 1);
    const auto documentBack = readFrom<SkyTexture>(documentSky);
    ASSERT_TRUE(documentBack);
    EXPECT_EQ(documentBack->sun, defaultSun());
}

// The example library shows skies sharing a sun and the document's sun; these are the other ways
// a sky names its sun: by the url of a sun written before, or, in the numbering mode, by the sun
// that the first sky writes, once.
TEST_F(SkyXml, SkiesNameTheirSunByTheUrlItWasWrittenUnder)
{
    SkyTexture morning, evening;
    morning.sun = evening.sun = std::make_shared<SunLight>(u"Noon", u"{NOON}");
    EXPECT_EQ(valueOf(xmlWithOneWriter(1, *morning.sun, morning), "sun"), "/{NOON}");
    const auto numbered = xmlWithOneWriter(0, morning, evening);
    EXPECT_TRUE(assetsInOrder(numbered, {"/SunLight", "/TexSky", "/TexSky"}));
    EXPECT_EQ(numbered.find("<Asset layout=\"\" renderer=\"nuva\" type=\"light\"", numbered.find("/SunLight")),
              std::string::npos);
    EXPECT_EQ(valueOf(numbered.substr(numbered.rfind("/TexSky")), "sun"), "/SunLight");
}
