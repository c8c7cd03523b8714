// Bitmap textures, bitmap buffers and the four UVW generators: records of every version, XML, failures.
#include <gtest/gtest.h>

#include "materials/record_io.h"
#include "texture_test_support.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/channel_uvw.h"
#include "textures/environment_uvw.h"
#include "textures/world_object_uvw.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;

namespace {

ByteBuilder& transform(ByteBuilder& bytes, float scale, float offset)
{
    return bytes.floats({scale, 0, 0, 0, scale, 0, 0, 0, scale, offset, offset, offset});
}

ByteBuilder& components(ByteBuilder& bytes, float rotation)
{
    bytes.tag(1).floats({rotation, 0, 0, 1, 1, 1, 0, 0, 0});
    return bytes.i32(0).i32(0).i32(1);
}

TransformComponents sampleComponents()
{
    TransformComponents c;
    c.x_rotation = 10; c.y_rotation = 20; c.z_rotation = 30;
    c.x_scale = 2; c.y_scale = 3; c.z_scale = 0.5f;
    c.x_offset = 0.25f; c.y_offset = -1; c.z_offset = 4;
    c.x_mirror = 1; c.y_mirror = 0; c.z_mirror = 1;
    return c;
}

std::shared_ptr<BitmapTexture> sampleBitmapTexture()
{
    auto texture = std::make_shared<BitmapTexture>();
    auto channel = std::make_shared<GenChannelUVW>();
    channel->uvwComponents = sampleComponents();
    channel->updateTransforms();
    channel->wrap_u = 1;
    channel->uvw_channel = 2;
    auto buffer = std::make_shared<BitmapBuffer>();
    buffer->file = u"C:/maps/Brick & Stone.png";
    buffer->filter_type = 2;
    buffer->filter_blur = 0.5f;
    buffer->gamma = 2.2f;
    texture->uvwgen = channel;
    texture->bitmap = buffer;
    texture->tile = false;
    return texture;
}

}  // namespace

TEST(BitmapTexture, RecordReadsBackEqual)
{
    const auto source = sampleBitmapTexture();
    const auto copy = TalvexTest::writtenAndRead(*source);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(source));
    EXPECT_FALSE(copy->tile);
}

TEST(BitmapTexture, BothTypeIdsStandAheadOfBothRecords)
{
    ByteBuilder bytes;
    bytes.tag(1).i32(0).i32(0);  // planar world generator, buffer
    transform(bytes.tag(1), 2, 1);  // the generator's record
    components(bytes, 45);
    bytes.tag(1).i32(0).f32(0.25f).f32(1.5f).str("tex.png");  // the buffer's record
    bytes.boolean(false);
    const auto texture = TalvexTest::readFrom<BitmapTexture>(bytes);
    ASSERT_TRUE(texture);
    const auto planar = std::dynamic_pointer_cast<GenPlanarWorldUVW>(texture->uvwgen);
    ASSERT_TRUE(planar);
    EXPECT_EQ(planar->uvwMatrix.m.v[1].y, 2);
    EXPECT_EQ(planar->uvwMatrix.offset.z, 1);
    EXPECT_EQ(planar->uvwComponents.x_rotation, 45);
    EXPECT_EQ(planar->uvwComponents.z_mirror, 1);
    const auto buffer = std::dynamic_pointer_cast<BitmapBuffer>(texture->bitmap);
    ASSERT_TRUE(buffer);
    EXPECT_EQ(buffer->filter_type, 0);
    EXPECT_EQ(buffer->filter_blur, 0.25f);
    EXPECT_EQ(buffer->gamma, 1.5f);
    EXPECT_EQ(buffer->file, u"tex.png");
    EXPECT_FALSE(texture->tile);
}

TEST(BitmapTexture, UnknownGeneratorOrBitmapIdFails)
{
    ByteBuilder noId2;
    noId2.tag(1).i32(2).i32(0);
    EXPECT_FALSE(TalvexTest::readFrom<BitmapTexture>(noId2));
    ByteBuilder noBitmap1;
    noBitmap1.tag(1).i32(4).i32(1);
    EXPECT_FALSE(TalvexTest::readFrom<BitmapTexture>(noBitmap1));
}

TEST(BitmapTexture, WritesNothingWithoutGeneratorOrBitmap)
{
    auto texture = sampleBitmapTexture();
    texture->bitmap = nullptr;
    QuickArchive out(1);
    EXPECT_FALSE(texture->writeBinary(out));
    texture = sampleBitmapTexture();
    texture->uvwgen = nullptr;
    EXPECT_FALSE(texture->writeBinary(out));
    EXPECT_EQ(out.writePosition(), 0u);
}

TEST(BitmapTexture, XmlWritesGeneratorAndBufferFirst)
{
    EXPECT_EQ(TalvexTest::xmlOf(*sampleBitmapTexture(), u"/wall/diffuse/color_tex"), R"(  <Asset layout="" renderer="nuva" type="uvw" url="/wall/diffuse/color_tex/TexBitmap/uvwgen/UVWGenChannel" >
    <plugin>
      <nuvaplugin name="UVWGenChannel" type="uvw">
        <parameters>
          <parameter type="componentTransform" name="uvw_transform" handler="default" listType="none" label="uvw_transform">
            <value>
              <x_rotation>10</x_rotation>
              <y_rotation>20</y_rotation>
              <z_rotation>30</z_rotation>
              <x_scale>2</x_scale>
              <y_scale>3</y_scale>
              <z_scale>0.5</z_scale>
              <x_offset>0.25</x_offset>
              <y_offset>-1</y_offset>
              <z_offset>4</z_offset>
              <x_mirror>1</x_mirror>
              <y_mirror>0</y_mirror>
              <z_mirror>1</z_mirror>
            </value>
          </parameter>
          <parameter type="transform" name="tex_transform" handler="default" listType="none" label="tex_transform">
            <value>
              <vector>
                <x>1</x>
                <y>0</y>
                <z>0</z>
              </vector>
              <vector>
                <x>0</x>
                <y>1</y>
                <z>0</z>
              </vector>
              <vector>
                <x>0</x>
                <y>0</y>
                <z>1</z>
              </vector>
              <vector>
                <x>0</x>
                <y>0</y>
                <z>0</z>
              </vector>
            </value>
          </parameter>
          <parameter type="integer" name="wrap_u" handler="default" listType="none" label="wrap_u">
            <value>1</value>
          </parameter>
          <parameter type="integer" name="wrap_v" handler="default" listType="none" label="wrap_v">
            <value>0</value>
          </parameter>
          <parameter type="integer" name="uvw_channel" handler="default" listType="none" label="uvw_channel">
            <value>2</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
  <Asset layout="" renderer="nuva" type="bitmap" url="/wall/diffuse/color_tex/TexBitmap/buffer/BitmapBuffer" >
    <plugin>
      <nuvaplugin name="BitmapBuffer" type="bitmap">
        <parameters>
          <parameter type="integer" name="filter_type" handler="default" listType="none" label="filter_type">
            <value>2</value>
          </parameter>
          <parameter type="float" name="filter_blur" handler="default" listType="none" label="filter_blur">
            <value>0.5</value>
          </parameter>
          <parameter type="float" name="gamma" handler="default" listType="none" label="gamma">
            <value>2.2</value>
          </parameter>
          <parameter type="string" name="file" handler="FileBrowserHandler" listType="none" label="file">
            <value>C:/maps/Brick &amp; Stone.png</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
  <Asset layout="" renderer="nuva" type="texture" url="/wall/diffuse/color_tex/TexBitmap" >
    <plugin>
      <nuvaplugin name="TexBitmap" type="texture">
        <parameters>
          <parameter type="plugin" name="uvwgen" handler="default" listType="none" label="uvwgen">
            <value>/wall/diffuse/color_tex/TexBitmap/uvwgen/UVWGenChannel</value>
          </parameter>
          <parameter type="plugin" name="bitmap" handler="default" listType="none" label="bitmap">
            <value>/wall/diffuse/color_tex/TexBitmap/buffer/BitmapBuffer</value>
          </parameter>
          <parameter type="bool" name="tile" handler="default" listType="none" label="tile">
            <value>0</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}

TEST(BitmapTexture, EmptySlotsKeepTheirParameters)
{
    const std::string xml = TalvexTest::xmlOf(BitmapTexture());
    EXPECT_EQ(xml.find("<Asset", 3), std::string::npos);  // no child asset
    EXPECT_NE(xml.find(R"(name="uvwgen" handler="default" listType="none" label="uvwgen">
          </parameter>
          <parameter type="plugin" name="bitmap" handler="default" listType="none" label="bitmap">
          </parameter>)"),
              std::string::npos);
}

TEST(BitmapBuffer, ReadsOverWhatItHolds)
{
    BitmapBuffer buffer;
    buffer.filter_blur = 0.75f;
    buffer.gamma = 3;
    // The record stops with the last block of the data, behind its filter type.
    ByteBuilder bytes;
    bytes.bytes.resize(QuickArchive::BlockSize - 8);
    bytes.tag(1).i32(0);
    auto archive = bytes.archive();
    std::vector<uint8_t> skipped(QuickArchive::BlockSize - 8);
    archive.readRaw(skipped.data(), skipped.size());
    ASSERT_TRUE(buffer.readBinary(archive));
    EXPECT_EQ(buffer.filter_type, 0);
    EXPECT_EQ(buffer.filter_blur, 0.75f);
    EXPECT_EQ(buffer.gamma, 3);

    ByteBuilder version2;
    version2.tag(2);
    archive = version2.archive();
    EXPECT_FALSE(buffer.readBinary(archive));
}

TEST(BitmapBuffer, EmptyFileWritesReadsAndShowsAnEmptyValue)
{
    BitmapBuffer buffer;
    QuickArchive out(1);
    ASSERT_TRUE(buffer.writeBinary(out));
    EXPECT_EQ(TalvexTest::writtenBytes(out).size(), 4u + 4 + 4 + 4 + 4);
    BitmapBuffer copy;
    copy.file = u"x";
    ASSERT_TRUE(copy.readBinary(out));
    EXPECT_EQ(copy.file, u"");
    EXPECT_NE(TalvexTest::xmlOf(buffer).find(R"(label="file">
            <value></value>)"),
              std::string::npos);
}

TEST(BitmapBuffer, FileComparesWithoutRegardToCase)
{
    auto a = std::make_shared<BitmapBuffer>();
    auto b = std::make_shared<BitmapBuffer>();
    a->file = u"C:/Maps/Wood.PNG";
    b->file = u"c:/maps/wood.png";
    EXPECT_TRUE(a->isEqual(b));
    b->gamma = 1.5f;
    EXPECT_FALSE(a->isEqual(b));
}

TEST(GenChannelUVW, NewestRecordReadsBackEqual)
{
    GenChannelUVW source;
    source.uvwComponents = sampleComponents();
    source.texComponents.y_rotation = 90;
    source.texComponents.z_offset = 2;
    source.updateTransforms();
    source.wrap_u = 1;
    source.wrap_v = 2;
    source.uvw_channel = 7;
    const auto copy = TalvexTest::writtenAndRead(source);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(std::make_shared<GenChannelUVW>(source)));
    EXPECT_EQ(copy->texMatrix.offset.z, 2);
}

TEST(GenChannelUVW, Version1StoresRotationsAndMirrorsOfTheTextureTransform)
{
    ByteBuilder bytes;
    bytes.tag(1);
    transform(bytes, 3, 5);  // uvwMatrix, which the components do not follow
    transform(bytes, 2, 1);  // texMatrix
    bytes.f32(15).f32(25).i32(1).i32(1).i32(1).i32(0).i32(3);
    const auto channel = TalvexTest::readFrom<GenChannelUVW>(bytes);
    ASSERT_TRUE(channel);
    EXPECT_EQ(channel->uvwMatrix.m.v[0].x, 3);
    EXPECT_EQ(channel->texMatrix.offset.y, 1);
    EXPECT_EQ(channel->texComponents.x_rotation, 15);
    EXPECT_EQ(channel->texComponents.y_rotation, 25);
    EXPECT_EQ(channel->texComponents.x_mirror, 1);
    EXPECT_EQ(channel->texComponents.y_mirror, 1);
    EXPECT_EQ(channel->texComponents.z_rotation, 0);
    EXPECT_EQ(channel->wrap_u, 1);
    EXPECT_EQ(channel->wrap_v, 0);
    EXPECT_EQ(channel->uvw_channel, 3);
    EXPECT_EQ(channel->uvwComponents, TransformComponents());

    // The components go out as they are, the texture transform as its stored matrix.
    const std::string xml = TalvexTest::xmlOf(*channel);
    EXPECT_NE(xml.find("<x_scale>1</x_scale>"), std::string::npos);
    EXPECT_NE(xml.find(R"(label="tex_transform">
            <value>
              <vector>
                <x>2</x>)"),
              std::string::npos);
}

TEST(GenChannelUVW, FailingComponentRecordFailsTheGenerator)
{
    ByteBuilder bytes;
    bytes.tag(2);
    transform(bytes, 1, 0);
    transform(bytes, 1, 0);
    bytes.i32(0).i32(0).i32(1).u32(0x20000);  // a component record of an unknown version
    EXPECT_FALSE(TalvexTest::readFrom<GenChannelUVW>(bytes));
}

TEST(GenChannelUVW, UpdateTransformsFollowsBothComponentSets)
{
    GenChannelUVW channel;
    channel.uvwComponents.x_scale = 2;
    channel.uvwComponents.y_offset = 3;
    channel.texComponents.z_scale = 4;
    channel.texComponents.x_mirror = 1;
    channel.updateTransforms();
    EXPECT_EQ(channel.uvwMatrix, channel.uvwComponents.toTransform());
    EXPECT_EQ(channel.uvwMatrix.offset.y, 3);
    EXPECT_EQ(channel.texMatrix, channel.texComponents.toTransform());
    EXPECT_EQ(channel.texMatrix.m.v[0].x, -1);
}

TEST(GenEnvironmentUVW, NewestRecordReadsBackEqual)
{
    GenEnvironmentUVW source;
    source.mapping_type = 3;
    source.uvwComponents = sampleComponents();
    source.updateTransforms();
    const auto copy = TalvexTest::writtenAndRead(source);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(std::make_shared<GenEnvironmentUVW>(source)));
    EXPECT_EQ(copy->uvwMatrix, source.uvwComponents.toMatrix());
}

TEST(GenEnvironmentUVW, Version1StoresTheZFieldsFirst)
{
    ByteBuilder bytes;
    bytes.tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1}).i32(0).f32(90).f32(30).i32(1).i32(0);
    const auto environment = TalvexTest::readFrom<GenEnvironmentUVW>(bytes);
    ASSERT_TRUE(environment);
    EXPECT_EQ(environment->mapping_type, 0);
    EXPECT_EQ(environment->uvwComponents.z_rotation, 90);
    EXPECT_EQ(environment->uvwComponents.x_rotation, 30);
    EXPECT_EQ(environment->uvwComponents.z_mirror, 1);
    EXPECT_EQ(environment->uvwComponents.x_mirror, 0);
    EXPECT_EQ(environment->uvwComponents.y_rotation, 0);
}

TEST(GenEnvironmentUVW, MappingTypeOutsideTheFourProjectionsFailsTheLoad)
{
    for (int32_t type : {-1, 4, 0x7FFFFFFF}) {
        ByteBuilder bytes;
        bytes.tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1}).i32(type).f32(0).f32(0).i32(0).i32(0);
        EXPECT_FALSE(TalvexTest::readFrom<GenEnvironmentUVW>(bytes)) << type;
    }
    GenEnvironmentUVW byHand;
    byHand.mapping_type = 9;
    EXPECT_NE(TalvexTest::xmlOf(byHand).find("<value></value>"), std::string::npos);
}

TEST(GenEnvironmentUVW, XmlShowsComponentsAndProjectionName)
{
    GenEnvironmentUVW environment;
    environment.mapping_type = 1;
    environment.uvwComponents.z_rotation = 180;
    environment.uvwComponents.x_mirror = 1;
    EXPECT_EQ(TalvexTest::xmlOf(environment, u"/sky"), R"(  <Asset layout="" renderer="nuva" type="uvw" url="/sky/UVWGenEnvironment" >
    <plugin>
      <nuvaplugin name="UVWGenEnvironment" type="uvw">
        <parameters>
          <parameter type="componentMatrix" name="uvw_matrix" handler="default" listType="none" label="uvw_matrix">
            <value>
              <x_rotation>0</x_rotation>
              <y_rotation>0</y_rotation>
              <z_rotation>180</z_rotation>
              <x_scale>1</x_scale>
              <y_scale>1</y_scale>
              <z_scale>1</z_scale>
              <x_offset>0</x_offset>
              <y_offset>0</y_offset>
              <z_offset>0</z_offset>
              <x_mirror>1</x_mirror>
              <y_mirror>0</y_mirror>
              <z_mirror>0</z_mirror>
            </value>
          </parameter>
          <parameter type="string" name="mapping_type" handler="default" listType="none" label="mapping_type">
            <value>cubic</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}

TEST(WorldAndObjectUVW, OnlyTheObjectGeneratorResetsBeforeReading)
{
    ByteBuilder refused;
    refused.tag(2);
    GenPlanarWorldUVW planar;
    planar.uvwComponents.x_rotation = 33;
    planar.uvwMatrix.offset.x = 9;
    auto archive = refused.archive();
    EXPECT_FALSE(planar.readBinary(archive));
    EXPECT_EQ(planar.uvwComponents.x_rotation, 33);
    EXPECT_EQ(planar.uvwMatrix.offset.x, 9);

    GenObjectUVW object;
    object.uvwComponents.x_rotation = 33;
    object.uvwMatrix.offset.x = 9;
    archive = refused.archive();
    EXPECT_FALSE(object.readBinary(archive));
    EXPECT_EQ(object.uvwComponents.x_rotation, 0);
    EXPECT_EQ(object.uvwMatrix.offset.x, 0);

    ByteBuilder whole;
    transform(whole.tag(1), 2, 0);
    components(whole, 12);
    archive = whole.archive();
    ASSERT_TRUE(object.readBinary(archive));
    EXPECT_EQ(object.uvwMatrix.m.v[2].z, 2);
    EXPECT_EQ(object.uvwComponents.x_rotation, 12);
}

TEST(WorldAndObjectUVW, RecordsReadBackEqualAndShareTheirXml)
{
    GenObjectUVW object;
    object.uvwComponents = sampleComponents();
    object.updateTransforms();
    const auto copy = TalvexTest::writtenAndRead(object);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(std::make_shared<GenObjectUVW>(object)));
    EXPECT_EQ(copy->uvwMatrix.offset.z, 4);

    GenPlanarWorldUVW planar;
    planar.uvwComponents = sampleComponents();
    const std::string planarXml = TalvexTest::xmlOf(planar);
    std::string objectXml = TalvexTest::xmlOf(object);
    for (std::string::size_type at; (at = objectXml.find("UVWGenObject")) != std::string::npos;)
        objectXml.replace(at, 12, "UVWGenPlanarWorld");
    EXPECT_EQ(objectXml, planarXml);
    EXPECT_NE(planarXml.find(R"(type="componentTransform" name="uvw_transform")"), std::string::npos);
}
