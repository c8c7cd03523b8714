// The frame data and the stamp: records, the frame data's own asset, the interface list.
#include <gtest/gtest.h>

#include <cmath>

#include "options/options_test_support.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

TEST(TalvexFrameData, RecordOf340Bytes)
{
    TalvexFrameData f;
    EXPECT_EQ(recordOf(f).bytes.size(), 340u);

    // An offset passes through 32-bit precision.
    f.camToWorld.offset = {0.1, 1e40, -2};
    f.currentFrame = 12;
    f.r_height = 480;
    TalvexFrameData loaded;
    ASSERT_TRUE(load(loaded, recordOf(f)));
    EXPECT_TRUE(loaded.camToWorld.offset[0] == static_cast<double>(0.1f) && std::isinf(loaded.camToWorld.offset[1]));
    EXPECT_TRUE(loaded.currentFrame == 12 && loaded.r_height == 480);
    EXPECT_FALSE(load(loaded, ByteBuilder().tag(2).f64(1)));
    EXPECT_EQ(loaded.currentFrame, 0);
}

TEST(TalvexFrameData, OwnAsset)
{
    TalvexFrameData f;
    f.t = 2.5;
    const std::string xml = xmlOf(f, u"/scene");
    EXPECT_EQ(xml.substr(0, xml.find("<parameter ")),
              "  <Asset layout=\"\" renderer=\"nuva\" type=\"settings\" url=\"/scene/FrameData\" >\n"
              "    <plugin>\n"
              "      <nuvaplugin name=\"FrameData\" type=\"settings\">\n"
              "        <parameters>\n"
              "          ");
    EXPECT_NE(xml.find("name=\"t\" handler=\"default\" listType=\"none\" label=\"t\">\n            <value>2.5</value>"),
              std::string::npos);
    // Only the values of its own table: 26 parameters, none of the values the options groups show.
    EXPECT_EQ(countOf(xml, "<parameter "), 26u);
    EXPECT_EQ(xml.find("focal_dist"), std::string::npos);
    EXPECT_LT(xml.find("name=\"farRange\""), xml.find("name=\"clippingPlanes\""));
    EXPECT_LT(xml.find("name=\"nuvaRefractBackground\""), xml.find("name=\"devAspect\""));
}

ByteBuilder stampRecord(uint32_t version, const std::string& text, std::vector<uint8_t> block)
{
    ByteBuilder b = ByteBuilder().tag(version).i32(1).i32(2).i32(3).str(text);
    if (version == 2) b.u32(static_cast<uint32_t>(block.size()));
    return b.raw(block.data(), block.size());
}

// Version 1 stores the block bare, version 2 with its count; a shorter block fills its bytes and the
// rest keeps the zeros of the reset; an empty text replaces the template.
TEST(TalvexNFBStampInfo, BothVersionsAndTheFontBlock)
{
    std::vector<uint8_t> block(60);
    for (std::size_t i = 0; i < block.size(); ++i) block[i] = static_cast<uint8_t>(i + 1);
    TalvexNFBStampInfo v1, v2;
    ASSERT_TRUE(load(v1, stampRecord(1, "%frame", block)));
    ASSERT_TRUE(load(v2, stampRecord(2, "%frame", block)));
    EXPECT_TRUE(v1.isEqual(v2));
    EXPECT_TRUE(v1.stamp_int_1 == 1 && v1.stamp_int_2 == 2 && v1.stamp_int_3 == 3 && v1.stampText == "%frame");
    EXPECT_EQ(recordOf(v1).bytes, stampRecord(2, "%frame", block).bytes);

    TalvexNFBStampInfo shorter;
    ASSERT_TRUE(load(shorter, stampRecord(2, "", std::vector<uint8_t>(40, 7))));
    EXPECT_TRUE(shorter.fontBlock[39] == 7 && shorter.fontBlock[40] == 0 && shorter.stampText.empty());
    EXPECT_EQ(std::string(shorter.fontName.data()), "Helvetica");

    // A longer block fills 60 bytes and the cursor moves past the rest.
    TalvexNFBStampInfo longer;
    QuickArchive archive = stampRecord(2, "x", std::vector<uint8_t>(70, 9)).append(ByteBuilder().u32(0xABCD)).archive();
    ASSERT_TRUE(longer.readBinary(archive));
    uint32_t next = 0;
    archive.readU32(next);
    EXPECT_EQ(next, 0xABCDu);

    EXPECT_FALSE(load(longer, ByteBuilder().tag(3)) || load(longer, ByteBuilder().u32(0x10001)));
}

struct Interface : NuvaUtils::PluginInterface {
    explicit Interface(int32_t id) : id(id) {}
    int32_t interfaceId() const override { return id; }
    int32_t id;
};

// Lookup is by the object's own id, newest first; removing unlinks one node and keeps the object.
TEST(PluginBase, InterfaceList)
{
    TalvexFrameData f;
    Interface a(7), b(7), c(9);
    EXPECT_EQ(f.getInterface(7), nullptr);
    EXPECT_TRUE(f.addInterface(&a, 1) && f.addInterface(nullptr, 7) && f.addInterface(&b, 2) && f.addInterface(&c, 7));
    EXPECT_EQ(f.getInterface(7), &b);
    EXPECT_EQ(f.getInterface(1), nullptr);
    EXPECT_TRUE(f.removeInterface(&b));
    EXPECT_FALSE(f.removeInterface(&b));
    EXPECT_TRUE(f.getInterface(7) == &a && f.getInterface(9) == &c);
}

}  // namespace
}  // namespace TalvexTest
