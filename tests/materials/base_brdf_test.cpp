// The BRDF base: factory, base record versions, names, refused tags, equality without the name.
#include <gtest/gtest.h>

#include "materials/brdf_test_support.h"
#include "materials/diffuse_brdf.h"
#include "materials/light_brdf.h"

namespace TalvexTest {
namespace {

TEST(BRDFFactory, MakesTheLayerOfEachBitAndNothingElse)
{
    const std::pair<uint32_t, std::u16string> layers[] = {
        {1, u"BRDFRefraction"}, {2, u"BRDFDiffuse"},    {4, u"BRDFReflection"},
        {8, u"BRDFReflection"}, {16, u"BRDFReflection"}, {32, u"BRDFLight"}};
    for (const auto& [id, plugin] : layers) {
        BRDFPtr layer = createBRDF(id);
        ASSERT_TRUE(layer) << id;
        EXPECT_EQ(layer->typeId(), id);
        EXPECT_EQ(layer->pluginType(), plugin);
        EXPECT_EQ(layer->name, plugin) << "the name defaults to the plug-in type";
        EXPECT_TRUE(layer->layer_flag_1 && !layer->layer_flag_2 && !layer->layer_flag_3);
    }
    for (uint32_t id : {0u, 3u, 5u, 64u, 0xFFFFFFFFu}) EXPECT_FALSE(createBRDF(id)) << id;
}

// A version 3 diffuse record ends with the base record, so each base version can be read through it.
ByteBuilder diffuseWithBase(const ByteBuilder& base)
{
    ByteBuilder b;
    b.tag(3).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false).boolean(false).append(base);
    return b;
}

TEST(BRDFBaseRecord, EachVersionAddsOneFlag)
{
    // Every stored flag is the opposite of its default, so what a version lacks shows.
    for (uint32_t version : {1u, 2u, 3u, 4u}) {
        ByteBuilder base;
        base.tag(version).str("Layer");
        for (uint32_t flag = 1; flag < version; ++flag) base.boolean(flag != 1);
        auto layer = loadAs<Diffuse_BRDF>(2, diffuseWithBase(base));
        EXPECT_EQ(layer->name, u"Layer");
        EXPECT_EQ(layer->layer_flag_1, version < 2) << version;
        EXPECT_EQ(layer->layer_flag_2, version >= 3) << version;
        EXPECT_EQ(layer->layer_flag_3, version >= 4) << version;
    }
}

TEST(BRDFBaseRecord, NameLosesControlCharacters)
{
    ByteBuilder base;
    base.tag(1).str("Red\n Lay\ter\x7f");
    EXPECT_EQ(loadAs<Diffuse_BRDF>(2, diffuseWithBase(base))->name, u"Red Layer");
}

// Behind a refused base record the diffuse layer still reads its last flag; the light layer stops.
TEST(BRDFBaseRecord, RefusedBaseRecordFailsTheLoad)
{
    ByteBuilder diffuse;
    diffuse.tag(4).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false).boolean(false).u32(0x50000);
    diffuse.boolean(true);
    bool ok = true;
    auto layer = std::dynamic_pointer_cast<Diffuse_BRDF>(load(2, diffuse, ok));
    EXPECT_FALSE(ok);
    EXPECT_TRUE(layer->use_color_tex_alpha_as_transparency);
    EXPECT_EQ(layer->name, u"BRDFDiffuse");

    ByteBuilder light;
    light.tag(5).color(1, 1, 1).color(0, 0, 0).floats({1, 1, 1, 1}).boolean(false).boolean(false).u32(0x40001);
    light.u32(0);
    auto lamp = std::dynamic_pointer_cast<Light_BRDF>(load(32, light, ok));
    EXPECT_FALSE(ok);
    EXPECT_EQ(lamp->doubleSided, 1u);
}

// A refused tag leaves every class at its defaults, also a layer that held other values.
TEST(BRDFRecord, RefusedTagLeavesTheLayerAtItsDefaults)
{
    const std::pair<uint32_t, uint32_t> firstUnknownVersion[] = {{1, 7}, {2, 5}, {4, 7}, {8, 7}, {16, 6}, {32, 6}};
    for (const auto& [id, unknown] : firstUnknownVersion) {
        for (uint32_t tag : {0x40001u, 0u, unknown << 16}) {
            BRDFPtr layer = createBRDF(id);
            layer->name = u"Earlier";
            layer->layer_flag_2 = true;
            ByteBuilder b;
            b.u32(tag).u32(0);
            QuickArchive in = b.archive();
            EXPECT_FALSE(layer->readBinary(in)) << id << " tag " << tag;
            EXPECT_TRUE(layer->isEqual(createBRDF(id))) << id;
            EXPECT_EQ(layer->name, layer->pluginType()) << id;
            EXPECT_FALSE(layer->layer_flag_2) << id;
            EXPECT_EQ(in.readPosition(), 4u) << "nothing is read beyond the tag";
        }
    }
}

TEST(BRDFRecord, NameAndFlagsTakeNoPartInEquality)
{
    Diffuse_BRDF a, b;
    b.name = u"Other";
    b.layer_flag_1 = false;
    EXPECT_TRUE(a.isEqual(b.clone()));
    b.color_tex_mult = 2;
    EXPECT_FALSE(a.isEqual(b.clone()));
    EXPECT_FALSE(a.isEqual(nullptr));
    EXPECT_FALSE(a.isEqual(std::make_shared<Light_BRDF>()));
}

}  // namespace
}  // namespace TalvexTest
