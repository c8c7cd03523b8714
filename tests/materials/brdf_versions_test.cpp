// Older layer records built by hand: what each version holds, where its children and file names
// stand, the Fresnel upgrade, and the names that only later versions store. The versions in the
// example library's file of old records are held by its golden document and not repeated here.
#include <gtest/gtest.h>

#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

// Version 1 holds no transparency and one file name; version 3 child slots; version 4 the name;
// version 5 doubleSided.
TEST(LightBRDF, EachVersionAddsItsItems)
{
    auto layer = loadAs<Light_BRDF>(32, ByteBuilder().tag(1).color(0.5f, 0.6f, 0.7f).floats({4, 0.5f}).str("glow.png"));
    EXPECT_TRUE(layer->intensity == 4 && layer->transparency_tex_mult == 0.5f && layer->transparency == Color{});
    EXPECT_EQ(bitmapFile(layer->transparency_tex), "glow.png");
    for (uint32_t version : {3u, 4u, 5u}) {
        SCOPED_TRACE(version);
        ByteBuilder b = ByteBuilder().tag(version).color(1, 1, 1).color(0, 0, 0).floats({1, 1, 1, 1}).boolean(false);
        b.append(child(0, 1, 0));
        if (version >= 4) b.append(baseRecord("Lamp"));
        layer = loadAs<Light_BRDF>(32, b.u32(7));
        EXPECT_EQ(std::tuple(acolorOf(layer->transparency_tex), layer->name, layer->doubleSided),
                  std::tuple(AColor{0, 1, 0, 1}, version >= 4 ? u"Lamp" : u"BRDFLight", version >= 5 ? 7u : 1u));
    }
}

// Items 1 to 12, which every version of the refraction record begins with.
ByteBuilder glassHead(uint32_t version)
{
    return ByteBuilder().tag(version).color(0.9f, 0.9f, 0.9f).color(0.4f, 0.5f, 0.6f)
        .floats({1.4f, 1.45f, 0.005f, 2, 0.7f}).u32(6).u32(12).u32(1).u32(0);
}

// Version 2 stores three file names, transparency first. Version 5 is the newest record without the
// base record, so the name stays the default. Loading resets only the name and the flags: what an
// older version lacks keeps the earlier value.
TEST(GlassBRDF, Versions2And5AndAReusedLayer)
{
    auto layer = loadAs<Glass_BRDF>(1, glassHead(2).floats({0.25f, 0.5f, 0.75f}).str("t.png").str("").str("i.png"));
    EXPECT_TRUE(layer->aux_ior == 1.45f && layer->transparency_tex_mult == 0.25f && !layer->glossiness_tex);
    EXPECT_EQ(bitmapFile(layer->transparency_tex) + bitmapFile(layer->ior_texture), "t.pngi.png");

    ByteBuilder v5 = newestRecord(1);
    v5.bytes[2] = 5;  // the version in the tag's high half
    layer = loadAs<Glass_BRDF>(1, v5);
    EXPECT_TRUE(layer->isEqual(loadAs<Glass_BRDF>(1, newestRecord(1))));
    EXPECT_EQ(layer->name, u"BRDFRefraction");

    layer->name = u"Ice";
    EXPECT_TRUE(load(*layer, glassHead(1)));
    EXPECT_TRUE(layer->ior == 1.4f && layer->color_tex_mult == 3 && layer->name == u"BRDFRefraction");
    EXPECT_EQ(layer->transparency, (Color{0.2f, 0.3f, 0.4f}));
}

// Items a to g of versions 1 to 4 of the mirror: the Fresnel index before the cutoff, its switch behind it.
ByteBuilder mirrorHead(uint32_t version, float fresnelIndex, uint32_t fresnelSwitch)
{
    return ByteBuilder().tag(version).color(0.7f, 0.8f, 0.9f).color(0.5f, 0.5f, 0.5f)
        .floats({0.75f, fresnelIndex, 0.02f}).u32(fresnelSwitch).u32(3);
}

// With the legacy switch on, a Fresnel texture of the stored index replaces whatever the slot held.
// Without it, the default Fresnel child of a new mirror does not survive a load of any version.
TEST(MirrorBRDF, Versions1To5AndTheFresnelSwitch)
{
    auto layer = loadAs<Mirror_BRDF>(16, mirrorHead(1, 2.25f, 5).str("fall.png"));
    EXPECT_TRUE(fresnelIor(layer->transparency_tex) == 2.25f && layer->transparency_tex_mult == 0.75f);
    for (uint32_t fresnelSwitch : {0u, 1u}) {
        ByteBuilder v3 = mirrorHead(3, 1.8f, fresnelSwitch).f32(2).append(child(0, 1, 0));
        layer = loadAs<Mirror_BRDF>(16, v3.append(child(1, 0, 0)));
        if (fresnelSwitch) EXPECT_EQ(fresnelIor(layer->transparency_tex), 1.8f);
        else EXPECT_EQ(acolorOf(layer->transparency_tex), (AColor{0, 1, 0, 1}));
        EXPECT_TRUE(acolorOf(layer->color_tex) == (AColor{1, 0, 0, 1}) && layer->mirror_aux_int == 3);
    }
    ByteBuilder v4 = mirrorHead(4, 1.5f, 0).f32(1).boolean(false).boolean(false);
    layer = loadAs<Mirror_BRDF>(16, v4.append(baseRecord("S")));
    EXPECT_TRUE(layer->name == u"S" && !layer->transparency_tex);
    Mirror_BRDF fresh;
    ASSERT_GT(fresnelIor(fresh.transparency_tex), 0);
    ByteBuilder v5 = ByteBuilder().tag(5).color(1, 1, 1).color(1, 1, 1).floats({1, 0.01f}).u32(1).f32(1);
    EXPECT_TRUE(load(fresh, v5.boolean(false).boolean(false).append(baseRecord("M"))) && !fresh.transparency_tex);
}

// Items a to j of versions 1 to 5 of the twin glossy layers: the Fresnel index after the glossiness,
// its switch after the subdivisions.
ByteBuilder glossyHead(uint32_t version, float fresnelIndex, uint32_t fresnelSwitch)
{
    return ByteBuilder().tag(version).color(0.6f, 0.5f, 0.4f).color(1, 1, 1)
        .floats({0.6f, 0.7f, fresnelIndex, 0.02f}).u32(24).u32(fresnelSwitch).u32(1).u32(11);
}

// A new glossy layer holds a Fresnel child, which version 1 with the switch off drops. Version 2
// stores file names; its switch makes a Fresnel texture of its index, the rest at defaults. Version 4
// holds child slots.
TEST(PhongBlinnBRDF, Versions1To4)
{
    Phong_BRDF phong;
    ASSERT_GT(fresnelIor(phong.transparency_tex), 0);
    EXPECT_TRUE(load(phong, glossyHead(1, 1.6f, 0)));
    EXPECT_TRUE(!phong.transparency_tex && phong.back_side == 1 && phong.aux_int == 11);

    ByteBuilder v2 = glossyHead(2, 1.33f, 1).floats({0.5f, 0.25f, 0.75f});
    auto layer = loadAs<Blinn_BRDF>(4, v2.str("c.png").str("").str("r.png"));
    EXPECT_EQ(fresnelIor(layer->transparency_tex), 1.33f);
    EXPECT_EQ(std::static_pointer_cast<FresnelTexture>(layer->transparency_tex)->refract_ior, FresnelTexture().refract_ior);
    EXPECT_TRUE(layer->reflectionGlossiness_tex_mult == 0.75f && !layer->hilightGlossiness_tex);
    EXPECT_EQ(bitmapFile(layer->color_tex) + bitmapFile(layer->reflectionGlossiness_tex), "c.pngr.png");

    ByteBuilder v4 = glossyHead(4, 1.7f, 1).floats({1, 1, 1}).append(child(1, 0, 0)).boolean(false);
    layer = loadAs<Blinn_BRDF>(4, v4.append(child(0, 0, 1)).floats({0.4f, 90}));
    EXPECT_EQ(std::pair(acolorOf(layer->color_tex), acolorOf(layer->reflectionGlossiness_tex)),
              std::pair(AColor{1, 0, 0, 1}, AColor{0, 0, 1, 1}));
    EXPECT_TRUE(layer->anisotropy_rotation == 90 && fresnelIor(layer->transparency_tex) == 1.7f);
    EXPECT_EQ(layer->name, u"BRDFReflection");
}

}  // namespace
}  // namespace TalvexTest
