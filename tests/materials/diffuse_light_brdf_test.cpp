// The diffuse and light layers: their records of every version, clones and XML.
#include <gtest/gtest.h>

#include "materials/brdf_test_support.h"
#include "materials/diffuse_brdf.h"
#include "materials/light_brdf.h"

namespace TalvexTest {
namespace {

std::shared_ptr<Diffuse_BRDF> richDiffuse()
{
    auto layer = std::make_shared<Diffuse_BRDF>();
    layer->name = u"Red \u00e9mail";
    layer->layer_flag_1 = false;
    layer->color = {0.8f, 0.1f, 0.1f};
    layer->transparency = {0.25f, 0.5f, 0.75f};
    layer->color_tex_mult = 0.75f;
    layer->transparency_tex_mult = 2;
    auto fresnel = std::make_shared<FresnelTexture>();
    fresnel->black_color_tex = acolor(0, 0, 1);
    layer->color_tex = fresnel;
    layer->transparency_tex = acolor(0.5f, 0.5f, 0.5f, 0.5f);
    layer->use_color_tex_alpha_as_transparency = true;
    return layer;
}

TEST(DiffuseBRDF, NewestRecordSurvivesWriteReadAndClone)
{
    auto source = richDiffuse();
    BRDFPtr back = roundTrip(*source);
    EXPECT_TRUE(back->isEqual(source));
    EXPECT_EQ(back->name, source->name);
    EXPECT_FALSE(back->layer_flag_1);

    auto copy = std::dynamic_pointer_cast<Diffuse_BRDF>(source->clone());
    EXPECT_TRUE(copy->isEqual(source));
    EXPECT_NE(copy->color_tex, source->color_tex);
    EXPECT_NE(copy->transparency_tex, source->transparency_tex);
    std::dynamic_pointer_cast<AColorTexture>(copy->transparency_tex)->texture.r = 0.9f;
    EXPECT_FALSE(copy->isEqual(source));
}

TEST(DiffuseBRDF, OldVersionsKeepTheDefaultName)
{
    ByteBuilder v1;
    v1.tag(1).color(0.2f, 0.3f, 0.4f).color(0, 0, 0).floats({0.5f, 0.25f}).str("C:\\maps\\wood.png").str("");
    auto layer = loadAs<Diffuse_BRDF>(2, v1);
    EXPECT_EQ(layer->transparency_tex_mult, 0.25f);
    EXPECT_EQ(bitmapFile(layer->color_tex), "C:\\maps\\wood.png");
    EXPECT_FALSE(layer->transparency_tex) << "an empty path gives no texture";
    EXPECT_EQ(layer->name, u"BRDFDiffuse");

    ByteBuilder v2;
    v2.tag(2).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false);
    acolorChild(v2, 0.1f, 0.2f, 0.3f, 0.4f).append(baseRecord("Ignored"));
    layer = loadAs<Diffuse_BRDF>(2, v2);
    EXPECT_EQ(acolorOf(layer->transparency_tex), (AColor{0.1f, 0.2f, 0.3f, 0.4f}));
    EXPECT_EQ(layer->name, u"BRDFDiffuse");
}

TEST(DiffuseBRDF, ChildOfUnknownTypeFailsTheLoad)
{
    ByteBuilder b;
    b.tag(2).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(true).u32(13).tag(1);
    bool ok = true;
    load(2, b, ok);
    EXPECT_FALSE(ok);
}

TEST(DiffuseBRDF, XmlPutsTheChildAheadOfTheLayer)
{
    Diffuse_BRDF layer;
    layer.name = u"Red";
    layer.color = {0.8f, 0.1f, 0.1f};
    layer.color_tex_mult = 0.75f;
    layer.color_tex = acolor(1, 0, 0);
    layer.use_color_tex_alpha_as_transparency = true;
    const std::string expected = xmlOf(*layer.color_tex, u"/Mat/Red/color_texture") +
                                 ExpectedAsset("/Mat/Red", "BRDFDiffuse")
                                     .color("color", "0.8", "0.1", "0.1")
                                     .color("transparency", "0", "0", "0")
                                     .number("color_tex_mult", "0.75")
                                     .number("transparency_tex_mult", "1")
                                     .plugin("color_tex", "/Mat/Red/color_texture/TexAColor")
                                     .plugin("transparency_tex", "")
                                     .flag("use_color_tex_alpha_as_transparency", true)
                                     .text();
    EXPECT_EQ(xmlOf(layer, u"/Mat"), expected);
}

std::shared_ptr<Light_BRDF> richLight()
{
    auto layer = std::make_shared<Light_BRDF>();
    layer->name = u"Glow";
    layer->color = {1, 0.9f, 0.5f};
    layer->transparency = {0.1f, 0.2f, 0.3f};
    layer->intensity = 12;
    layer->aux_mult = 3;
    layer->transparency_tex_mult = 0.5f;
    layer->color_tex_mult = 0.25f;
    layer->color_tex = acolor(1, 1, 0);
    layer->transparency_tex = acolor(0, 0, 0, 0.5f);
    layer->doubleSided = 0;
    return layer;
}

TEST(LightBRDF, NewestRecordSurvivesWriteReadAndClone)
{
    auto source = richLight();
    auto back = std::dynamic_pointer_cast<Light_BRDF>(roundTrip(*source));
    EXPECT_TRUE(back->isEqual(source));
    EXPECT_EQ(back->name, u"Glow");
    back->aux_mult = 1;
    EXPECT_FALSE(back->isEqual(source)) << "the auxiliary multiplier takes part in equality";

    auto copy = std::dynamic_pointer_cast<Light_BRDF>(source->clone());
    EXPECT_TRUE(copy->isEqual(source));
    EXPECT_NE(copy->color_tex, source->color_tex);
    EXPECT_NE(copy->transparency_tex, source->transparency_tex);
}

TEST(LightBRDF, Versions1And2StoreFileNames)
{
    ByteBuilder v1;
    v1.tag(1).color(0.5f, 0.6f, 0.7f).floats({4, 0.5f}).str("glow.png");
    auto layer = loadAs<Light_BRDF>(32, v1);
    EXPECT_EQ(layer->intensity, 4);
    EXPECT_EQ(layer->transparency_tex_mult, 0.5f);
    EXPECT_EQ(layer->transparency, (Color{0, 0, 0})) << "version 1 stores no transparency";
    EXPECT_EQ(bitmapFile(layer->transparency_tex), "glow.png");
    EXPECT_FALSE(layer->color_tex);

    ByteBuilder v2;
    v2.tag(2).color(1, 1, 1).color(0.5f, 0.5f, 0.5f).floats({2, 3, 0.25f, 0.75f}).str("color.png").str("alpha.png");
    layer = loadAs<Light_BRDF>(32, v2);
    EXPECT_EQ(layer->color_tex_mult, 0.25f);
    EXPECT_EQ(bitmapFile(layer->color_tex), "color.png");
    EXPECT_EQ(bitmapFile(layer->transparency_tex), "alpha.png");
    EXPECT_EQ(layer->name, u"BRDFLight");
}

TEST(LightBRDF, NameFromVersion4AndDoubleSidedFromVersion5)
{
    const auto record = [](uint32_t version, uint32_t childType) {
        ByteBuilder b;
        b.tag(version).color(1, 1, 1).color(0, 0, 0).floats({1, 1, 1, 1}).boolean(false);
        b.boolean(true).u32(childType).tag(1).floats({0, 1, 0, 1});
        if (version >= 4) b.append(baseRecord("Lamp"));
        if (version >= 5) b.u32(7);
        return b;
    };
    auto v3 = loadAs<Light_BRDF>(32, record(3, 5));
    EXPECT_EQ(v3->name, u"BRDFLight");
    EXPECT_EQ(acolorOf(v3->transparency_tex), (AColor{0, 1, 0, 1}));
    auto v4 = loadAs<Light_BRDF>(32, record(4, 5));
    EXPECT_EQ(v4->name, u"Lamp");
    EXPECT_EQ(v4->doubleSided, 1u);
    auto v5 = loadAs<Light_BRDF>(32, record(5, 5));
    EXPECT_EQ(v5->doubleSided, 7u);
    EXPECT_NE(xmlOf(*v5, u"").find("label=\"doubleSided\">\n            <value>1</value>"), std::string::npos);

    bool ok = true;
    load(32, record(5, 99), ok);
    EXPECT_FALSE(ok) << "a child of unknown type fails the load";
}

// The transparency child stands under "transp_texture" here, unlike in the other layers.
TEST(LightBRDF, XmlUsesTheShortTransparencyUrlWord)
{
    auto layer = richLight();
    const std::string expected =
        xmlOf(*layer->color_tex, u"/M/Glow/color_texture") + xmlOf(*layer->transparency_tex, u"/M/Glow/transp_texture") +
        ExpectedAsset("/M/Glow", "BRDFLight")
            .color("color", "1", "0.9", "0.5")
            .color("transparency", "0.1", "0.2", "0.3")
            .number("intensity", "12")
            .number("transparency_tex_mult", "0.5")
            .number("color_tex_mult", "0.25")
            .flag("doubleSided", false)
            .plugin("color_tex", "/M/Glow/color_texture/TexAColor")
            .plugin("transparency_tex", "/M/Glow/transp_texture/TexAColor")
            .text();
    EXPECT_EQ(xmlOf(*layer, u"/M"), expected);
}

}  // namespace
}  // namespace TalvexTest
