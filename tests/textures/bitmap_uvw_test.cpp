// Bitmap textures, bitmap buffers and the four UVW generators: the irregularities of reading and
// writing, and the XML lines that differ from the rest of the family. Their newest records are
// pinned in newest_records_test, the oldest ones by the example library.
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

// Unknown ids fail the read, either empty slot the write, with nothing written.
TEST(BitmapTexture, UnknownIdsAndEmptySlots)
{
    EXPECT_FALSE(readFrom<BitmapTexture>(ByteBuilder().tag(1).i32(2).i32(0)));
    EXPECT_FALSE(readFrom<BitmapTexture>(ByteBuilder().tag(1).i32(4).i32(1)));
    BitmapTexture onlyGenerator, onlyBuffer;
    onlyGenerator.uvwgen = std::make_shared<GenChannelUVW>();
    onlyBuffer.bitmap = std::make_shared<BitmapBuffer>();
    EXPECT_EQ(bytesLeftByFailedWrite(onlyGenerator) + bytesLeftByFailedWrite(onlyBuffer), 0u);
}

// The buffer reads over what it holds; a record cut off at the end of the data keeps the rest. An
// empty file writes and reads back; files compare without regard to case.
TEST(BitmapBuffer, CutRecordsEmptyFilesAndFileCase)
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

    BitmapBuffer copy;
    copy.file = u"x";
    EXPECT_TRUE(load(copy, recordOf(BitmapBuffer())) && copy.file.empty());
    auto a = std::make_shared<BitmapBuffer>(), b = std::make_shared<BitmapBuffer>();
    a->file = u"C:/Maps/Wood.PNG"; b->file = u"c:/maps/wood.png";
    EXPECT_TRUE(a->isEqual(b));
    b->gamma = 1.5f;
    EXPECT_FALSE(a->isEqual(b));
}

// A version 2 channel generator whose component record has no known version fails.
TEST(GenChannelUVW, FailingComponentRecordFailsTheGenerator)
{
    EXPECT_FALSE(readFrom<GenChannelUVW>(
        transform(transform(ByteBuilder().tag(2), 1, 0), 1, 0).i32(0).i32(0).i32(1).u32(0x20000)));
}

// The mapping type goes out by name; a stored type outside the four names fails the load, and one
// set by hand goes out as an empty value.
TEST(GenEnvironmentUVW, MappingTypeNames)
{
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
    const std::shared_ptr<SpaceUVW> planar = std::make_shared<GenPlanarWorldUVW>(), object = std::make_shared<GenObjectUVW>();
    planar->uvwComponents.x_scale = object->uvwComponents.x_scale = 4;
    planar->uvwMatrix.offset.x = object->uvwMatrix.offset.x = 2;
    const auto held = planar->clone();
    EXPECT_FALSE(load(*planar, ByteBuilder().tag(2)) || load(*object, ByteBuilder().tag(2)));
    EXPECT_TRUE(planar->isEqual(held) && object->isEqual(std::make_shared<GenObjectUVW>()));
}
