// The light family: factory gaps, every record version, the newest record pinned to its bytes,
// comparison and copies, and the XML with its oddities.
#include <gtest/gtest.h>

#include <tuple>

#include "scene/ies_light.h"
#include "scene/maya_direct_light.h"
#include "scene/omni_light.h"
#include "scene/rectangle_light.h"
#include "scene/sphere_light.h"
#include "scene/spot_light.h"
#include "support/byte_builder.h"
#include "textures/texture_test_support.h"

using namespace TalvexCore;
using namespace TalvexTest;

TEST(LightFactory, GapsGiveNothingAndEachIdItsClass)
{
    const char16_t* plugins[] = {u"MayaLightDirect", u"", u"LightOmni", u"LightRectangle", u"LightSpot",
                                 u"SunLight", u"LightIES", u""};
    for (int32_t id : {0, 2, 3, 4, 5, 6, 7}) {
        const auto light = createLight(id);
        ASSERT_TRUE(light) << id;
        EXPECT_EQ(std::tuple(light->typeId(), light->pluginType(), light->assetType()),
                  std::tuple(static_cast<uint32_t>(id), plugins[id], u"light"));
    }
    for (int32_t id : {1, 8, 9, -1}) EXPECT_FALSE(createLight(id)) << id;
}

TEST(LightRecords, OlderVersionsKeepTheDefaultsOfWhatTheyLack)
{
    ByteBuilder maya1;
    maya1.tag(1).color(0.5f, 0.25f, 1).floats({0.1f, 2, 3}).u32(7).u32(9).i32(1).boolean(false);
    const auto maya = readFrom<MayaDirectLight>(maya1);
    ASSERT_TRUE(maya);
    EXPECT_EQ(std::tuple(maya->color, maya->causticSubdivs, maya->photonSubdivs, maya->enabled, maya->shadows,
                         maya->shadowSubdivs),
              std::tuple(Color{0.5f, 0.25f, 1}, 7u, 9u, false, true, 8u));

    // Version 2 stores one transform where later versions store key frames.
    ByteBuilder maya2;
    transform(maya2.tag(2).color(1, 1, 1).floats({0, 1, 1}).u32(1000).u32(500).i32(3).boolean(true).boolean(true)
                  .u32(8).f32(0.5f), 2, 3);
    const auto keyed = readFrom<MayaDirectLight>(maya2);
    ASSERT_TRUE(keyed);
    EXPECT_EQ(std::tuple(keyed->shadowRadius, keyed->transform.keyCount(), keyed->transform.valueAt(0.0).offset),
              std::tuple(0.5f, 1, Vector{3, 3, 3}));

    ByteBuilder spot1;
    spot1.tag(1).color(0.2f, 0.3f, 0.4f).floats({0, 0, 5, 1}).u32(500).u32(1000).i32(3).boolean(true);
    const auto spot = readFrom<SpotLight>(spot1);
    ASSERT_TRUE(spot);
    EXPECT_EQ(std::tuple(spot->color, spot->intensity, spot->cutoffThreshold, spot->barnDoor),
              std::tuple(Color{0.2f, 0.3f, 0.4f}, 5.0f, 0.005f, false));

    ByteBuilder omni3;
    transform(omni3.tag(3).color(1, 1, 1).color(0, 0, 0).floats({0.01f, 0, 0, 30, 1}).i32(2).u32(500).u32(1000)
                  .i32(3).boolean(true).boolean(true).u32(8).f32(0), 1, 0);
    const auto omni = readFrom<OmniLight>(omni3);
    ASSERT_TRUE(omni);
    EXPECT_TRUE(omni->units == 2 && omni->cutoffThreshold == 0.01f && omni->affectDiffuse && omni->affectSpecular);

    // Version 1 ends after ignoreLightNormals: no shadows, transform or size.
    ByteBuilder rect1;
    rect1.tag(1).color(1, 0, 0).floats({0, 12, 1}).u32(16).u32(1000).u32(500).i32(3);
    for (bool flag : {true, false, true, false, true, true, false}) rect1.boolean(flag);
    const auto rect = readFrom<RectangleLight>(rect1);
    ASSERT_TRUE(rect);
    EXPECT_EQ(std::tuple(rect->subdivs, rect->u_size, rect->ignoreLightNormals), std::tuple(16u, 1.0f, false));
    EXPECT_TRUE(rect->doubleSided && rect->lightPortal && rect->storeWithIrradianceMap);

    ByteBuilder ies1;
    transform(ies1.tag(1), 1, 0).color(1, 1, 1).color(0, 0, 0).color(0.5f, 0.5f, 0.5f).floats({0, 0.005f})
        .u32(8).u32(1000).u32(8).boolean(true).boolean(false).boolean(true).str("lamps/a.ies");
    const auto ies = readFrom<IESLight>(ies1);
    ASSERT_TRUE(ies);
    EXPECT_EQ(std::tuple(ies->ies_file, ies->filter_color, ies->intensity),
              std::tuple(std::u16string(u"lamps/a.ies"), Color{0.5f, 0.5f, 0.5f}, 1.0f));

    // Unknown versions and tags with a low half stop at the tag.
    for (int32_t id : {0, 2, 6, 7}) EXPECT_FALSE(load(*createLight(id), ByteBuilder().u32(0x40001))) << id;
    EXPECT_FALSE(readFrom<IESLight>(ByteBuilder().tag(4)) || readFrom<SphereLight>(ByteBuilder().tag(3)));
}

// A field-order fault made in both the writer and the reader passes a round trip; the bytes don't.
TEST(LightRecords, NewestRecordIsPinnedToItsBytes)
{
    OmniLight omni;
    omni.units = 2;
    omni.shadowColor = {0.1f, 0.2f, 0.3f};
    omni.affectSpecular = false;
    ByteBuilder expected;
    transform(expected.tag(4).color(1, 1, 1).color(0.1f, 0.2f, 0.3f).floats({0.005f, 0, 0, 30, 1}).i32(2).u32(500)
                  .u32(1000).i32(3).boolean(true).boolean(true).u32(8).f32(0), 1, 0)
        .boolean(true).boolean(false);
    QuickArchive out(1);
    ASSERT_TRUE(omni.writeBinary(out));
    EXPECT_EQ(writtenBytes(out), expected.bytes);

    // The dome light writes a tag and reads nothing, not even that.
    QuickArchive dome(1);
    ASSERT_TRUE(DomeLight().writeBinary(dome) && dome.writePosition() == 4);
    EXPECT_TRUE(DomeLight().readBinary(dome) && dome.readPosition() == 0);
}

TEST(LightRecords, NewestRecordsReadBackEqualAndCopiesAreEqual)
{
    auto spot = std::make_shared<SpotLight>();
    spot->barnDoor = true; spot->barnDoorTop = 5; spot->coneAngle = 0.5f; spot->units = 1;
    spot->transform.offset = {1, 2, 3};
    auto rect = std::make_shared<RectangleLight>();
    rect->affectReflections = false; rect->v_size = 4; rect->noDecay = true;
    auto ies = std::make_shared<IESLight>();
    ies->ies_file = u"C:/lamps/Ä & B.ies"; ies->intensity = 3; ies->soft_shadows = true;
    auto sphere = std::make_shared<SphereLight>();
    sphere->flag8 = false; sphere->count3 = 12;
    auto maya = std::make_shared<MayaDirectLight>();
    maya->extraMode = 1; maya->shadowColor = {1, 0, 0};
    Transform moved = identityTransform;
    moved.offset = {0, 0, 9};
    maya->transform.setKey(moved, 2.0);
    auto omni = std::make_shared<OmniLight>();
    omni->extraScale = 2;

    for (const LightPtr& light : std::initializer_list<LightPtr>{spot, rect, ies, sphere, maya, omni}) {
        const auto id = static_cast<int32_t>(light->typeId());
        const auto back = createLight(id);
        ASSERT_TRUE(load(*back, recordOf(*light))) << id;
        EXPECT_TRUE(back->isEqual(light) && light->clone()->isEqual(light)) << id;
        EXPECT_FALSE(createLight(id)->isEqual(light) || light->isEqual(nullptr)) << id;
    }
    // The direct light's key frames are stored but not compared.
    auto sameButKeys = std::make_shared<MayaDirectLight>(*maya);
    sameButKeys->transform.clear();
    EXPECT_TRUE(maya->isEqual(sameButKeys) && DomeLight().isEqual(std::make_shared<DomeLight>()));
    EXPECT_FALSE(DomeLight().isEqual(spot));
}

TEST(LightXml, ParametersCarryTheirOddities)
{
    OmniLight omni;
    omni.units = 2;
    const auto omniXml = xmlOf(omni, u"/lamp");
    EXPECT_TRUE(has(omniXml, "url=\"/lamp/LightOmni\" ") && has(omniXml, "<nuvaplugin name=\"LightOmni\" type=\"light\">"));
    // The units go out as a first "causticSubdivs", ahead of the photons and the real one.
    const auto first = omniXml.find("name=\"causticSubdivs\"");
    const auto photons = omniXml.find("name=\"photonSubdivs\"");
    const auto second = omniXml.find("name=\"causticSubdivs\"", first + 1);
    ASSERT_TRUE(first < photons && photons < second && second != std::string::npos);
    EXPECT_EQ(omniXml.substr(first).substr(omniXml.substr(first).find("<value>"), 15), "<value>2</value");
    EXPECT_EQ(omniXml.substr(second).substr(omniXml.substr(second).find("<value>"), 18), "<value>1000</value");
    EXPECT_EQ(countOf(omniXml, "name=\"units\""), 0u);

    // Whatever the light holds, the spot's parameters end with the legacy mark.
    const auto spotXml = xmlOf(SpotLight(), u"");
    const auto legacy = spotXml.find(
        "<parameter type=\"bool\" name=\"legacyMode\" handler=\"default\" listType=\"none\" isUserData=\"1\" "
        "label=\"Legacy Mode\">");
    ASSERT_NE(legacy, std::string::npos);
    EXPECT_GT(legacy, spotXml.find("name=\"transform\""));
    EXPECT_EQ(valueOf(spotXml, "Legacy Mode"), "1");

    // The direct light keeps its transform out of the XML; the file of an IES light is escaped.
    EXPECT_FALSE(has(xmlOf(MayaDirectLight(), u""), "name=\"transform\""));
    IESLight ies;
    ies.ies_file = u"a & b.ies";
    EXPECT_EQ(valueOf(xmlOf(ies, u""), "ies_file"), "a&amp;b.ies");
    const auto rectXml = xmlOf(RectangleLight(), u"");
    EXPECT_GT(rectXml.find("name=\"transform\""), rectXml.rfind("<parameter "));

    // Lights of plug-ins the XML does not know leave no trace.
    EXPECT_EQ(xmlOf(SphereLight(), u"/x") + xmlOf(DomeLight(), u"/x"), "");
}
