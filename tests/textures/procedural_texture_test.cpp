// The procedural textures: the blend texture's multipliers, failure on writing, and the Fresnel
// texture's XML (the example library holds their older records and the rest of their XML).
#include <gtest/gtest.h>

#include "texture_test_support.h"
#include "textures/blend_texture.h"
#include "textures/bulge_texture.h"
#include "textures/checker_texture.h"
#include "textures/cloth_texture.h"
#include "textures/fresnel_texture.h"
#include "textures/grid_texture.h"
#include "textures/invert_texture.h"
#include "textures/noise_texture.h"
#include "textures/ramp_texture.h"
#include "textures/space_uvw.h"
#include "textures/uvw_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

// An absent first child stores no multiplier, so the second child's stands right behind it.
TEST(ProceduralTextures, BlendMultiplierStandsInsideItsChildsPresence)
{
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

// The Fresnel colours go out as their complements, max(0, 1 - c) with no upper clamp. The second
// child slot lies under the suffix "refraction_tex", the first under "reflection_tex".
TEST(ProceduralTextures, FresnelComplementedColoursAndCrossedSlotSuffixes)
{
    FresnelTexture f;
    f.white_color = {-0.5f, 0.25f, 3.0f};
    f.white_color_tex = constant(0);
    const std::string xml = xmlOf(f, u"/m");
    EXPECT_EQ(valueOf(xml, "white_color"), "<r>1.5</r><g>0.75</g><b>0</b>");
    EXPECT_TRUE(assetsInOrder(xml, {"/m/TexFresnel/refraction_tex/TexAColor", "/m/TexFresnel"}));
    EXPECT_EQ(valueOf(xml, "white_color_tex"), "/m/TexFresnel/refraction_tex/TexAColor");
}
