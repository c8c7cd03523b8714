// The BRDF base: factory, base record versions, names, refused tags, the shared XML pattern.
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
        EXPECT_EQ(layer->assetType(), u"BRDF");
        EXPECT_EQ(layer->name, plugin) << "the name defaults to the plug-in type";
        EXPECT_TRUE(layer->layer_flag_1);
        EXPECT_FALSE(layer->layer_flag_2 || layer->layer_flag_3);
    }
    for (uint32_t id : {0u, 3u, 5u, 64u, 0xFFFFFFFFu}) EXPECT_FALSE(createBRDF(id)) << id;
}

// A version 3 diffuse record ends with the base record, so its versions can be read through it.
ByteBuilder diffuseWithBase(const ByteBuilder& base)
{
    ByteBuilder b;
    b.tag(3).color(0.1f, 0.2f, 0.3f).color(0, 0, 0).floats({1, 1}).boolean(false).boolean(false).append(base);
    return b;
}

TEST(BRDFBaseRecord, EachVersionAddsOneFlag)
{
    struct Case {
        uint32_t version;
        bool flag1, flag2, flag3;
    };
    // Every stored flag is the opposite of its default, so what a version lacks shows.
    for (const Case& c : {Case{1, true, false, false}, Case{2, false, false, false}, Case{3, false, true, false},
                          Case{4, false, true, true}}) {
        ByteBuilder base;
        base.tag(c.version).str("Layer");
        if (c.version >= 2) base.boolean(false);
        if (c.version >= 3) base.boolean(true);
        if (c.version >= 4) base.boolean(true);
        auto layer = loadAs<Diffuse_BRDF>(2, diffuseWithBase(base));
        EXPECT_EQ(layer->name, u"Layer") << c.version;
        EXPECT_EQ(layer->layer_flag_1, c.flag1) << c.version;
        EXPECT_EQ(layer->layer_flag_2, c.flag2) << c.version;
        EXPECT_EQ(layer->layer_flag_3, c.flag3) << c.version;
    }
}

TEST(BRDFBaseRecord, NameLosesControlCharacters)
{
    ByteBuilder base;
    base.tag(1).str("Red\n Lay\ter\x7f");
    EXPECT_EQ(loadAs<Diffuse_BRDF>(2, diffuseWithBase(base))->name, u"Red Layer");
}

TEST(BRDFBaseRecord, RefusedBaseRecordFailsTheLoadWithTheDefaultName)
{
    for (uint32_t tag : {0x40001u, 0x50000u}) {
        ByteBuilder base;
        base.u32(tag).str("Layer");
        bool ok = true;
        BRDFPtr layer = load(2, diffuseWithBase(base), ok);
        EXPECT_FALSE(ok);
        EXPECT_EQ(layer->name, u"BRDFDiffuse");
    }
}

TEST(BRDFBaseRecord, DiffuseReadsItsLastFlagEvenBehindAFailedBase)
{
    ByteBuilder b;
    b.tag(4).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false).boolean(false).u32(0x50000).boolean(true);
    bool ok = true;
    auto layer = std::dynamic_pointer_cast<Diffuse_BRDF>(load(2, b, ok));
    EXPECT_FALSE(ok);
    EXPECT_TRUE(layer->use_color_tex_alpha_as_transparency);
}

TEST(BRDFBaseRecord, LightStopsAtAFailedBase)
{
    ByteBuilder b;
    b.tag(5).color(1, 1, 1).color(0, 0, 0).floats({1, 1, 1, 1}).boolean(false).boolean(false).u32(0x40001).u32(0);
    bool ok = true;
    auto layer = std::dynamic_pointer_cast<Light_BRDF>(load(32, b, ok));
    EXPECT_FALSE(ok);
    EXPECT_EQ(layer->doubleSided, 1u);
}

// A refused tag leaves every class at its defaults, also a layer that held other values.
TEST(BRDFRecord, RefusedTagLeavesTheLayerAtItsDefaults)
{
    for (uint32_t id : {1u, 2u, 4u, 8u, 16u, 32u}) {
        BRDFPtr layer = createBRDF(id);
        layer->name = u"Earlier";
        layer->layer_flag_2 = true;
        ByteBuilder b;
        b.u32(0x40001);
        QuickArchive in = b.archive();
        EXPECT_FALSE(layer->readBinary(in)) << id;
        EXPECT_TRUE(layer->isEqual(createBRDF(id))) << id;
        EXPECT_EQ(layer->name, layer->pluginType()) << id;
        EXPECT_FALSE(layer->layer_flag_2) << id;
        EXPECT_EQ(in.readPosition(), 4u) << "nothing is read beyond the tag";
    }
}

TEST(BRDFRecord, UnknownVersionsAreRefused)
{
    const std::pair<uint32_t, uint32_t> firstUnknown[] = {{1, 7}, {2, 5}, {4, 7}, {8, 7}, {16, 6}, {32, 6}};
    for (const auto& [id, version] : firstUnknown) {
        for (uint32_t v : {0u, version}) {
            ByteBuilder b;
            b.tag(v);
            bool ok = true;
            load(id, b, ok);
            EXPECT_FALSE(ok) << id << " version " << v;
        }
    }
}

TEST(BRDFRecord, NameAndFlagsTakeNoPartInEquality)
{
    Diffuse_BRDF a, b;
    b.name = u"Other";
    b.layer_flag_1 = false;
    b.layer_flag_3 = true;
    EXPECT_TRUE(a.isEqual(b.clone()));
    b.color_tex_mult = 2;
    EXPECT_FALSE(a.isEqual(b.clone()));
    EXPECT_FALSE(a.isEqual(nullptr));
    EXPECT_FALSE(a.isEqual(std::make_shared<Light_BRDF>()));
}

TEST(BRDFXml, TheBaseEmitsNothingAndTheUrlIsEscaped)
{
    Diffuse_BRDF layer;
    layer.name = u"Salt & Pepper";
    EXPECT_NE(xmlOf(layer, u"/Mat").find("url=\"/Mat/Salt &amp; Pepper\" >"), std::string::npos);

    std::u16string text;
    AssetXmlWriter writer(text);
    layer.Base_BRDF::writeXml(writer, u"/Mat");
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(layer.Base_BRDF::pluginType().empty());
}

}  // namespace
}  // namespace TalvexTest
