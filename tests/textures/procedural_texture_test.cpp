// The procedural textures: records of every version, failure on writing, and their XML oddities.
#include <gtest/gtest.h>

#include "materials/record_io.h"
#include "texture_test_support.h"
#include "textures/acolor_texture.h"
#include "textures/blend_texture.h"
#include "textures/bulge_texture.h"
#include "textures/channel_uvw.h"
#include "textures/checker_texture.h"
#include "textures/cloth_texture.h"
#include "textures/grid_texture.h"
#include "textures/invert_texture.h"
#include "textures/noise_texture.h"
#include "textures/ramp_texture.h"
#include "textures/uvw_texture.h"
#include "textures/world_object_uvw.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::writtenBytes;

namespace {

std::shared_ptr<AColorTexture> constant(float grey)
{
    return std::make_shared<AColorTexture>(AColor{grey, grey, grey, 1});
}

UVWPtr channel(int32_t number)
{
    auto generator = std::make_shared<GenChannelUVW>();
    generator->uvw_channel = number;
    return generator;
}

// The bytes of a planar world generator and of a constant colour, each as a required child.
ByteBuilder& planarChild(ByteBuilder& bytes)
{
    bytes.u32(0).tag(1).floats({1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0});
    return bytes.tag(1).floats({0, 0, 0, 1, 1, 1, 0, 0, 0}).i32(0).i32(0).i32(0);
}
ByteBuilder& constantChild(ByteBuilder& bytes, float grey)
{
    return bytes.u32(5).tag(1).floats({grey, grey, grey, 1});
}

template <class T>
void expectReadsBackEqual(const std::shared_ptr<T>& source)
{
    const auto copy = TalvexTest::writtenAndRead(*source);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(source));
    EXPECT_FALSE(std::make_shared<T>()->isEqual(source));  // the sample differs from the defaults
}

template <class T>
std::size_t bytesLeftByFailedWrite(const T& texture)
{
    QuickArchive out(1);
    EXPECT_FALSE(texture.writeBinary(out));
    return writtenBytes(out).size();
}

}  // namespace

TEST(ProceduralTextures, EachNewestRecordReadsBackEqual)
{
    auto uvw = std::make_shared<UVWTexture>();
    uvw->uvwgen = channel(3);
    expectReadsBackEqual(uvw);

    auto ramp = std::make_shared<RampTexture>();
    ramp->uvwgen = channel(2);
    ramp->colors = constant(0.3f);
    ramp->positions = 0.25f; ramp->u_wave = 0.1f; ramp->v_wave = 0.2f; ramp->type = 2; ramp->interpolation = 0;
    expectReadsBackEqual(ramp);

    auto bulge = std::make_shared<BulgeTexture>();
    bulge->uvwgen = std::make_shared<GenObjectUVW>();
    bulge->u_width = 0.3f; bulge->v_width = 0.4f;
    expectReadsBackEqual(bulge);

    auto grid = std::make_shared<GridTexture>();
    grid->uvwgen = channel(1);
    grid->line_color = constant(0);
    grid->fill_color = constant(1);
    grid->lineMultiplier = 0.5f; grid->fillMultiplier = 0.75f; grid->u_width = 0.02f; grid->v_width = 0.03f;
    expectReadsBackEqual(grid);

    auto cloth = std::make_shared<ClothTexture>();
    cloth->uvwgen = channel(1);
    cloth->gap_color = {0.1f, 0.2f, 0.3f, 0.4f}; cloth->u_color = {0.5f, 0.6f, 0.7f, 0.8f};
    cloth->v_color = {0.9f, 0.8f, 0.7f, 0.6f}; cloth->u_width = 0.5f; cloth->v_width = 0.6f; cloth->tile = false;
    expectReadsBackEqual(cloth);

    auto blend = std::make_shared<BlendTexture>();
    blend->color_a = constant(0.2f);
    blend->color_b = constant(0.8f);
    blend->color_a_mult = 0.5f; blend->color_b_mult = 2; blend->blend_amount = 0.1f;
    expectReadsBackEqual(blend);

    auto noise = std::make_shared<NoiseTexture>();
    noise->uvwgen = channel(1);
    noise->color2_tex = constant(0.4f);
    noise->color1 = {0.1f, 0.2f, 0.3f}; noise->color2 = {0.4f, 0.5f, 0.6f};
    noise->persistence = 0.5f; noise->amplitude_ratio = 0.6f; noise->frequency_ratio = 3; noise->frequency1 = 4;
    noise->amplitude1 = 5; noise->size = 6; noise->mix_ratio = 0.7f; noise->bias = 0.1f;
    noise->color1_tex_mult = 0.2f; noise->color2_tex_mult = 0.3f;
    noise->octaves = 6; noise->noiseType = 2; noise->inflection = 1;
    expectReadsBackEqual(noise);

    auto invert = std::make_shared<InvertTexture>();
    invert->texture = constant(0.6f);
    invert->invert_alpha = true;
    expectReadsBackEqual(invert);

    auto checker = std::make_shared<CheckerTexture>();
    checker->uvwgen = channel(4);
    checker->white_color = constant(0.9f);
    checker->whiteMultiplier = 0.5f; checker->blackMultiplier = 0.25f; checker->tile_u = false;
    expectReadsBackEqual(checker);

    expectReadsBackEqual(constant(0.5f));
}

TEST(ProceduralTextures, OlderVersionsKeepTheDefaultsOfWhatTheyLack)
{
    ByteBuilder grid;
    planarChild(grid.tag(1));
    constantChild(grid, 0);
    constantChild(grid, 1);
    grid.f32(0.2f).f32(0.3f);
    const auto g = TalvexTest::readFrom<GridTexture>(grid);
    ASSERT_TRUE(g);
    EXPECT_EQ(g->lineMultiplier, 1.0f);
    EXPECT_EQ(g->fillMultiplier, 1.0f);
    EXPECT_EQ(g->u_width, 0.2f);
    EXPECT_EQ(g->v_width, 0.3f);

    ByteBuilder cloth;
    planarChild(cloth.tag(1));
    cloth.floats({0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 1}).f32(0.5f).f32(0.6f).boolean(false);
    const auto c = TalvexTest::readFrom<ClothTexture>(cloth);
    ASSERT_TRUE(c);
    EXPECT_EQ(c->gap_color, (AColor{0, 0, 0, 0}));
    EXPECT_EQ(c->v_color, (AColor{0, 0, 1, 1}));
    EXPECT_EQ(c->v_width, 0.6f);
    EXPECT_TRUE(c->tile);  // the byte behind the record is not read

    ByteBuilder blend;
    blend.tag(1).boolean(true);
    constantChild(blend, 0.2f);
    blend.boolean(true);
    constantChild(blend, 0.7f);
    blend.f32(0.25f);
    const auto b = TalvexTest::readFrom<BlendTexture>(blend);
    ASSERT_TRUE(b);
    EXPECT_EQ(b->color_a_mult, 1.0f);
    EXPECT_EQ(b->color_b_mult, 1.0f);
    EXPECT_EQ(b->blend_amount, 0.25f);
    EXPECT_TRUE(b->color_b->isEqual(constant(0.7f)));

    ByteBuilder checker;
    planarChild(checker.tag(1));
    constantChild(checker, 0.9f);
    constantChild(checker, 0.1f);
    checker.boolean(false).boolean(true).f32(7).f32(7);  // the record ends with the two flags
    const auto k = TalvexTest::readFrom<CheckerTexture>(checker);
    ASSERT_TRUE(k);
    EXPECT_FALSE(k->tile_u);
    EXPECT_TRUE(k->tile_v);
    EXPECT_EQ(k->whiteMultiplier, 1.0f);
    EXPECT_EQ(k->blackMultiplier, 1.0f);
    EXPECT_TRUE(k->black_color->isEqual(constant(0.1f)));
}

TEST(ProceduralTextures, BlendMultiplierStandsInsideItsChildsPresence)
{
    BlendTexture blend;
    blend.color_b = constant(0.5f);
    blend.color_a_mult = 3;
    blend.color_b_mult = 4;
    QuickArchive out(1);
    ASSERT_TRUE(blend.writeBinary(out));
    // tag, absent a, present b with its id, record and multiplier, then the amount.
    EXPECT_EQ(writtenBytes(out).size(), 4u + 1 + (1 + 4 + 20 + 4) + 4);

    ByteBuilder bytes;
    bytes.tag(2).boolean(false).boolean(true);
    constantChild(bytes, 0.5f).f32(4).f32(0.75f);
    const auto read = TalvexTest::readFrom<BlendTexture>(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->color_a_mult, 1.0f);
    EXPECT_EQ(read->color_b_mult, 4.0f);
    EXPECT_EQ(read->blend_amount, 0.75f);
}

TEST(ProceduralTextures, EmptyRequiredChildFailsBeforeOrBehindTheTag)
{
    // Nothing written.
    EXPECT_EQ(bytesLeftByFailedWrite(GridTexture()), 0u);
    EXPECT_EQ(bytesLeftByFailedWrite(ClothTexture()), 0u);
    EXPECT_EQ(bytesLeftByFailedWrite(NoiseTexture()), 0u);
    EXPECT_EQ(bytesLeftByFailedWrite(InvertTexture()), 0u);
    CheckerTexture checker;
    checker.black_color = nullptr;
    EXPECT_EQ(bytesLeftByFailedWrite(checker), 0u);
    GridTexture grid;
    grid.uvwgen = channel(1);
    grid.line_color = constant(0);
    EXPECT_EQ(bytesLeftByFailedWrite(grid), 0u);

    // The tag stays.
    EXPECT_EQ(bytesLeftByFailedWrite(BulgeTexture()), 4u);
    EXPECT_EQ(bytesLeftByFailedWrite(UVWTexture()), 4u);
    EXPECT_EQ(bytesLeftByFailedWrite(RampTexture()), 4u);
    RampTexture ramp;
    ramp.uvwgen = std::make_shared<GenPlanarWorldUVW>();
    EXPECT_EQ(bytesLeftByFailedWrite(ramp), 4u + 4 + 52 + 52);  // as far as the missing colours
}

TEST(ProceduralTextures, FreshCheckerWritesAtOnceWithItsOwnChildren)
{
    CheckerTexture checker;
    EXPECT_TRUE(checker.uvwgen->isEqual(std::make_shared<GenPlanarWorldUVW>()));
    EXPECT_TRUE(checker.white_color->isEqual(std::make_shared<AColorTexture>(AColor{1, 1, 1, 1})));
    EXPECT_TRUE(checker.black_color->isEqual(std::make_shared<AColorTexture>(AColor{0, 0, 0, 1})));
    QuickArchive out(1);
    EXPECT_TRUE(checker.writeBinary(out));
    EXPECT_EQ(writtenBytes(out).size(), 4u + (4 + 4 + 48 + 52) + 2 * (4 + 20) + 2 + 8);
}

TEST(ProceduralTextures, FailingChildStopsTheParentWithItsBytesLeft)
{
    InvertTexture invert;
    invert.texture = std::make_shared<GridTexture>();  // a grid without children cannot be written
    EXPECT_EQ(bytesLeftByFailedWrite(invert), 4u + 4);

    BlendTexture blend;
    blend.color_a = std::make_shared<InvertTexture>();
    EXPECT_EQ(bytesLeftByFailedWrite(blend), 4u + 1 + 4);
}

TEST(ProceduralTextures, ClothWritesItsOneTileFlagTwice)
{
    ClothTexture cloth;
    cloth.tile = false;
    const std::string xml = TalvexTest::xmlOf(cloth);
    EXPECT_NE(xml.find(R"(<parameter type="bool" name="tile_u" handler="default" listType="none" label="tile_u">
            <value>0</value>
          </parameter>
          <parameter type="bool" name="tile_v" handler="default" listType="none" label="tile_v">
            <value>0</value>
          </parameter>)"),
              std::string::npos);
    EXPECT_EQ(xml.find(R"(name="tile")"), std::string::npos);
}

TEST(ProceduralTextures, SuffixAndParameterNameAreSeparate)
{
    InvertTexture invert;
    invert.texture = constant(0.5f);
    const std::string xml = TalvexTest::xmlOf(invert, u"/m");
    EXPECT_LT(xml.find(R"(url="/m/TexInvert/base_texture/TexAColor")"), xml.find(R"(url="/m/TexInvert" )"));
    EXPECT_NE(xml.find(R"(name="texture" handler="default" listType="none" label="texture">
            <value>/m/TexInvert/base_texture/TexAColor</value>)"),
              std::string::npos);
}

TEST(ProceduralTextures, NestedChildrenStandDeepestFirst)
{
    auto inner = std::make_shared<InvertTexture>();
    inner->texture = constant(0.25f);
    BlendTexture blend;
    blend.color_a = inner;
    blend.color_b = constant(0.75f);
    const std::string xml = TalvexTest::xmlOf(blend, u"/m");
    const auto deepest = xml.find(R"(url="/m/TexBlend/color_a/TexInvert/base_texture/TexAColor")");
    const auto inverted = xml.find(R"(url="/m/TexBlend/color_a/TexInvert" )");
    const auto second = xml.find(R"(url="/m/TexBlend/color_b/TexAColor")");
    const auto parent = xml.find(R"(url="/m/TexBlend" )");
    EXPECT_LT(deepest, inverted);
    EXPECT_LT(inverted, second);
    EXPECT_LT(second, parent);
    EXPECT_NE(parent, std::string::npos);
    EXPECT_NE(xml.find("<value>/m/TexBlend/color_a/TexInvert/base_texture/TexAColor</value>"), std::string::npos);
}

TEST(ProceduralTextures, CheckerXmlAtDefaultsWritesItsThreeChildrenFirst)
{
    EXPECT_EQ(TalvexTest::xmlOf(CheckerTexture(), u"/floor/diffuse/color_tex"), R"(  <Asset layout="" renderer="nuva" type="uvw" url="/floor/diffuse/color_tex/TexChecker/uvwgen/UVWGenPlanarWorld" >
    <plugin>
      <nuvaplugin name="UVWGenPlanarWorld" type="uvw">
        <parameters>
          <parameter type="componentTransform" name="uvw_transform" handler="default" listType="none" label="uvw_transform">
            <value>
              <x_rotation>0</x_rotation>
              <y_rotation>0</y_rotation>
              <z_rotation>0</z_rotation>
              <x_scale>1</x_scale>
              <y_scale>1</y_scale>
              <z_scale>1</z_scale>
              <x_offset>0</x_offset>
              <y_offset>0</y_offset>
              <z_offset>0</z_offset>
              <x_mirror>0</x_mirror>
              <y_mirror>0</y_mirror>
              <z_mirror>0</z_mirror>
            </value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
  <Asset layout="" renderer="nuva" type="texture" url="/floor/diffuse/color_tex/TexChecker/white_color/TexAColor" >
    <plugin>
      <nuvaplugin name="TexAColor" type="texture">
        <parameters>
          <parameter type="acolor" name="texture" handler="default" listType="none" label="texture">
            <value>
              <r>1</r>
              <g>1</g>
              <b>1</b>
              <a>1</a>
            </value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
  <Asset layout="" renderer="nuva" type="texture" url="/floor/diffuse/color_tex/TexChecker/black_color/TexAColor" >
    <plugin>
      <nuvaplugin name="TexAColor" type="texture">
        <parameters>
          <parameter type="acolor" name="texture" handler="default" listType="none" label="texture">
            <value>
              <r>0</r>
              <g>0</g>
              <b>0</b>
              <a>1</a>
            </value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
  <Asset layout="" renderer="nuva" type="texture" url="/floor/diffuse/color_tex/TexChecker" >
    <plugin>
      <nuvaplugin name="TexChecker" type="texture">
        <parameters>
          <parameter type="plugin" name="uvwgen" handler="default" listType="none" label="uvwgen">
            <value>/floor/diffuse/color_tex/TexChecker/uvwgen/UVWGenPlanarWorld</value>
          </parameter>
          <parameter type="plugin" name="white_color" handler="default" listType="none" label="white_color">
            <value>/floor/diffuse/color_tex/TexChecker/white_color/TexAColor</value>
          </parameter>
          <parameter type="plugin" name="black_color" handler="default" listType="none" label="black_color">
            <value>/floor/diffuse/color_tex/TexChecker/black_color/TexAColor</value>
          </parameter>
          <parameter type="bool" name="tile_u" handler="default" listType="none" label="tile_u">
            <value>1</value>
          </parameter>
          <parameter type="bool" name="tile_v" handler="default" listType="none" label="tile_v">
            <value>1</value>
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}
