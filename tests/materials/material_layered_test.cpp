// The layered material: its record of every version, the old name rule, clones, equality, XML.
#include <gtest/gtest.h>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "materials/diffuse_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/mirror_brdf.h"
#include "materials/scene_materials.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

// One layer as a list holds it: its type id, then the record a default diffuse layer writes.
ByteBuilder defaultDiffuseLayer()
{
    QuickArchive out(1);
    Diffuse_BRDF().writeBinary(out);
    ByteBuilder b;
    b.u32(2);
    const auto bytes = writtenBytes(out);
    return b.raw(bytes.data(), bytes.size());
}

std::shared_ptr<MaterialLayeredBRDF> load(const ByteBuilder& bytes, bool& ok)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    QuickArchive in = bytes.archive();
    ok = material->readBinary(in);
    return material;
}

std::shared_ptr<MaterialLayeredBRDF> twoLayers()
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = u"Lacquer";
    material->uuid = u"0c3e-uuid";
    auto base = std::make_shared<Diffuse_BRDF>();
    base->color = {0.8f, 0.2f, 0.1f};
    material->brdfs = {base, std::make_shared<Mirror_BRDF>()};
    material->double_sided = 0;
    material->layered_aux_1 = 7;
    material->layered_aux_2 = 8;
    material->layered_aux_3 = 9;
    material->layered_aux_4 = 10;
    return material;
}

class MaterialLayered : public ::testing::Test {
protected:
    void SetUp() override { sceneMaterials()->clear(); }
    void TearDown() override { sceneMaterials()->clear(); }
};

TEST_F(MaterialLayered, NewMaterialTakesAFreeName)
{
    EXPECT_EQ(MaterialLayeredBRDF().name, u"DefaultMaterial");
    sceneMaterials()->addMaterial(std::make_shared<MaterialLayeredBRDF>());
    EXPECT_EQ(MaterialLayeredBRDF().name, u"DefaultMaterial1");
}

TEST_F(MaterialLayered, NewestRecordSurvivesWriteAndRead)
{
    const auto source = twoLayers();
    QuickArchive out(1);
    ASSERT_TRUE(source->writeBinary(out));
    const auto bytes = writtenBytes(out);
    ASSERT_GE(bytes.size(), 8u);
    EXPECT_EQ(bytes[2], 4);  // tag 0x40000
    EXPECT_EQ(bytes[4], 2);  // two layers

    // The stored name is in use in the scene and is kept all the same.
    sceneMaterials()->addMaterial(twoLayers());
    MaterialLayeredBRDF back;
    ASSERT_TRUE(back.readBinary(out));
    EXPECT_TRUE(back.isEqual(source));
    EXPECT_TRUE(source->isEqual(std::make_shared<MaterialLayeredBRDF>(back)));
    EXPECT_EQ(back.name, u"Lacquer");
    EXPECT_EQ(back.uuid, u"0c3e-uuid");
    EXPECT_EQ(back.layered_aux_4, 10u);
    ASSERT_EQ(back.brdfs.size(), 2u);
    EXPECT_EQ(back.brdfs[1]->typeId(), 16u);
}

TEST_F(MaterialLayered, Version1NameIsMadeUniqueAndNotStripped)
{
    sceneMaterials()->addMaterial(twoLayers());
    ByteBuilder b;
    b.tag(1).u32(1).append(defaultDiffuseLayer()).u32(0).u32(5).str("Lacquer");
    bool ok = false;
    auto material = load(b, ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(material->name, u"Lacquer1");
    EXPECT_EQ(material->brdfs.size(), 1u);
    EXPECT_EQ(material->double_sided, 0u);
    EXPECT_EQ(material->layered_aux_1, 5u);
    EXPECT_EQ(material->layered_aux_2, 1u) << "version 1 lacks it";
    EXPECT_EQ(material->layered_aux_3, 1u);

    ByteBuilder tab;
    tab.tag(1).u32(0).u32(1).u32(0).str("A\tB");
    EXPECT_EQ(load(tab, ok)->name, u"A\tB");
    ByteBuilder empty;
    empty.tag(1).u32(0).u32(1).u32(0).str("");
    EXPECT_EQ(load(empty, ok)->name, u"DefaultMaterial");
}

TEST_F(MaterialLayered, Versions2And3ReadTheBaseRecordAndKeepTheName)
{
    sceneMaterials()->addMaterial(twoLayers());
    ByteBuilder v2;
    v2.tag(2).u32(0).u32(0).u32(3).tag(2).str("Lacquer\n").str("id-2");
    bool ok = false;
    auto material = load(v2, ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(material->name, u"Lacquer");
    EXPECT_EQ(material->uuid, u"id-2");
    EXPECT_EQ(material->layered_aux_1, 3u);
    EXPECT_EQ(material->layered_aux_2, 1u);

    ByteBuilder v3;
    v3.tag(3).u32(0).u32(1).u32(3).u32(4).u32(5).tag(1).str("").u32(77);
    material = load(v3, ok);
    ASSERT_TRUE(ok);
    EXPECT_EQ(material->layered_aux_2, 4u);
    EXPECT_EQ(material->layered_aux_3, 5u);
    EXPECT_EQ(material->layered_aux_4, 0u) << "version 3 lacks it";
    EXPECT_EQ(material->name, u"DefaultMaterial");
    EXPECT_EQ(material->uuid, u"");
}

TEST_F(MaterialLayered, Version4ReadsTheLastIntegerAfterAFailedBaseRecord)
{
    ByteBuilder b;
    b.tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).tag(3).u32(99);
    bool ok = true;
    auto material = load(b, ok);
    EXPECT_FALSE(ok);
    EXPECT_EQ(material->layered_aux_4, 99u);
}

TEST_F(MaterialLayered, RefusedRecordsEndTheLoad)
{
    auto material = twoLayers();
    ByteBuilder lowBits;
    lowBits.u32(0x40001);
    QuickArchive in = lowBits.archive();
    EXPECT_FALSE(material->readBinary(in));
    EXPECT_TRUE(material->brdfs.empty()) << "the reset comes before the test";
    EXPECT_EQ(material->double_sided, 1u);
    EXPECT_EQ(material->uuid, u"");

    bool ok = true;
    ByteBuilder between;
    between.tag(4).u32(1).u32(3).tag(1);
    load(between, ok);
    EXPECT_FALSE(ok) << "type id 3 lies between the layer bits";

    ByteBuilder huge;
    huge.tag(4).u32(0xFFFFFFFF).append(defaultDiffuseLayer());
    load(huge, ok);
    EXPECT_FALSE(ok);

    ByteBuilder fifth;
    fifth.tag(5);
    load(fifth, ok);
    EXPECT_FALSE(ok);
}

TEST_F(MaterialLayered, ClonesCopyTheLayersAndDropTheUuid)
{
    const auto source = twoLayers();
    sceneMaterials()->addMaterial(source);

    const MaterialPtr copy = source->clone();
    EXPECT_EQ(copy->name, u"Lacquer1");
    EXPECT_EQ(copy->uuid, u"");
    EXPECT_TRUE(copy->isEqual(source));
    const auto& layers = dynamic_cast<const MaterialLayeredBRDF&>(*copy).brdfs;
    ASSERT_EQ(layers.size(), 2u);
    EXPECT_NE(layers[0], source->brdfs[0]);
    EXPECT_TRUE(layers[0]->isEqual(source->brdfs[0]));

    const MaterialPtr same = source->cloneSameName();
    EXPECT_EQ(same->name, u"Lacquer");
    EXPECT_EQ(same->uuid, u"");
    EXPECT_NE(dynamic_cast<const MaterialLayeredBRDF&>(*same).brdfs[1], source->brdfs[1]);
}

TEST_F(MaterialLayered, EqualityIgnoresNameAndUuidOnly)
{
    const auto a = twoLayers();
    auto b = twoLayers();
    b->name = u"Other";
    b->uuid = u"other";
    EXPECT_TRUE(a->isEqual(b));
    b->layered_aux_3 = 0;
    EXPECT_FALSE(a->isEqual(b));
    b = twoLayers();
    std::static_pointer_cast<Diffuse_BRDF>(b->brdfs[0])->color = {0, 0, 0};
    EXPECT_FALSE(a->isEqual(b));
    b->brdfs.pop_back();
    EXPECT_FALSE(a->isEqual(b));
    EXPECT_FALSE(a->isEqual(nullptr));
}

TEST_F(MaterialLayered, OwnAssetHangsUnderThePrefix)
{
    MaterialLayeredBRDF material;
    material.name = u"Empty & Co";
    std::u16string text;
    AssetXmlWriter writer(text);
    material.writeXml(writer, u"/Outer");
    EXPECT_EQ(wideToNarrow(text),
              "  <Asset layout=\"defnumat\" renderer=\"nuva\" type=\"material\" url=\"/Outer/Empty &amp; Co\" >\n"
              "    <plugin>\n"
              "      <nuvaplugin name=\"MtlTALVEX\" type=\"material\">\n"
              "        <parameters>\n"
              "          <parameter type=\"integer\" name=\"double_sided\" handler=\"default\" listType=\"none\" label=\"double_sided\">\n"
              "            <value>1</value>\n"
              "          </parameter>\n"
              "          <parameter type=\"list\" name=\"brdfs\" handler=\"default\" listType=\"plugin\" label=\"brdfs\">\n"
              "            <value>\n"
              "            <list>\n"
              "            </list>\n"
              "            </value>\n"
              "          </parameter>\n"
              "        </parameters>\n"
              "      </nuvaplugin>\n"
              "    </plugin>\n"
              "  </Asset>\n");
}

TEST_F(MaterialLayered, TwoDefaultDiffuseLayersShareAUrl)
{
    MaterialLayeredBRDF material;
    material.name = u"Twice";
    material.brdfs = {std::make_shared<Diffuse_BRDF>(), std::make_shared<Diffuse_BRDF>()};
    std::u16string text;
    AssetXmlWriter writer(text);
    material.writeXml(writer, u"");
    const std::string xml = wideToNarrow(text);
    const std::string asset = "url=\"/Twice/BRDFDiffuse\" >";
    const auto first = xml.find(asset);
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(xml.find(asset, first + 1), std::string::npos);
    const std::string entry = "<entry>/Twice/BRDFDiffuse</entry>\n";
    const auto firstEntry = xml.find(entry);
    ASSERT_NE(firstEntry, std::string::npos);
    EXPECT_NE(xml.find(entry, firstEntry + 1), std::string::npos);
}

}  // namespace
}  // namespace TalvexTest
