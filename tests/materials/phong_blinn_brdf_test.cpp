// The twin glossy layers: their records of every version, the Fresnel upgrade, clones and XML.
#include <gtest/gtest.h>

#include "materials/brdf_test_support.h"
#include "materials/phong_blinn_brdf.h"

namespace TalvexTest {
namespace {

constexpr uint32_t phongId = 8;
constexpr uint32_t blinnId = 4;

void makeRich(Glossy_BRDF& layer)
{
    layer.name = u"Lacquer";
    layer.layer_flag_2 = true;
    layer.color = {0.6f, 0.5f, 0.4f};
    layer.filter_color = {0.75f, 1.25f, 0.5f};
    layer.hilightGlossiness = 0.6f;
    layer.reflectionGlossiness = 0.7f;
    layer.cutoff = 0.02f;
    layer.hilightGlossiness_tex_mult = 0.25f;
    layer.reflectionGlossiness_tex_mult = 0.5f;
    layer.color_tex_mult = 2;
    layer.transparency_tex_mult = 0.125f;
    layer.anisotropy = 0.3f;
    layer.anisotropy_rotation = 45;
    layer.subdivs = 24;
    layer.aux_int = 11;
    layer.back_side = 2;
    layer.hilightGlossiness_tex = acolor(0.1f, 0.1f, 0.1f);
    layer.reflectionGlossiness_tex = acolor(0.2f, 0.2f, 0.2f);
    layer.color_tex = acolor(0.3f, 0.3f, 0.3f);
    layer.transparency_tex = acolor(0.4f, 0.4f, 0.4f);
}

// Items a to j of versions 1 to 5, the Fresnel index after the glossiness, its switch after the subdivisions.
ByteBuilder glossyHead(uint32_t version, float fresnelIndex, uint32_t fresnelSwitch)
{
    ByteBuilder b;
    b.tag(version).color(0.6f, 0.5f, 0.4f).color(1, 1, 1).floats({0.6f, 0.7f, fresnelIndex, 0.02f});
    b.u32(24).u32(fresnelSwitch).u32(1).u32(11);
    return b;
}

TEST(PhongBlinnBRDF, NewestRecordSurvivesWriteAndRead)
{
    for (uint32_t id : {phongId, blinnId}) {
        BRDFPtr source = createBRDF(id);
        makeRich(dynamic_cast<Glossy_BRDF&>(*source));
        BRDFPtr back = roundTrip(*source);
        EXPECT_EQ(back->typeId(), id);
        EXPECT_TRUE(back->isEqual(source)) << id;
        EXPECT_EQ(back->name, u"Lacquer");
        EXPECT_TRUE(back->layer_flag_2);
    }
}

TEST(PhongBlinnBRDF, PhongAndBlinnOfEqualValuesAreNotEqualButWriteTheSameXml)
{
    Phong_BRDF phong;
    Blinn_BRDF blinn;
    makeRich(phong);
    makeRich(blinn);
    EXPECT_FALSE(phong.isEqual(blinn.clone()));
    EXPECT_FALSE(blinn.isEqual(phong.clone()));
    EXPECT_TRUE(phong.isEqual(phong.clone()));
    EXPECT_EQ(xmlOf(phong, u"/M"), xmlOf(blinn, u"/M"));
}

TEST(PhongBlinnBRDF, Version1SwitchOffLeavesNoTransparencyTexture)
{
    Phong_BRDF layer;
    ASSERT_TRUE(std::dynamic_pointer_cast<FresnelTexture>(layer.transparency_tex));
    QuickArchive in = glossyHead(1, 1.6f, 0).archive();
    EXPECT_TRUE(layer.readBinary(in));
    EXPECT_FALSE(layer.transparency_tex);
    EXPECT_EQ(layer.back_side, 1u);
    EXPECT_EQ(layer.aux_int, 11u);
    EXPECT_EQ(layer.subdivs, 24u);
    EXPECT_EQ(layer.cutoff, 0.02f);
    EXPECT_EQ(layer.color_tex_mult, 1);
    EXPECT_EQ(layer.name, u"BRDFReflection");
    layer.resetDefaults();
    EXPECT_TRUE(std::dynamic_pointer_cast<FresnelTexture>(layer.transparency_tex));
}

TEST(PhongBlinnBRDF, Version2FileNamesAndTheFresnelUpgrade)
{
    ByteBuilder b = glossyHead(2, 1.33f, 1);
    b.floats({0.5f, 0.25f, 0.75f}).str("c.png").str("").str("r.png");
    auto layer = loadAs<Blinn_BRDF>(blinnId, b);
    auto fresnel = std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex);
    ASSERT_TRUE(fresnel);
    EXPECT_EQ(fresnel->fresnel_ior, 1.33f);
    EXPECT_EQ(fresnel->refract_ior, FresnelTexture().refract_ior);
    EXPECT_EQ(layer->transparency_tex_mult, 1);
    EXPECT_EQ(layer->color_tex_mult, 0.5f);
    EXPECT_EQ(layer->hilightGlossiness_tex_mult, 0.25f);
    EXPECT_EQ(layer->reflectionGlossiness_tex_mult, 0.75f);
    EXPECT_EQ(bitmapFile(layer->color_tex), "c.png");
    EXPECT_FALSE(layer->hilightGlossiness_tex);
    EXPECT_EQ(bitmapFile(layer->reflectionGlossiness_tex), "r.png");
    EXPECT_EQ(layer->anisotropy, 0);
}

TEST(PhongBlinnBRDF, Version3AddsTheAnisotropy)
{
    ByteBuilder b = glossyHead(3, 1.5f, 0);
    b.floats({1, 1, 1}).str("").str("h.png").str("").floats({0.4f, 90});
    auto layer = loadAs<Phong_BRDF>(phongId, b);
    EXPECT_EQ(bitmapFile(layer->hilightGlossiness_tex), "h.png");
    EXPECT_EQ(layer->anisotropy, 0.4f);
    EXPECT_EQ(layer->anisotropy_rotation, 90);
}

TEST(PhongBlinnBRDF, Versions4And5HoldChildSlotsAndVersion5TheName)
{
    for (uint32_t version : {4u, 5u}) {
        ByteBuilder b = glossyHead(version, 1.7f, 1);
        b.floats({1, 1, 1});
        acolorChild(b, 1, 0, 0).boolean(false);
        acolorChild(b, 0, 0, 1).floats({0.4f, 90});
        if (version == 5) b.append(baseRecord("Varnish"));
        auto layer = loadAs<Phong_BRDF>(phongId, b);
        EXPECT_EQ(acolorOf(layer->color_tex), (AColor{1, 0, 0, 1}));
        EXPECT_FALSE(layer->hilightGlossiness_tex);
        EXPECT_EQ(acolorOf(layer->reflectionGlossiness_tex), (AColor{0, 0, 1, 1}));
        EXPECT_EQ(layer->anisotropy_rotation, 90);
        auto fresnel = std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex);
        ASSERT_TRUE(fresnel);
        EXPECT_EQ(fresnel->fresnel_ior, 1.7f);
        EXPECT_EQ(layer->name, version == 5 ? u"Varnish" : u"BRDFReflection");
    }
}

TEST(PhongBlinnBRDF, Version6WithoutATransparencyChildHasNone)
{
    Blinn_BRDF source;
    source.transparency_tex = nullptr;
    BRDFPtr back = roundTrip(source);
    EXPECT_FALSE(std::dynamic_pointer_cast<Blinn_BRDF>(back)->transparency_tex);
    EXPECT_TRUE(back->isEqual(source.clone()));
}

TEST(PhongBlinnBRDF, ChildOfUnknownTypeFailsTheLoad)
{
    ByteBuilder b = glossyHead(4, 1.5f, 0);
    b.floats({1, 1, 1}).boolean(false).boolean(true).u32(64);
    bool ok = true;
    load(blinnId, b, ok);
    EXPECT_FALSE(ok);
}

TEST(PhongBlinnBRDF, CloneSharesNoTextureAndKeepsTheClass)
{
    Blinn_BRDF source;
    makeRich(source);
    auto copy = std::dynamic_pointer_cast<Blinn_BRDF>(source.clone());
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(source.clone()));
    EXPECT_NE(copy->color_tex, source.color_tex);
    EXPECT_NE(copy->hilightGlossiness_tex, source.hilightGlossiness_tex);
    EXPECT_NE(copy->reflectionGlossiness_tex, source.reflectionGlossiness_tex);
    EXPECT_NE(copy->transparency_tex, source.transparency_tex);
}

// The url words are in snake case; back_side is an integer, not a bool.
TEST(PhongBlinnBRDF, XmlOfAGlossyLayer)
{
    Phong_BRDF layer;
    makeRich(layer);
    layer.hilightGlossiness_tex = nullptr;
    const std::string expected =
        xmlOf(*layer.color_tex, u"/M/Lacquer/color_texture") +
        xmlOf(*layer.reflectionGlossiness_tex, u"/M/Lacquer/reflection_glossiness_texture") +
        xmlOf(*layer.transparency_tex, u"/M/Lacquer/transparency_texture") +
        ExpectedAsset("/M/Lacquer", "BRDFReflection")
            .color("color", "0.6", "0.5", "0.4")
            .color("transparency", "0.25", "0", "0.5")
            .number("hilightGlossiness", "0.6")
            .number("reflectionGlossiness", "0.7")
            .number("cutoff", "0.02")
            .integer("subdivs", "24")
            .integer("back_side", "2")
            .number("color_tex_mult", "2")
            .number("hilightGlossiness_tex_mult", "0.25")
            .number("reflectionGlossiness_tex_mult", "0.5")
            .number("transparency_tex_mult", "0.125")
            .number("anisotropy", "0.3")
            .number("anisotropy_rotation", "45")
            .plugin("color_tex", "/M/Lacquer/color_texture/TexAColor")
            .plugin("hilightGlossiness_tex", "")
            .plugin("reflectionGlossiness_tex", "/M/Lacquer/reflection_glossiness_texture/TexAColor")
            .plugin("transparency_tex", "/M/Lacquer/transparency_texture/TexAColor")
            .text();
    EXPECT_EQ(xmlOf(layer, u"/M"), expected);
}

}  // namespace
}  // namespace TalvexTest
