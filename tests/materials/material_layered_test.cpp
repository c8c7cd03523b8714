// The two materials that hold layers: the layered material's records of every version, its old name
// rule, clones, equality and own asset; the single-layer material's records, shared layer, no XML.
#include <gtest/gtest.h>

#include "materials/material_layered_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

std::shared_ptr<MaterialLayeredBRDF> twoLayers()
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = u"Lacquer", material->uuid = u"0c3e-uuid";
    material->brdfs = {createBRDF(2), createBRDF(16)};
    material->double_sided = 0, material->layered_aux_1 = 7, material->layered_aux_2 = 8;
    material->layered_aux_3 = 9, material->layered_aux_4 = 10;
    return material;
}

using MaterialLayered = SceneCleared;
using MaterialSingle = SceneCleared;

// The newest record keeps a stored name even when the scene uses it.
TEST_F(MaterialLayered, NewestRecordSurvivesWriteAndRead)
{
    const auto source = twoLayers();
    sceneMaterials()->addMaterial(twoLayers());
    const ByteBuilder bytes = recordOf(*source);
    const auto back = loadAs<MaterialLayeredBRDF>(1, bytes);
    EXPECT_TRUE(back->isEqual(source) && back->name == u"Lacquer");
    EXPECT_EQ(bytesOf(*back), bytes.bytes);
}

// Version 1 holds a bare name, made unique and not stripped; later versions keep and strip theirs.
TEST_F(MaterialLayered, OlderVersions)
{
    sceneMaterials()->addMaterial(twoLayers());
    bool ok = false;
    const auto load = [&ok](const ByteBuilder& bytes) { return loaded<MaterialLayeredBRDF>(bytes, ok); };
    auto material = load(ByteBuilder().tag(1).u32(1).append(layerEntry(2)).u32(0).u32(5).str("Lacquer"));
    EXPECT_TRUE(ok && material->brdfs.size() == 1 && material->layered_aux_1 == 5);
    EXPECT_EQ(material->name, u"Lacquer1");
    EXPECT_EQ(load(ByteBuilder().tag(1).u32(0).u32(1).u32(0).str("A\tB"))->name, u"A\tB");
    EXPECT_EQ(load(ByteBuilder().tag(1).u32(0).u32(1).u32(0).str(""))->name, u"DefaultMaterial");

    material = load(ByteBuilder().tag(2).u32(0).u32(0).u32(3).tag(2).str("Lacquer\n").str("id-2"));
    EXPECT_TRUE(ok && material->layered_aux_1 == 3 && material->name == u"Lacquer" && material->uuid == u"id-2");
    EXPECT_EQ(material->layered_aux_2, 1u) << "version 2 lacks the second";

    material = load(ByteBuilder().tag(3).u32(0).u32(1).u32(3).u32(4).u32(5).tag(1).str("").u32(77));
    EXPECT_TRUE(ok && material->layered_aux_3 == 5);
    EXPECT_EQ(material->layered_aux_4, 0u) << "version 3 lacks the fourth";
    EXPECT_EQ(material->name, u"DefaultMaterial");

    // Version 4 reads its last integer also behind a refused base record.
    material = load(ByteBuilder().tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).tag(3).u32(99));
    EXPECT_TRUE(!ok && material->layered_aux_4 == 99);
}

// The reset comes before the tag's test; then a layer id between the bits, a count far beyond the
// data and an unknown version end the load.
TEST_F(MaterialLayered, RefusedRecordsEndTheLoad)
{
    auto material = twoLayers();
    EXPECT_FALSE(load(*material, ByteBuilder().u32(0x40001)));
    EXPECT_TRUE(material->brdfs.empty() && material->double_sided == 1 && material->uuid.empty());
    for (const ByteBuilder& bytes : {ByteBuilder().tag(4).u32(1).u32(3).tag(1),
                                     ByteBuilder().tag(4).u32(0xFFFFFFFF).append(layerEntry(2)), ByteBuilder().tag(5)})
        EXPECT_FALSE(load(*createMaterial(1), bytes));
}

// Clones copy every layer and drop the uuid; equality ignores name and uuid, and nothing else.
TEST_F(MaterialLayered, ClonesAndEquality)
{
    const auto source = twoLayers();
    sceneMaterials()->addMaterial(source);
    const auto copy = std::static_pointer_cast<MaterialLayeredBRDF>(source->clone());
    const auto same = std::static_pointer_cast<MaterialLayeredBRDF>(source->cloneSameName());
    EXPECT_EQ(copy->name + u"," + same->name, u"Lacquer1,Lacquer");
    for (const auto& clone : {copy, same}) {
        EXPECT_TRUE(clone->uuid.empty() && clone->isEqual(source));
        EXPECT_TRUE(clone->brdfs[0] != source->brdfs[0] && clone->brdfs[1] != source->brdfs[1]);
    }
    copy->layered_aux_3 = 0;
    EXPECT_FALSE(copy->isEqual(source));
    std::static_pointer_cast<Diffuse_BRDF>(same->brdfs[0])->color = {0, 0, 0};
    EXPECT_FALSE(same->isEqual(source));
    source->brdfs.pop_back();
    EXPECT_FALSE(source->isEqual(twoLayers()));
    EXPECT_FALSE(source->isEqual(nullptr));
}

// The own asset hangs under the prefix, and with no layer its list is empty. Layer names are not
// made unique: two default diffuse layers carry one url.
TEST_F(MaterialLayered, OwnAsset)
{
    MaterialLayeredBRDF material;
    material.name = u"E & Co";
    std::string xml = xmlOf(material, u"/Outer");
    EXPECT_TRUE(has(xml, "type=\"material\" url=\"/Outer/E &amp; Co\" >"));
    EXPECT_TRUE(has(xml, "<value>\n            <list>\n            </list>\n"));
    material.brdfs = {createBRDF(2), createBRDF(2)};
    xml = xmlOf(material, u"");
    for (const std::string piece : {"url=\"/E &amp; Co/BRDFDiffuse\" >", "<entry>/E &amp; Co/BRDFDiffuse</entry>\n"})
        EXPECT_TRUE(has(xml.substr(xml.find(piece) + 1), piece)) << piece;
}

// Version 1 holds a bare name ahead of the layer, and nothing resets the material before it reads.
// A layer that fails is not stored; writing needs the layer. Clones share the layer, and the
// material has no XML.
TEST_F(MaterialSingle, RecordsClonesAndNoXml)
{
    auto source = std::make_shared<MaterialSingleBRDF>();
    source->name = u"Matte", source->uuid = u"id-1", source->single_aux_1 = 3, source->single_aux_2 = 4;
    source->brdf = createBRDF(32);
    auto back = loadAs<MaterialSingleBRDF>(0, recordOf(*source));
    EXPECT_TRUE(back->isEqual(source) && back->name == u"Matte" && back->uuid == u"id-1");

    sceneMaterials()->addMaterial(std::make_shared<MaterialSingleBRDF>());  // "DefaultMaterial"
    ASSERT_TRUE(load(*back, ByteBuilder().tag(1).u32(6).u32(7).str("").append(layerEntry(2))));
    EXPECT_TRUE(back->name == u"DefaultMaterial1" && back->uuid == u"id-1" && back->single_aux_1 == 6);
    for (const ByteBuilder& refused : {ByteBuilder().tag(3), ByteBuilder().tag(2).u32(0).u32(0).u32(64).tag(1)})
        EXPECT_FALSE(load(*back, refused));
    EXPECT_EQ(back->brdf->typeId(), 2u) << "the layer of version 1 stays";
    back->brdf = nullptr;
    QuickArchive out(1);
    EXPECT_FALSE(back->writeBinary(out));

    sceneMaterials()->addMaterial(source);
    const auto copy = std::static_pointer_cast<MaterialSingleBRDF>(source->clone());
    EXPECT_TRUE(copy->name == u"Matte1" && copy->uuid.empty() && copy->brdf == source->brdf);
    EXPECT_EQ(std::static_pointer_cast<MaterialSingleBRDF>(source->cloneSameName())->brdf, source->brdf);
    EXPECT_TRUE(copy->isEqual(source));
    copy->single_aux_2 = 1;
    EXPECT_FALSE(copy->isEqual(source));
    EXPECT_FALSE(MaterialSingleBRDF().isEqual(source));
    EXPECT_TRUE(MaterialSingleBRDF().isEqual(std::make_shared<MaterialSingleBRDF>()));
    EXPECT_EQ(xmlOf(*source, u""), "");
}

}  // namespace
}  // namespace TalvexTest
