// The fresnel texture: its version 1 record, its complemented colours and its crossed slot urls.
#include <gtest/gtest.h>

#include <bit>

#include "texture_test_support.h"
#include "textures/fresnel_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

TEST(FresnelTexture, Version1KeepsMultipliersAndListsEmptyChildren)
{
    // The last two floats are bytes of whatever follows the record, not part of it.
    const auto f = readFrom<FresnelTexture>(
        ByteBuilder().tag(1).color(0.1f, 0.2f, 0.3f).color(0.7f, 0.8f, 0.9f).f32(1.8f).f32(1.3f).f32(7).f32(7));
    ASSERT_TRUE(f);
    EXPECT_TRUE(f->white_color == (Color{0.1f, 0.2f, 0.3f}));
    EXPECT_TRUE(f->black_color == (Color{0.7f, 0.8f, 0.9f}));
    EXPECT_EQ((Floats{f->fresnel_ior, f->refract_ior, f->black_color_tex_mult, f->white_color_tex_mult,
                      f->fresnel_ior_tex_mult, f->refract_ior_tex_mult}),
              (Floats{1.8f, 1.3f, 1, 1, 1, 1}));
    EXPECT_FALSE(f->black_color_tex);
    EXPECT_FALSE(f->white_color_tex);
    EXPECT_FALSE(f->fresnel_ior_tex);
    EXPECT_FALSE(f->refract_ior_tex);
    const std::string xml = xmlOf(*f);
    for (const char* slot : {"black_color_tex", "white_color_tex", "fresnel_ior_tex", "refract_ior_tex"})
        EXPECT_EQ(valueOf(xml, slot), "no value") << slot;
}

// The colours go out as their complements, max(0, 1 - c) with no upper clamp.
TEST(FresnelTexture, ColoursAreWrittenAsComplements)
{
    FresnelTexture f;
    EXPECT_EQ(std::bit_cast<uint32_t>(f.black_color.g), 0x3E828283u);  // 65/255
    EXPECT_EQ(valueOf(xmlOf(f), "black_color"), "<r>0.745098</r><g>0.745098</g><b>0.745098</b>");
    f.white_color = {-0.5f, 0.25f, 3.0f};
    EXPECT_EQ(valueOf(xmlOf(f), "white_color"), "<r>1.5</r><g>0.75</g><b>0</b>");
}

// The first child slot lies under the suffix "reflection_tex", the second under "refraction_tex".
TEST(FresnelTexture, SlotSuffixesCrossTheParameterNames)
{
    FresnelTexture f;
    f.black_color_tex = constant(1);
    f.white_color_tex = constant(0);
    const std::string xml = xmlOf(f, u"/m");
    EXPECT_TRUE(assetsInOrder(xml, {"/m/TexFresnel/reflection_tex/TexAColor", "/m/TexFresnel/refraction_tex/TexAColor",
                                    "/m/TexFresnel"}));
    EXPECT_EQ(valueOf(xml, "black_color_tex"), "/m/TexFresnel/reflection_tex/TexAColor");
    EXPECT_EQ(valueOf(xml, "white_color_tex"), "/m/TexFresnel/refraction_tex/TexAColor");
}
