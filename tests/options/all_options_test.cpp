// The options record: the version gate, what each version stores, the channel rules, the path cut,
// the newest record written back byte for byte, and the XML the example library does not show.
#include <gtest/gtest.h>

#include <cstring>

#include "options/options_test_support.h"
#include "textures/acolor_texture.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

// A low half other than 1 and the versions 0xA to 0xF and above 0x17 are refused; 0x1, 0x90001,
// 0x100001 and 0x170001 are read.
TEST(AllOptions, VersionGate)
{
    for (uint32_t tag : {0x170000u, 0xA0001u, 0xF0001u, 0x180001u, 0x170002u}) {
        AllOptions o;
        o.img_width = 1;
        EXPECT_FALSE(load(o, ByteBuilder().u32(tag).append(recordOf(TalvexParams())))) << std::hex << tag;
        EXPECT_EQ(o.img_width, 800);
    }
    for (uint32_t version : {0u, 9u, 0x10u, 0x16u}) {
        AllOptions o;
        EXPECT_TRUE(load(o, oldOptionsRecord(version, {}))) << version;
        EXPECT_EQ(o.img_width, 640);
    }
}

// Before version 0x15 the stored ids follow the defaults; only version 0 turns 8 into 123; ids
// outside 100 to 132 are dropped in every version.
TEST(AllOptions, ChannelRulesByVersion)
{
    struct Case {
        uint32_t version;
        std::vector<uint32_t> stored;
        std::vector<int32_t> loaded;
    };
    const Case cases[] = {
        {0, {8, 126}, {126, 125, 123, 126}},
        {1, {8, 126}, {126, 125, 126}},
        {0x14, {}, {126, 125}},
        {0x14, {99, 100, 132, 133, 200}, {126, 125, 100, 132}},
    };
    for (const Case& c : cases) {
        AllOptions o;
        ASSERT_TRUE(load(o, oldOptionsRecord(c.version, withChannels(c.stored))));
        EXPECT_EQ(o.channels, c.loaded) << c.version;
    }
    AllOptions newest;
    newest.channels.clear();
    AllOptions loaded;
    ASSERT_TRUE(load(loaded, recordOf(newest)));
    EXPECT_TRUE(loaded.channels.empty());
}

// What each version adds reaches its field (the example library holds versions 0, 4, 9 and 0x14).
TEST(AllOptions, Version16ReadsItsRows)
{
    AllOptions v16;
    ASSERT_TRUE(load(v16, oldOptionsRecord(0x16, {})));
    EXPECT_TRUE(v16.all_aux_int_2 == 11 && v16.specify_film_width == 0 && v16.dr_mode == 2);
    EXPECT_TRUE(v16.folder == u"//farm/share" && v16.input_gamma == 1.8f && v16.all_aux_float_2 == 8);
    EXPECT_TRUE(v16.reflect_color == (Color{0, 1, 0}) && v16.refract_tex_mult == 5 && v16.frame_rate == 25);
}

// The photon map's search toggle repeats its auto search distance, also when off; every group
// hangs under the url given; channel names end at the last id known.
TEST(AllOptions, XmlValuesTheExamplesDoNotReach)
{
    AllOptions o;
    o.params.pm_auto_search_distance = 0;
    EXPECT_EQ(valueOf(xmlOf(o), "search_distance_toggle"), "0");
    EXPECT_TRUE(has(xmlOf(o, u"/job"), "url=\"/job/SettingsDR\""));
    EXPECT_EQ(renderChannelName(133), "SSS2");
    EXPECT_EQ(renderChannelName(134), "");
}

TEST(AllOptions, APathIsCutAt2047Characters)
{
    OldOptions stored;
    stored.imageFile = std::string(3000, 'p');
    AllOptions o;
    ASSERT_TRUE(load(o, oldOptionsRecord(3, stored)));
    EXPECT_EQ(settings_detail::pathText(o.img_file), std::u16string(2047, u'p'));
    EXPECT_EQ(o.img_file[2047], 0);
}

// A damaged record fails cleanly: a channel count larger than the bytes left, a texture of an
// unknown type, a refused embedded record.
TEST(AllOptions, DamagedRecordsFail)
{
    ByteBuilder hugeCount = oldOptionsRecord(3, withChannels({100}));
    const std::size_t countAt = hugeCount.bytes.size() - 4 * 10 - 4 - 4 - 16;
    const uint32_t huge = 0x40000000;
    std::memcpy(&hugeCount.bytes[countAt], &huge, 4);
    AllOptions o;
    EXPECT_FALSE(load(o, hugeCount));

    ByteBuilder unknownTexture = ByteBuilder().u32(1 << 16 | 1);
    unknownTexture.append(recordOf(TalvexParams())).append(recordOf(TalvexFrameData())).append(recordOf(TalvexNFBStampInfo()));
    EXPECT_FALSE(load(o, ByteBuilder(unknownTexture).boolean(true).u32(99)));
    EXPECT_FALSE(load(o, ByteBuilder().u32(1 << 16 | 1).tag(6)));
}

// Every value away from its default, with textures in all four slots: written, read back equal,
// and written again to the same bytes.
TEST(AllOptions, NewestRecordRoundTrip)
{
    AllOptions o;
    o.params.dmc_threshold = 0.5f;
    o.params.im_params_file = "cache/\xC3\xA9t\xC3\xA9.vrmap";
    o.frameData.worldToCam.offset = {1.5, 2.5, 3.5};
    o.stampInfo.stampText = "frame %frame";
    o.bg_tex = std::make_shared<AColorTexture>(AColor{1, 0, 0, 1});
    o.gi_tex = textureFromFile(u"sky.hdr");
    o.reflect_tex = std::make_shared<AColorTexture>(AColor{0, 1, 0, 1});
    o.refract_tex = std::make_shared<AColorTexture>(AColor{0, 0, 1, 1});
    o.channels = {100, 117, 132};
    o.folder = u"//farm/jobs";
    std::u16string_view(u"caustics.vrpmap").copy(o.caustics_auto_save_file.data(), 15);
    o.all_aux_float_1 = 3;
    o.specify_film_width = 1;
    o.camera.focal_length.setKey(50, 1.0);
    o.camera.blades_num = 7;

    const ByteBuilder first = recordOf(o);
    AllOptions loaded;
    ASSERT_TRUE(load(loaded, first));
    EXPECT_TRUE(loaded.isEqual(o));
    EXPECT_EQ(recordOf(loaded).bytes, first.bytes);

    // A change in a row of any form tells the two apart: texture, path, text, wide text, colour,
    // list, and the embedded records.
    using Change = void (*)(AllOptions&);
    const Change changes[] = {
        [](AllOptions& c) { c.bg_tex = std::make_shared<AColorTexture>(AColor{1, 0, 1, 1}); },
        [](AllOptions& c) { c.caustics_auto_save_file[0] = u'x'; },
        [](AllOptions& c) { c.params.im_params_file = "other"; },
        [](AllOptions& c) { c.folder = u"//farm/other"; },
        [](AllOptions& c) { c.reflect_color = Color{1, 0, 1}; },
        [](AllOptions& c) { c.channels.pop_back(); },
        [](AllOptions& c) { c.frameData.worldToCam.offset = {0, 0, 0}; },
        [](AllOptions& c) { c.camera.blades_num = 3; },
    };
    for (std::size_t i = 0; i < std::size(changes); ++i) {
        AllOptions changed;
        ASSERT_TRUE(load(changed, first));
        changes[i](changed);
        EXPECT_FALSE(changed.isEqual(o)) << "change " << i;
    }
}

// A second load gives the state of the second file alone.
TEST(AllOptions, ASecondLoadStartsFromTheDefaults)
{
    AllOptions o;
    ASSERT_TRUE(load(o, oldOptionsRecord(0x14, withChannels({100}))));
    ASSERT_TRUE(load(o, oldOptionsRecord(2, {})));
    EXPECT_EQ(o.channels, (std::vector<int32_t>{126, 125}));
    EXPECT_TRUE(o.folder.empty() && o.input_gamma == 2.2f);
}

}  // namespace
}  // namespace TalvexTest
