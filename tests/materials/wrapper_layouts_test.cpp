// The flattening of wrappers into the standard asset, the four own layouts, and how references reach
// the XML.
#include <gtest/gtest.h>

#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_layouts.h"
#include "materials/material_multi.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_reference.h"
#include "materials/material_toon.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

using WrapperLayouts = SceneCleared;

std::string assetsOf(const MaterialPtr& material)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    writeMaterialAssets(writer, material);
    return wideToNarrow(text);
}

std::size_t count(const std::string& text, const std::string& piece)
{
    std::size_t n = 0;
    for (auto at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++n;
    return n;
}

// Positions of the pieces in the text; each must follow the one before it.
void expectInOrder(const std::string& text, std::initializer_list<std::string> pieces)
{
    std::size_t at = 0;
    for (const std::string& piece : pieces) {
        const auto next = text.find(piece, at);
        EXPECT_NE(next, std::string::npos) << "missing or out of order: " << piece;
        if (next == std::string::npos) return;
        at = next + piece.size();
    }
}

template <class T>
std::shared_ptr<T> wrapper(const std::u16string& name)
{
    auto material = std::make_shared<T>();
    material->name = name;
    return material;
}

// A bump around a displaced material around a layered one: one asset under the bump's name, the
// wrappers' textures first, then the layers under that name, then the core with the bump block ahead
// of the displace block.
TEST_F(WrapperLayouts, ChainCollapsesIntoOneStandardAsset)
{
    auto displaced = wrapper<MaterialDisplaced>(u"Raised");
    displaced->base_mtl = layeredWith(u"Core", u"Paint");
    displaced->displace_tex = std::make_shared<AColorTexture>();
    displaced->displace_max_subdivs = 64;
    auto bump = wrapper<MaterialBump>(u"Outer");
    bump->base_mtl = displaced;
    bump->bump_tex_mult = 0.5f;

    const std::string text = assetsOf(bump);
    EXPECT_EQ(count(text, "<Asset "), 3u);
    expectInOrder(text, {
        "url=\"/Outer/displace_tex/TexAColor\"",
        "url=\"/Outer/Paint\"",
        "<Asset layout=\"defnumat\" renderer=\"nuva\" type=\"material\" url=\"/Outer\" >",
        "<nuvaplugin name=\"MtlTALVEX\" type=\"material\">",
        "name=\"double_sided\"", "<entry>/Outer/Paint</entry>",
        "name=\"bump_on\"", "<value>1</value>", "name=\"bump_tex_mult\"", "<value>0.5</value>",
        "name=\"bump_tex\" handler=\"default\" listType=\"none\" label=\"bump_tex\">\n            </parameter>",
        "name=\"displace_on\"", "name=\"displace_shift\"", "name=\"displace_edge_length\"",
        "name=\"displace_tex_mult\"", "name=\"displace_max_subdivs\"", "<value>64</value>",
        "name=\"displace_continuity\"", "name=\"displace_view_dependent\"", "name=\"displace_use_globals\"",
        "name=\"displace_tex\"", "<value>/Outer/displace_tex/TexAColor</value>",
        "</Asset>\n  </Assets>",
    });
    EXPECT_FALSE(has(text, "Raised"));
    EXPECT_FALSE(has(text, "Core"));
}

// The search stops at its first hit: of two bumps only the outer one counts; of two sides the front's
// core is taken, and the back does not appear.
TEST_F(WrapperLayouts, SearchTakesTheFirstHitOfEachKind)
{
    auto inner = wrapper<MaterialBump>(u"Inner");
    inner->base_mtl = layeredWith(u"Core", u"Paint");
    inner->bump_tex_mult = 7;
    auto outer = wrapper<MaterialBump>(u"Outer");
    outer->base_mtl = inner;
    outer->bump_tex_mult = 2;
    EXPECT_EQ(findMaterialsByType(outer, 3), std::vector<MaterialPtr>{outer});
    const std::string bumps = assetsOf(outer);
    EXPECT_EQ(count(bumps, "name=\"bump_on\""), 1u);
    EXPECT_TRUE(has(bumps, "<value>2</value>"));
    EXPECT_FALSE(has(bumps, "<value>7</value>"));

    auto sided = wrapper<Material2Sided>(u"Sided");
    sided->front = layeredWith(u"Front", u"FrontLayer");
    sided->back = layeredWith(u"Back", u"BackLayer");
    auto around = wrapper<MaterialBump>(u"Around");
    around->base_mtl = sided;
    EXPECT_EQ(findMaterialsByType(around, 1), (std::vector<MaterialPtr>{sided->front, sided->back}));
    const std::string text = assetsOf(around);
    EXPECT_TRUE(has(text, "<entry>/Around/FrontLayer</entry>"));
    EXPECT_FALSE(has(text, "BackLayer"));

    // The multi-material stops the search, so it has no form in XML.
    auto multi = wrapper<MaterialMulti>(u"Multi");
    multi->materials = {layeredWith(u"A", u"L")};
    EXPECT_EQ(assetsOf(multi), "  <Assets>\n  </Assets>\n");
}

// The environment override shows its textures and colours with all flags off, its textures "gi"
// first and multipliers "bg" first; exclusion shows a flag for its mode and no objects; alpha last.
TEST_F(WrapperLayouts, OverrideExclusionAndAlphaBlocks)
{
    auto env = wrapper<MaterialOverrideEnvironment>(u"Env");
    env->bg_tex = std::make_shared<AColorTexture>();
    env->refract_tex = std::make_shared<AColorTexture>();
    auto exclusion = wrapper<MaterialObjectExclusion>(u"Hidden");
    exclusion->mode = 2;
    exclusion->objects = {u"Lamp"};
    exclusion->base_mtl = env;
    auto alpha = wrapper<MaterialAlphaContribution>(u"Cutout");
    alpha->alpha_tex = std::make_shared<AColorTexture>();
    alpha->base_mtl = exclusion;
    env->base_mtl = layeredWith(u"Core", u"Paint");

    const std::string text = assetsOf(alpha);
    expectInOrder(text, {
        "url=\"/Cutout/bg_tex/TexAColor\"", "url=\"/Cutout/refract_tex/TexAColor\"",
        "url=\"/Cutout/alpha_tex/TexAColor\"", "url=\"/Cutout/Paint\"", "url=\"/Cutout\" >",
        "name=\"gi_tex\"", "name=\"bg_tex\"", "<value>/Cutout/bg_tex/TexAColor</value>", "name=\"reflect_tex\"",
        "name=\"refract_tex\"", "name=\"gi_color\"", "name=\"bg_color\"", "name=\"reflect_color\"",
        "name=\"refract_color\"", "name=\"bg_tex_mult\"", "name=\"gi_tex_mult\"", "name=\"reflect_tex_mult\"",
        "name=\"refract_tex_mult\"", "name=\"override_bg\"", "name=\"override_gi\"", "name=\"override_reflect\"",
        "name=\"override_refract\"",
        "name=\"ignore_objects\"", "<value>1</value>", "name=\"short_circuit\"",
        "name=\"alpha\"", "name=\"alpha_tex_mult\"", "name=\"alpha_tex\"",
    });
    EXPECT_FALSE(has(text, "Lamp"));
}

// The own layouts point at the standard assets of their resolved inner materials by "/" and name, and
// leave out a parameter whose material is missing or a reference with no target.
TEST_F(WrapperLayouts, OwnLayoutsPointAtStandardAssets)
{
    auto blend = wrapper<MaterialAngleBlend>(u"Blend");
    blend->mtl_one = layeredWith(u"One", u"L1");
    const std::string text = assetsOf(blend);
    EXPECT_EQ(count(text, "<Asset "), 3u);
    expectInOrder(text, {
        "url=\"/One/L1\"", "url=\"/One\" >",
        "<Asset layout=\"AngleBlendMatLayout\" renderer=\"nuva\" type=\"material\" url=\"/Blend\" >",
        "<nuvaplugin name=\"MtlAngleBlend\" type=\"material\">", "name=\"mtl_one\"", "<value>/One</value>",
        "name=\"start_angle\"", "<value>75</value>", "name=\"stop_angle\"", "<value>150</value>",
    });
    EXPECT_FALSE(has(text, "mtl_two"));

    auto sided = wrapper<Material2Sided>(u"Sided");
    sided->front = layeredWith(u"Front", u"L1");
    auto reference = wrapper<MaterialReference>(u"Ref");
    sided->back = reference;
    sided->transparency_tex = std::make_shared<AColorTexture>();
    std::string two = assetsOf(sided);
    expectInOrder(two, {"url=\"/Front\" >", "layout=\"TwoSidedMatLayout\"",
                        "<nuvaplugin name=\"Mtl2Sided\" type=\"material\">", "<value>/Front</value>",
                        "name=\"translucency\"", "name=\"force_1sided\""});
    // A reference with no copy resolves to nothing, which is not named; only four parameters show.
    EXPECT_FALSE(has(two.substr(two.find("TwoSidedMatLayout")), "name=\"back\""));
    EXPECT_FALSE(has(two.substr(two.find("TwoSidedMatLayout")), "name=\"transparency_tex\""));
    reference->embedded = layeredWith(u"Copy", u"L2");
    two = assetsOf(sided);
    expectInOrder(two, {"url=\"/Front\" >", "url=\"/Copy\" >", "TwoSidedMatLayout", "<value>/Front</value>",
                        "name=\"back\"", "<value>/Copy</value>"});

    auto toon = wrapper<MaterialToon>(u"Ink");
    toon->base_mtl = layeredWith(u"Core", u"L");
    toon->width_tex = std::make_shared<AColorTexture>();
    const std::string lines = assetsOf(toon);
    expectInOrder(lines, {
        "url=\"/Core\" >", "url=\"/Ink/width_tex/TexAColor\"", "layout=\"ToonMatLayout\"",
        "name=\"base_mtl\"", "<value>/Core</value>", "name=\"lineColorTex\"", "name=\"distortTex\"",
        "name=\"opacityTex\"", "name=\"lineWidthTex\"", "<value>/Ink/width_tex/TexAColor</value>",
        "name=\"lineColor\"", "name=\"lineColorTexMult\"", "name=\"distort\"", "name=\"distortTexMult\"",
        "name=\"opacity\"", "name=\"opacityTexMult\"", "name=\"lineWidth\"", "name=\"lineWidthTexMult\"",
        "name=\"zThreshold\"", "<value>0.95</value>", "name=\"traceBias\"", "name=\"normalThreshold\"",
        "name=\"silhouetteMult\"", "name=\"doSecondary\"", "name=\"divideByDist\"", "name=\"doSilhouetteMult\"",
    });
    EXPECT_FALSE(has(lines, "line_units"));
    EXPECT_FALSE(has(lines, "lineUnits"));
}

// At the top level a reference goes through its copy; inside a wrapper the search goes through the
// scene first, so the same reference can show another material there.
TEST_F(WrapperLayouts, ReferencesResolveThroughTheCopyAtTopAndTheSceneInside)
{
    auto reference = wrapper<MaterialReference>(u"Ref");
    reference->target_uuid = u"T-1";
    reference->embedded = layeredWith(u"Copy", u"CopyLayer");
    auto target = layeredWith(u"Target", u"TargetLayer");
    target->uuid = u"T-1";
    ASSERT_TRUE(sceneMaterials()->addMaterial(target));

    EXPECT_EQ(resolveReference(reference), reference->embedded);
    EXPECT_TRUE(has(assetsOf(reference), "<entry>/Copy/CopyLayer</entry>"));
    auto bump = wrapper<MaterialBump>(u"Outer");
    bump->base_mtl = reference;
    EXPECT_TRUE(has(assetsOf(bump), "<entry>/Outer/TargetLayer</entry>"));

    EXPECT_FALSE(isEmittable(nullptr));
    EXPECT_TRUE(isEmittable(target));
    EXPECT_TRUE(isEmittable(reference));
    EXPECT_FALSE(isEmittable(wrapper<MaterialReference>(u"Empty")));
    // A reference has no asset of its own: asked for one, it gives its copy's.
    EXPECT_EQ(xmlOf(*reference, u"/X"), xmlOf(*reference->embedded, u"/X"));
}

}  // namespace
}  // namespace TalvexTest
