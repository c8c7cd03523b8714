// The single-layer material: its two record versions, no reset on read, the shared layer.
#include <gtest/gtest.h>

#include "archive/quick_archive.h"
#include "materials/diffuse_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/scene_materials.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

ByteBuilder defaultDiffuseLayer()
{
    QuickArchive out(1);
    Diffuse_BRDF().writeBinary(out);
    const auto bytes = writtenBytes(out);
    ByteBuilder b;
    b.u32(2);
    return b.raw(bytes.data(), bytes.size());
}

class MaterialSingle : public ::testing::Test {
protected:
    void SetUp() override { sceneMaterials()->clear(); }
    void TearDown() override { sceneMaterials()->clear(); }
};

TEST_F(MaterialSingle, NewestRecordSurvivesWriteAndRead)
{
    MaterialSingleBRDF source;
    source.name = u"Matte";
    source.uuid = u"id-1";
    source.single_aux_1 = 3;
    source.single_aux_2 = 4;
    auto layer = std::make_shared<Diffuse_BRDF>();
    layer->color = {0.1f, 0.2f, 0.3f};
    source.brdf = layer;

    QuickArchive out(1);
    ASSERT_TRUE(source.writeBinary(out));
    MaterialSingleBRDF back;
    ASSERT_TRUE(back.readBinary(out));
    EXPECT_TRUE(back.isEqual(std::make_shared<MaterialSingleBRDF>(source)));
    EXPECT_EQ(back.name, u"Matte");
    EXPECT_EQ(back.uuid, u"id-1");
    EXPECT_EQ(back.single_aux_2, 4u);

    source.brdf = nullptr;
    QuickArchive empty(1);
    EXPECT_FALSE(source.writeBinary(empty)) << "the layer must be present";
}

TEST_F(MaterialSingle, Version1HasABareNameAheadOfTheLayerAndNoReset)
{
    sceneMaterials()->addMaterial(std::make_shared<MaterialSingleBRDF>());  // "DefaultMaterial"
    ByteBuilder b;
    b.tag(1).u32(6).u32(7).str("").append(defaultDiffuseLayer());
    MaterialSingleBRDF material;
    material.uuid = u"kept";
    QuickArchive in = b.archive();
    ASSERT_TRUE(material.readBinary(in));
    EXPECT_EQ(material.name, u"DefaultMaterial1");
    EXPECT_EQ(material.uuid, u"kept") << "nothing resets the material before it reads";
    EXPECT_EQ(material.single_aux_1, 6u);
    ASSERT_NE(material.brdf, nullptr);
    EXPECT_EQ(material.brdf->typeId(), 2u);

    ByteBuilder refused;
    refused.tag(3);
    QuickArchive again = refused.archive();
    EXPECT_FALSE(material.readBinary(again));
    EXPECT_EQ(material.single_aux_1, 6u);

    ByteBuilder noLayer;
    noLayer.tag(2).u32(0).u32(0).u32(64).tag(1);
    QuickArchive third = noLayer.archive();
    EXPECT_FALSE(material.readBinary(third));
    EXPECT_NE(material.brdf, nullptr) << "a layer that fails is not stored";
}

TEST_F(MaterialSingle, ClonesShareTheLayer)
{
    auto source = std::make_shared<MaterialSingleBRDF>();
    source->name = u"Matte";
    source->uuid = u"id";
    source->brdf = std::make_shared<Diffuse_BRDF>();
    sceneMaterials()->addMaterial(source);

    const auto copy = std::static_pointer_cast<MaterialSingleBRDF>(source->clone());
    EXPECT_EQ(copy->name, u"Matte1");
    EXPECT_EQ(copy->uuid, u"");
    EXPECT_EQ(copy->brdf, source->brdf);
    EXPECT_EQ(std::static_pointer_cast<MaterialSingleBRDF>(source->cloneSameName())->brdf, source->brdf);
    EXPECT_TRUE(copy->isEqual(source));

    auto bare = std::make_shared<MaterialSingleBRDF>();
    EXPECT_FALSE(bare->isEqual(source));
    EXPECT_TRUE(bare->isEqual(std::make_shared<MaterialSingleBRDF>()));
    copy->single_aux_2 = 1;
    EXPECT_FALSE(copy->isEqual(source));
}

TEST_F(MaterialSingle, HasNoXml)
{
    MaterialSingleBRDF material;
    material.brdf = std::make_shared<Diffuse_BRDF>();
    std::u16string text;
    AssetXmlWriter writer(text);
    material.writeXml(writer, u"");
    EXPECT_EQ(text, u"");
    EXPECT_EQ(material.pluginType(), u"MtlSingleBRDF");
}

}  // namespace
}  // namespace TalvexTest
