// The twin glossy layers: their records of every version, the Fresnel upgrade, clones and XML.
#include <gtest/gtest.h>

#include "materials/brdf_test_support.h"
#include "materials/phong_blinn_brdf.h"

namespace TalvexTest {
namespace {

constexpr uint32_t phongId = 8;
constexpr uint32_t blinnId = 4;

void makeRich(Glossy_BRDF& l)
{
    l.name = u"Lacquer";
    l.color = {0.6f, 0.5f, 0.4f}; l.filter_color = {0.75f, 1.25f, 0.5f};
    l.hilightGlossiness = 0.6f; l.reflectionGlossiness = 0.7f; l.cutoff = 0.02f;
    l.hilightGlossiness_tex_mult = 0.25f; l.reflectionGlossiness_tex_mult = 0.5f;
    l.color_tex_mult = 2; l.transparency_tex_mult = 0.125f; l.anisotropy = 0.3f; l.anisotropy_rotation = 45;
    l.subdivs = 24; l.aux_int = 11; l.back_side = 2;
    l.hilightGlossiness_tex = acolor(0.1f, 0.1f, 0.1f); l.reflectionGlossiness_tex = acolor(0.2f, 0.2f, 0.2f);
    l.color_tex = acolor(0.3f, 0.3f, 0.3f); l.transparency_tex = acolor(0.4f, 0.4f, 0.4f);
}

// Items a to j of versions 1 to 5: the Fresnel index after the glossiness, its switch after the subdivisions.
ByteBuilder glossyHead(uint32_t version, float fresnelIndex, uint32_t fresnelSwitch)
{
    ByteBuilder b;
    b.tag(version).color(0.6f, 0.5f, 0.4f).color(1, 1, 1).floats({0.6f, 0.7f, fresnelIndex, 0.02f});
    b.u32(24).u32(fresnelSwitch).u32(1).u32(11);
    return b;
}

TEST(PhongBlinnBRDF, NewestRecordSurvivesWriteReadAndClone)
{
    for (uint32_t id : {phongId, blinnId}) {
        BRDFPtr source = createBRDF(id);
        makeRich(dynamic_cast<Glossy_BRDF&>(*source));
        BRDFPtr back = roundTrip(*source);
        EXPECT_EQ(back->typeId(), id);
        EXPECT_TRUE(back->isEqual(source)) << id;
        EXPECT_EQ(back->name, u"Lacquer");

        auto copy = std::dynamic_pointer_cast<Glossy_BRDF>(source->clone());
        const auto& original = dynamic_cast<const Glossy_BRDF&>(*source);
        EXPECT_EQ(copy->typeId(), id);
        EXPECT_TRUE(copy->isEqual(source));
        EXPECT_NE(copy->color_tex, original.color_tex);
        EXPECT_NE(copy->hilightGlossiness_tex, original.hilightGlossiness_tex);
        EXPECT_NE(copy->reflectionGlossiness_tex, original.reflectionGlossiness_tex);
        EXPECT_NE(copy->transparency_tex, original.transparency_tex);
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
    EXPECT_EQ(layer.name, u"BRDFReflection");
}

TEST(PhongBlinnBRDF, Versions2And3StoreFileNames)
{
    ByteBuilder v2 = glossyHead(2, 1.33f, 1);
    v2.floats({0.5f, 0.25f, 0.75f}).str("c.png").str("").str("r.png");
    auto layer = loadAs<Blinn_BRDF>(blinnId, v2);
    auto fresnel = std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex);
    ASSERT_TRUE(fresnel);
    EXPECT_EQ(fresnel->fresnel_ior, 1.33f);
    EXPECT_EQ(fresnel->refract_ior, FresnelTexture().refract_ior);
    EXPECT_EQ(layer->transparency_tex_mult, 1);
    EXPECT_EQ(layer->reflectionGlossiness_tex_mult, 0.75f);
    EXPECT_EQ(bitmapFile(layer->color_tex), "c.png");
    EXPECT_FALSE(layer->hilightGlossiness_tex);
    EXPECT_EQ(bitmapFile(layer->reflectionGlossiness_tex), "r.png");

    ByteBuilder v3 = glossyHead(3, 1.5f, 0);
    v3.floats({1, 1, 1}).str("").str("h.png").str("").floats({0.4f, 90});
    layer = loadAs<Blinn_BRDF>(blinnId, v3);
    EXPECT_EQ(bitmapFile(layer->hilightGlossiness_tex), "h.png");
    EXPECT_EQ(layer->anisotropy_rotation, 90);
    EXPECT_FALSE(layer->transparency_tex);
}

TEST(PhongBlinnBRDF, Versions4And5HoldChildSlotsAndVersion5TheName)
{
    const auto record = [](uint32_t version, uint32_t childType) {
        ByteBuilder b = glossyHead(version, 1.7f, 1);
        acolorChild(b.floats({1, 1, 1}), 1, 0, 0).boolean(false);
        b.boolean(true).u32(childType).tag(1).floats({0, 0, 1, 1}).floats({0.4f, 90});
        if (version == 5) b.append(baseRecord("Varnish"));
        return b;
    };
    for (uint32_t version : {4u, 5u}) {
        auto layer = loadAs<Phong_BRDF>(phongId, record(version, 5));
        EXPECT_EQ(acolorOf(layer->color_tex), (AColor{1, 0, 0, 1}));
        EXPECT_EQ(acolorOf(layer->reflectionGlossiness_tex), (AColor{0, 0, 1, 1}));
        EXPECT_EQ(layer->anisotropy_rotation, 90);
        EXPECT_EQ(std::dynamic_pointer_cast<FresnelTexture>(layer->transparency_tex)->fresnel_ior, 1.7f);
        EXPECT_EQ(layer->name, version == 5 ? u"Varnish" : u"BRDFReflection");
    }
    bool ok = true;
    load(blinnId, record(4, 64), ok);
    EXPECT_FALSE(ok) << "a child of unknown type fails the load";
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
            .color("color", "0.6", "0.5", "0.4").color("transparency", "0.25", "0", "0.5")
            .number("hilightGlossiness", "0.6").number("reflectionGlossiness", "0.7").number("cutoff", "0.02")
            .integer("subdivs", "24").integer("back_side", "2")
            .number("color_tex_mult", "2").number("hilightGlossiness_tex_mult", "0.25")
            .number("reflectionGlossiness_tex_mult", "0.5").number("transparency_tex_mult", "0.125")
            .number("anisotropy", "0.3").number("anisotropy_rotation", "45")
            .plugin("color_tex", "/M/Lacquer/color_texture/TexAColor")
            .plugin("hilightGlossiness_tex", "")
            .plugin("reflectionGlossiness_tex", "/M/Lacquer/reflection_glossiness_texture/TexAColor")
            .plugin("transparency_tex", "/M/Lacquer/transparency_texture/TexAColor")
            .text();
    EXPECT_EQ(xmlOf(layer, u"/M"), expected);
}

}  // namespace
}  // namespace TalvexTest
