// Bitmap textures, bitmap buffers and the four UVW generators: hand-built and older records, the
// irregularities of reading, and the XML lines that differ from the rest of the family.
#include <gtest/gtest.h>

#include <algorithm>

#include "texture_test_support.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/channel_uvw.h"
#include "textures/environment_uvw.h"
#include "textures/space_uvw.h"

using namespace TalvexCore;
using namespace TalvexTest;

TEST(BitmapTexture, BothTypeIdsStandAheadOfBothRecords)
{
    ByteBuilder bytes;
    bytes.tag(1).i32(0).i32(0);  // planar world generator, buffer
    components(transform(bytes.tag(1), 2, 1), 45);
    bytes.tag(1).i32(0).f32(0.25f).f32(1.5f).str("tex.png").boolean(false);
    const auto texture = readFrom<BitmapTexture>(bytes);
    ASSERT_TRUE(texture);
    const auto planar = std::dynamic_pointer_cast<GenPlanarWorldUVW>(texture->uvwgen);
    const auto buffer = std::dynamic_pointer_cast<BitmapBuffer>(texture->bitmap);
    ASSERT_TRUE(planar);
    ASSERT_TRUE(buffer);
    EXPECT_EQ((Floats{planar->uvwMatrix.m.v[1].y, planar->uvwMatrix.offset.z, planar->uvwComponents.x_rotation}),
              (Floats{2, 1, 45}));
    EXPECT_EQ((Floats{float(buffer->filter_type), buffer->filter_blur, buffer->gamma}), (Floats{0, 0.25f, 1.5f}));
    EXPECT_TRUE(buffer->file == u"tex.png");
    EXPECT_TRUE(!texture->tile);
}

// Unknown ids fail the read, either empty slot the write; the bitmap slot's parameter is "bitmap"
// but its url suffix "buffer".
TEST(BitmapTexture, UnknownIdsEmptySlotsAndTheBufferSuffix)
{
    EXPECT_FALSE(readFrom<BitmapTexture>(ByteBuilder().tag(1).i32(2).i32(0)));
    EXPECT_FALSE(readFrom<BitmapTexture>(ByteBuilder().tag(1).i32(4).i32(1)));
    BitmapTexture onlyGenerator, onlyBuffer;
    onlyGenerator.uvwgen = std::make_shared<GenChannelUVW>();
    onlyBuffer.bitmap = std::make_shared<BitmapBuffer>();
    EXPECT_EQ(bytesLeftByFailedWrite(onlyGenerator) + bytesLeftByFailedWrite(onlyBuffer), 0u);
    const std::string xml = xmlOf(*textureFromFile(u"a.png"), u"/w");
    EXPECT_TRUE(
        assetsInOrder(xml, {"/w/TexBitmap/uvwgen/UVWGenChannel", "/w/TexBitmap/buffer/BitmapBuffer", "/w/TexBitmap"}));
    EXPECT_EQ(valueOf(xml, "bitmap"), "/w/TexBitmap/buffer/BitmapBuffer");
}

// The buffer reads over what it holds; a record cut off at the end of the data keeps the rest.
TEST(BitmapBuffer, ReadsOverWhatItHoldsAndStopsAtTheEndOfTheData)
{
    BitmapBuffer buffer;
    buffer.filter_blur = 0.75f; buffer.gamma = 3;
    ByteBuilder bytes;
    bytes.bytes.resize(QuickArchive::BlockSize - 8);
    bytes.tag(1).i32(0);  // the last block ends behind the filter type
    auto archive = bytes.archive();
    std::vector<uint8_t> skipped(QuickArchive::BlockSize - 8);
    archive.readRaw(skipped.data(), skipped.size());
    ASSERT_TRUE(buffer.readBinary(archive));
    EXPECT_EQ((Floats{float(buffer.filter_type), buffer.filter_blur, buffer.gamma}), (Floats{0, 0.75f, 3}));
}

// An empty file writes and reads, and shows an empty value; files compare without regard to case.
TEST(BitmapBuffer, EmptyFileAndFileCase)
{
    BitmapBuffer buffer, copy;
    copy.file = u"x";
    QuickArchive out(1);
    ASSERT_TRUE(buffer.writeBinary(out));
    ASSERT_TRUE(copy.readBinary(out));
    EXPECT_EQ(copy.file, u"");
    EXPECT_EQ(valueOf(xmlOf(buffer), "file"), "");
    auto a = std::make_shared<BitmapBuffer>(), b = std::make_shared<BitmapBuffer>();
    a->file = u"C:/Maps/Wood.PNG"; b->file = u"c:/maps/wood.png";
    EXPECT_TRUE(a->isEqual(b));
    b->gamma = 1.5f;
    EXPECT_FALSE(a->isEqual(b));
}

// Version 1 holds a few loose texture components: "uvw_transform" shows the components' defaults
// whatever the stored matrix, "tex_transform" the stored matrix. A failing component record of
// version 2 fails the generator.
TEST(GenChannelUVW, Version1StoresLooseTextureComponentsAndAFailingComponentRecordFails)
{
    ByteBuilder bytes;
    transform(transform(bytes.tag(1), 3, 5), 2, 1);  // uvwMatrix, which the components do not follow; texMatrix
    bytes.f32(15).f32(25).i32(1).i32(1).i32(1).i32(0).i32(3);
    const auto c = readFrom<GenChannelUVW>(bytes);
    ASSERT_TRUE(c);
    const auto& tex = c->texComponents;
    EXPECT_EQ((Floats{c->uvwMatrix.m.v[0].x, tex.x_rotation, tex.y_rotation, tex.z_rotation}), (Floats{3, 15, 25, 0}));
    EXPECT_EQ((Ints{tex.x_mirror, tex.y_mirror, tex.z_mirror, c->wrap_u, c->wrap_v, c->uvw_channel}),
              (Ints{1, 1, 0, 1, 0, 3}));
    EXPECT_EQ(c->uvwComponents, TransformComponents());
    const std::string xml = xmlOf(*c);
    EXPECT_EQ(valueOf(xml, "uvw_transform"), valueOf(xmlOf(GenChannelUVW()), "uvw_transform"));
    EXPECT_EQ(valueOf(xml, "tex_transform").substr(0, 16), "<vector><x>2</x>");
    // Version 2 with a component record of no known version.
    EXPECT_FALSE(readFrom<GenChannelUVW>(
        transform(transform(ByteBuilder().tag(2), 1, 0), 1, 0).i32(0).i32(0).i32(1).u32(0x20000)));
}

// Version 1 stores the z fields first. The mapping type goes out by name; a stored type outside the
// four names fails the load, and one set by hand goes out as an empty value.
TEST(GenEnvironmentUVW, Version1AndTheMappingTypeNames)
{
    const auto environment = readFrom<GenEnvironmentUVW>(
        ByteBuilder().tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1}).i32(0).floats({90, 30}).i32(1).i32(0));
    ASSERT_TRUE(environment);
    const auto& c = environment->uvwComponents;
    EXPECT_EQ((Floats{c.z_rotation, c.x_rotation, c.y_rotation}), (Floats{90, 30, 0}));
    EXPECT_EQ((Ints{environment->mapping_type, c.z_mirror, c.x_mirror}), (Ints{0, 1, 0}));
    const char* names[] = {"angular", "cubic", "spherical", "mirror_ball", ""};
    GenEnvironmentUVW byHand;
    for (int32_t type : {0, 1, 2, 3, 9}) {
        byHand.mapping_type = type;
        EXPECT_EQ(valueOf(xmlOf(byHand), "mapping_type"), names[std::min(type, 4)]);
    }
    for (int32_t type : {-1, 4, 0x7FFFFFFF}) {
        QuickArchive in = ByteBuilder().tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1}).i32(type).floats({0, 0}).i32(0).i32(0).archive();
        EXPECT_FALSE(GenEnvironmentUVW().readBinary(in)) << type;
        ASSERT_TRUE(in.failure()) << type;
        EXPECT_EQ(in.failure()->offset, 40u) << "the stored type, after the tag and the matrix";
    }
}

// The object generator goes back to its defaults when it reads, even a record it refuses; the
// planar world generator keeps what it holds.
TEST(WorldAndObjectUVW, OnlyTheObjectGeneratorResetsBeforeReading)
{
    const ByteBuilder refused = ByteBuilder().tag(2);
    const auto planar = generator<GenPlanarWorldUVW>();
    const auto object = generator<GenObjectUVW>();
    auto archive = refused.archive(), again = refused.archive();
    EXPECT_FALSE(planar->readBinary(archive));
    EXPECT_FALSE(object->readBinary(again));
    EXPECT_TRUE(planar->isEqual(generator<GenPlanarWorldUVW>()));
    EXPECT_TRUE(object->isEqual(std::make_shared<GenObjectUVW>()));
}
