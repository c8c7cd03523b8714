// The refraction and mirror layers: their records of every version, clones and XML.
#include <gtest/gtest.h>

#include "materials/brdf_test_support.h"
#include "materials/glass_brdf.h"
#include "materials/mirror_brdf.h"

namespace TalvexTest {
namespace {

std::shared_ptr<Glass_BRDF> richGlass()
{
    auto g = std::make_shared<Glass_BRDF>();
    g->name = u"Ice";
    g->color = {0.9f, 0.95f, 1}; g->transparency = {0.2f, 0.3f, 0.4f};
    g->fog_color = {0.5f, 0.6f, 0.7f}; g->translucency = {0.1f, 0.2f, 0.3f};
    g->ior = 1.33f; g->aux_ior = 7.25f; g->cutoff = 0.02f; g->fog_color_mult = 0.5f; g->glossiness = 0.8f;
    g->color_tex_mult = 3; g->transparency_tex_mult = 0.25f; g->glossiness_tex_mult = 0.5f;
    g->ior_tex_mult = 0.75f; g->translucency_tex_mult = 1.5f;
    g->thickness = 20; g->scatter_coeff = 0.125f; g->scatter_direction = -0.5f;
    g->subdivs = 16; g->aux_int = 42; g->affect_shadows = 1; g->affect_alpha = 2; g->translucency_on = 3;
    g->color_tex = acolor(1, 0, 0); g->transparency_tex = acolor(0, 1, 0); g->glossiness_tex = acolor(0, 0, 1);
    g->ior_texture = acolor(1, 1, 0); g->translucency_tex = acolor(0, 1, 1);
    return g;
}

// Items 1 to 12, which every version of the refraction record begins with.
ByteBuilder glassHead(uint32_t version)
{
    ByteBuilder b;
    b.tag(version).color(0.9f, 0.9f, 0.9f).color(0.4f, 0.5f, 0.6f).floats({1.4f, 1.45f, 0.005f, 2, 0.7f});
    b.u32(6).u32(12).u32(1).u32(0);
    return b;
}

TEST(GlassBRDF, NewestRecordSurvivesWriteReadAndClone)
{
    auto source = richGlass();
    auto back = std::dynamic_pointer_cast<Glass_BRDF>(roundTrip(*source));
    EXPECT_TRUE(back->isEqual(source));
    EXPECT_EQ(back->name, u"Ice");
    back->aux_ior = 1.55f;
    EXPECT_FALSE(back->isEqual(source)) << "the auxiliary index takes part in equality";

    auto copy = std::dynamic_pointer_cast<Glass_BRDF>(source->clone());
    EXPECT_TRUE(copy->isEqual(source));
    for (auto slot : {&Glass_BRDF::color_tex, &Glass_BRDF::transparency_tex, &Glass_BRDF::glossiness_tex,
                      &Glass_BRDF::ior_texture, &Glass_BRDF::translucency_tex})
        EXPECT_NE((*copy).*slot, (*source).*slot);
}

TEST(GlassBRDF, Versions1To3StoreFileNamesTransparencyFirst)
{
    auto layer = loadAs<Glass_BRDF>(1, glassHead(1));
    EXPECT_EQ(layer->aux_ior, 1.45f);
    EXPECT_EQ(layer->subdivs, 12u);
    EXPECT_EQ(layer->name, u"BRDFRefraction");

    ByteBuilder v2 = glassHead(2);
    v2.floats({0.25f, 0.5f, 0.75f}).str("t.png").str("").str("i.png");
    layer = loadAs<Glass_BRDF>(1, v2);
    EXPECT_EQ(layer->transparency_tex_mult, 0.25f);
    EXPECT_EQ(layer->color_tex_mult, 1);
    EXPECT_EQ(bitmapFile(layer->transparency_tex), "t.png");
    EXPECT_FALSE(layer->glossiness_tex);
    EXPECT_EQ(bitmapFile(layer->ior_texture), "i.png");

    ByteBuilder v3 = glassHead(3);
    v3.floats({1, 1, 1}).str("").str("g.png").str("").u32(1).floats({50, 0.5f, 0.25f, 2}).color(0.3f, 0.2f, 0.1f);
    v3.str("tr.png");
    layer = loadAs<Glass_BRDF>(1, v3);
    EXPECT_EQ(bitmapFile(layer->glossiness_tex), "g.png");
    EXPECT_EQ(layer->scatter_direction, 0.25f);
    EXPECT_EQ(layer->translucency, (Color{0.3f, 0.2f, 0.1f}));
    EXPECT_EQ(bitmapFile(layer->translucency_tex), "tr.png");
}

TEST(GlassBRDF, Version4HasNoColourTextureAndNoTransparencyColour)
{
    const auto record = [](uint32_t firstChildType) {
        ByteBuilder b = glassHead(4);
        b.floats({0.25f, 0.5f, 0.75f}).u32(1).floats({50, 0.5f, 0.25f, 2}).color(0.3f, 0.2f, 0.1f);
        b.boolean(true).u32(firstChildType).tag(1).floats({1, 0, 0, 1}).boolean(false);
        acolorChild(b, 0, 0, 1).boolean(false);
        return b;
    };
    auto layer = loadAs<Glass_BRDF>(1, record(5));
    EXPECT_EQ(layer->transparency, (Color{0, 0, 0}));
    EXPECT_EQ(layer->transparency_tex_mult, 0.25f);
    EXPECT_FALSE(layer->color_tex);
    EXPECT_EQ(acolorOf(layer->transparency_tex), (AColor{1, 0, 0, 1}));
    EXPECT_EQ(acolorOf(layer->ior_texture), (AColor{0, 0, 1, 1}));

    bool ok = true;
    load(1, record(0xFFFFFFFF), ok);
    EXPECT_FALSE(ok) << "a child of unknown type fails the load";
}

TEST(GlassBRDF, Version5ReadsLikeTheNewestWithoutAName)
{
    auto source = richGlass();
    QuickArchive written(1);
    source->writeBinary(written);
    std::vector<uint8_t> bytes = writtenBytes(written);
    bytes[2] = 5;  // the version in the tag's high half
    QuickArchive in(bytes.data(), bytes.size());
    Glass_BRDF layer;
    EXPECT_TRUE(layer.readBinary(in));
    EXPECT_TRUE(layer.isEqual(source));
    EXPECT_EQ(layer.name, u"BRDFRefraction");
}

// Loading resets only the name and the flags: what an old version lacks keeps the earlier value.
TEST(GlassBRDF, ReusedLayerKeepsWhatAnOldVersionLacks)
{
    auto layer = richGlass();
    QuickArchive in = glassHead(1).archive();
    EXPECT_TRUE(layer->readBinary(in));
    EXPECT_EQ(layer->ior, 1.4f);
    EXPECT_EQ(layer->color_tex_mult, 3);
    EXPECT_EQ(layer->transparency, (Color{0.2f, 0.3f, 0.4f}));
    EXPECT_EQ(acolorOf(layer->color_tex), (AColor{1, 0, 0, 1}));
    EXPECT_EQ(layer->name, u"BRDFRefraction");

    layer->resetDefaults();
    EXPECT_TRUE(layer->isEqual(std::make_shared<Glass_BRDF>()));
}

// The glossiness child stands under "glossy_texture"; the auxiliary values never show.
TEST(GlassBRDF, XmlOfARefractionLayer)
{
    auto layer = richGlass();
    layer->color_tex = nullptr;
    layer->ior_texture = nullptr;
    const std::string expected =
        xmlOf(*layer->transparency_tex, u"/G/Ice/transparency_texture") +
        xmlOf(*layer->glossiness_tex, u"/G/Ice/glossy_texture") +
        xmlOf(*layer->translucency_tex, u"/G/Ice/translucency_texture") +
        ExpectedAsset("/G/Ice", "BRDFRefraction")
            .color("color", "0.9", "0.95", "1").color("transparency", "0.2", "0.3", "0.4")
            .color("fog_color", "0.5", "0.6", "0.7").color("translucency", "0.1", "0.2", "0.3")
            .flag("affect_shadows", true).flag("affect_alpha", true).flag("translucency_on", true)
            .number("ior", "1.33").number("fog_color_mult", "0.5").number("glossiness", "0.8")
            .number("glossiness_tex_mult", "0.5").number("ior_tex_mult", "0.75")
            .number("translucency_tex_mult", "1.5").number("scatter_coeff", "0.125")
            .number("scatter_direction", "-0.5").number("thickness", "20")
            .number("transparency_tex_mult", "0.25").number("cutoff", "0.02").number("color_tex_mult", "3")
            .integer("subdivs", "16")
            .plugin("transparency_tex", "/G/Ice/transparency_texture/TexAColor")
            .plugin("color_tex", "")
            .plugin("glossiness_tex", "/G/Ice/glossy_texture/TexAColor")
            .plugin("ior_texture", "")
            .plugin("translucency_tex", "/G/Ice/translucency_texture/TexAColor")
            .text();
    EXPECT_EQ(xmlOf(*layer, u"/G"), expected);
}

std::shared_ptr<Mirror_BRDF> richMirror()
{
    auto m = std::make_shared<Mirror_BRDF>();
    m->name = u"Chrome";
    m->color = {0.7f, 0.8f, 0.9f}; m->filter_color = {0.5f, 0.25f, 0};
    m->transparency_tex_mult = 0.5f; m->color_tex_mult = 2; m->cutoff = 0.05f; m->mirror_aux_int = 9;
    m->transparency_tex = acolor(0.5f, 0.5f, 0.5f); m->color_tex = acolor(1, 0, 1);
    return m;
}

// Items a to g of versions 1 to 4: the Fresnel index before the cutoff, its switch behind it.
ByteBuilder mirrorHead(uint32_t version, float fresnelIndex, uint32_t fresnelSwitch)
{
    ByteBuilder b;
    b.tag(version).color(0.7f, 0.8f, 0.9f).color(0.5f, 0.5f, 0.5f).floats({0.75f, fresnelIndex, 0.02f});
    b.u32(fresnelSwitch).u32(3);
    return b;
}

TEST(MirrorBRDF, NewestRecordSurvivesWriteReadAndClone)
{
    auto source = richMirror();
    BRDFPtr back = roundTrip(*source);
    EXPECT_TRUE(back->isEqual(source));
    EXPECT_EQ(back->name, u"Chrome");

    auto copy = std::dynamic_pointer_cast<Mirror_BRDF>(source->clone());
    EXPECT_TRUE(copy->isEqual(source));
    EXPECT_NE(copy->transparency_tex, source->transparency_tex);
    EXPECT_NE(copy->color_tex, source->color_tex);
}

TEST(MirrorBRDF, DefaultFresnelChildDoesNotSurviveALoad)
{
    Mirror_BRDF layer;
    const std::string defaults = xmlOf(layer, u"/M");
    const std::string fresnel = xmlOf(*layer.transparency_tex, u"/M/BRDFReflection/transparency_texture");
    EXPECT_EQ(defaults.substr(0, fresnel.size()), fresnel);
    EXPECT_NE(defaults.find("<value>/M/BRDFReflection/transparency_texture/TexFresnel</value>"), std::string::npos);
    EXPECT_NE(defaults.find("label=\"transparency\">\n            <value>\n              <r>0</r>"), std::string::npos);

    const auto record = [](bool colorChild) {
        ByteBuilder b;
        b.tag(5).color(1, 1, 1).color(1, 1, 1).floats({1, 0.01f}).u32(1).f32(1).boolean(false);
        if (colorChild) b.boolean(true).u32(13);
        else b.boolean(false).append(baseRecord("BRDFReflection"));
        return b;
    };
    QuickArchive in = record(false).archive();
    EXPECT_TRUE(layer.readBinary(in));
    EXPECT_FALSE(layer.transparency_tex);
    EXPECT_EQ(xmlOf(layer, u"/M").find("  <Asset"), 0u) << "no child asset stands ahead of the layer";

    bool ok = true;
    load(16, record(true), ok);
    EXPECT_FALSE(ok) << "a child of unknown type fails the load";
}

TEST(MirrorBRDF, Version3SwitchMakesAFresnelTextureOverTheStoredChild)
{
    ByteBuilder b = mirrorHead(3, 1.8f, 1);
    acolorChild(b.f32(2), 0, 1, 0);
    acolorChild(b, 1, 0, 0);
    auto layer = loadAs<Mirror_BRDF>(16, b);
    auto fresnel = std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex);
    ASSERT_TRUE(fresnel);
    EXPECT_EQ(fresnel->fresnel_ior, 1.8f);
    EXPECT_EQ(fresnel->refract_ior, FresnelTexture().refract_ior);
    EXPECT_EQ(acolorOf(layer->color_tex), (AColor{1, 0, 0, 1}));
    EXPECT_EQ(layer->cutoff, 0.02f);
    EXPECT_EQ(layer->mirror_aux_int, 3u);

    b = mirrorHead(3, 1.8f, 0);
    acolorChild(b.f32(2), 0, 1, 0).boolean(false);
    EXPECT_EQ(acolorOf(loadAs<Mirror_BRDF>(16, b)->transparency_tex), (AColor{0, 1, 0, 1}));
}

TEST(MirrorBRDF, OldVersionsStoreFileNamesAndLaterTheName)
{
    ByteBuilder v1 = mirrorHead(1, 2.25f, 5);
    v1.str("fall.png");
    auto layer = loadAs<Mirror_BRDF>(16, v1);
    EXPECT_EQ(std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex)->fresnel_ior, 2.25f);
    EXPECT_EQ(layer->transparency_tex_mult, 0.75f);

    ByteBuilder v2 = mirrorHead(2, 1.5f, 0);
    v2.str("fall.png").f32(0.5f).str("tint.png");
    layer = loadAs<Mirror_BRDF>(16, v2);
    EXPECT_EQ(bitmapFile(layer->transparency_tex), "fall.png");
    EXPECT_EQ(layer->color_tex_mult, 0.5f);
    EXPECT_EQ(bitmapFile(layer->color_tex), "tint.png");
    EXPECT_EQ(layer->name, u"BRDFReflection");

    ByteBuilder v4 = mirrorHead(4, 1.5f, 0);
    v4.f32(1).boolean(false).boolean(false).append(baseRecord("Steel"));
    layer = loadAs<Mirror_BRDF>(16, v4);
    EXPECT_EQ(layer->name, u"Steel");
    EXPECT_FALSE(layer->transparency_tex);
}

// The transparency is the complement of the filter colour, clamped at 0; the stored value stays.
TEST(MirrorBRDF, XmlShowsTheComplementOfTheFilterColour)
{
    auto layer = richMirror();
    layer->filter_color = {1.5f, 0.25f, 1};
    layer->color_tex = nullptr;
    const std::string expected = xmlOf(*layer->transparency_tex, u"/M/Chrome/transparency_texture") +
                                 ExpectedAsset("/M/Chrome", "BRDFReflection")
                                     .color("color", "0.7", "0.8", "0.9")
                                     .color("transparency", "0", "0.75", "0")
                                     .number("color_tex_mult", "2")
                                     .number("transparency_tex_mult", "0.5")
                                     .number("cutoff", "0.05")
                                     .plugin("transparency_tex", "/M/Chrome/transparency_texture/TexAColor")
                                     .plugin("color_tex", "")
                                     .text();
    EXPECT_EQ(xmlOf(*layer, u"/M"), expected);
    EXPECT_EQ(layer->filter_color, (Color{1.5f, 0.25f, 1}));
}

}  // namespace
}  // namespace TalvexTest
