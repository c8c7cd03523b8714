// The procedural textures: older records, failure on writing, and their XML oddities.
#include <gtest/gtest.h>

#include "texture_test_support.h"
#include "textures/blend_texture.h"
#include "textures/bulge_texture.h"
#include "textures/checker_texture.h"
#include "textures/cloth_texture.h"
#include "textures/grid_texture.h"
#include "textures/invert_texture.h"
#include "textures/noise_texture.h"
#include "textures/ramp_texture.h"
#include "textures/space_uvw.h"
#include "textures/uvw_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

TEST(ProceduralTextures, OlderVersionsKeepTheDefaultsOfWhatTheyLack)
{
    const auto g = readFrom<GridTexture>(
        constantChild(constantChild(planarChild(ByteBuilder().tag(1)), 0), 1).floats({0.2f, 0.3f}));
    ASSERT_TRUE(g);
    EXPECT_EQ((Floats{g->lineMultiplier, g->fillMultiplier, g->u_width, g->v_width}), (Floats{1, 1, 0.2f, 0.3f}));

    const auto c = readFrom<ClothTexture>(  // the flag behind the record is not read
        planarChild(ByteBuilder().tag(1)).floats({0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 1, 0.5f, 0.6f}).boolean(false));
    ASSERT_TRUE(c);
    EXPECT_TRUE(c->gap_color == (AColor{0, 0, 0, 0}) && c->v_color == (AColor{0, 0, 1, 1}) && c->v_width == 0.6f);
    EXPECT_TRUE(c->tile);

    const auto b = readFrom<BlendTexture>(
        constantChild(constantChild(ByteBuilder().tag(1).boolean(true), 0.2f).boolean(true), 0.7f).f32(0.25f));
    ASSERT_TRUE(b);
    EXPECT_EQ((Floats{b->color_a_mult, b->color_b_mult, b->blend_amount}), (Floats{1, 1, 0.25f}));
    EXPECT_TRUE(b->color_b->isEqual(constant(0.7f)));

    const auto k = readFrom<CheckerTexture>(  // the record ends with the two flags
        constantChild(constantChild(planarChild(ByteBuilder().tag(1)), 0.9f), 0.1f).u8(0).u8(1).floats({7, 7}));
    ASSERT_TRUE(k);
    EXPECT_TRUE(!k->tile_u && k->tile_v && k->black_color->isEqual(constant(0.1f)));
    EXPECT_EQ((Floats{k->whiteMultiplier, k->blackMultiplier}), (Floats{1, 1}));
}

// Each multiplier of the blend texture stands inside the presence of its child.
TEST(ProceduralTextures, BlendMultiplierStandsInsideItsChildsPresence)
{
    BlendTexture blend;
    blend.color_b = constant(0.5f);
    blend.color_a_mult = 3;
    QuickArchive out(1);
    ASSERT_TRUE(blend.writeBinary(out));
    // tag, absent a, present b with its id, record and multiplier, then the amount.
    EXPECT_EQ(out.writePosition(), 4u + 1 + (1 + 4 + 20 + 4) + 4);

    const auto read = readFrom<BlendTexture>(
        constantChild(ByteBuilder().tag(2).boolean(false).boolean(true), 0.5f).floats({4, 0.75f}));
    ASSERT_TRUE(read);
    EXPECT_EQ((Floats{read->color_a_mult, read->color_b_mult, read->blend_amount}), (Floats{1, 4, 0.75f}));
}

// An empty required child fails the write with nothing written, or behind the tag and the
// children before it, as each class does it. A child that fails stops its parent the same way.
TEST(ProceduralTextures, EmptyOrFailingChildFailsTheWrite)
{
    CheckerTexture checker;
    checker.black_color = nullptr;
    GridTexture grid;
    RampTexture ramp;
    grid.uvwgen = ramp.uvwgen = std::make_shared<GenPlanarWorldUVW>();
    grid.line_color = constant(0);
    InvertTexture invert;
    invert.texture = std::make_shared<GridTexture>();
    BlendTexture blend;
    blend.color_a = std::make_shared<InvertTexture>();
    const std::size_t left[][2] = {
        {bytesLeftByFailedWrite(GridTexture()), 0},  {bytesLeftByFailedWrite(ClothTexture()), 0},
        {bytesLeftByFailedWrite(NoiseTexture()), 0}, {bytesLeftByFailedWrite(InvertTexture()), 0},
        {bytesLeftByFailedWrite(checker), 0},        {bytesLeftByFailedWrite(grid), 0},
        {bytesLeftByFailedWrite(BulgeTexture()), 4}, {bytesLeftByFailedWrite(UVWTexture()), 4},
        {bytesLeftByFailedWrite(RampTexture()), 4},  {bytesLeftByFailedWrite(ramp), 4 + 4 + 52 + 52},
        {bytesLeftByFailedWrite(invert), 4 + 4},     {bytesLeftByFailedWrite(blend), 4 + 1 + 4},
    };
    for (std::size_t i = 0; i < std::size(left); ++i) EXPECT_EQ(left[i][0], left[i][1]) << "case " << i;
    QuickArchive out(1);  // a fresh checker has its children and writes at once
    EXPECT_TRUE(CheckerTexture().writeBinary(out));
    EXPECT_EQ(out.writePosition(), 4u + (4 + 4 + 48 + 52) + 2 * (4 + 20) + 2 + 8);
}

TEST(ProceduralTextures, ClothWritesItsOneTileFlagTwice)
{
    ClothTexture cloth;
    cloth.tile = false;
    const std::string xml = xmlOf(cloth);
    EXPECT_EQ(valueOf(xml, "tile_u") + valueOf(xml, "tile_v") + valueOf(xml, "tile"), "00missing");
}

// Children stand deepest first under their slots' suffixes, which need not be their parameters' names.
TEST(ProceduralTextures, NestedChildrenStandDeepestFirstUnderTheirSuffixes)
{
    auto inner = std::make_shared<InvertTexture>();
    inner->texture = constant(0.25f);
    BlendTexture blend;
    blend.color_a = inner;
    blend.color_b = constant(0.75f);
    const std::string xml = xmlOf(blend, u"/m");
    const std::string deepest = "/m/TexBlend/color_a/TexInvert/base_texture/TexAColor";
    EXPECT_TRUE(
        assetsInOrder(xml, {deepest, "/m/TexBlend/color_a/TexInvert", "/m/TexBlend/color_b/TexAColor", "/m/TexBlend"}));
    EXPECT_EQ(valueOf(xml.substr(xml.find("TexInvert\" ")), "texture"), deepest);
    EXPECT_EQ(valueOf(xml, "color_b"), "/m/TexBlend/color_b/TexAColor");
}
