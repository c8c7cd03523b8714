// The fresnel texture: its complemented colours and its crossed slot urls.
#include <gtest/gtest.h>

#include "texture_test_support.h"
#include "textures/fresnel_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

// The colours go out as their complements, max(0, 1 - c) with no upper clamp. The second child
// slot lies under the suffix "refraction_tex", the first under "reflection_tex".
TEST(FresnelTexture, ComplementedColoursAndCrossedSlotSuffixes)
{
    FresnelTexture f;
    f.white_color = {-0.5f, 0.25f, 3.0f};
    f.white_color_tex = constant(0);
    const std::string xml = xmlOf(f, u"/m");
    EXPECT_EQ(valueOf(xml, "white_color"), "<r>1.5</r><g>0.75</g><b>0</b>");
    EXPECT_TRUE(assetsInOrder(xml, {"/m/TexFresnel/refraction_tex/TexAColor", "/m/TexFresnel"}));
    EXPECT_EQ(valueOf(xml, "white_color_tex"), "/m/TexFresnel/refraction_tex/TexAColor");
}
