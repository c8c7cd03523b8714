// The scene material set: names without regard to case, free names, identifiers, the records.
#include <gtest/gtest.h>

#include <sstream>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "materials/diffuse_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/scene_materials.h"
#include "materials/uuid.h"
#include "support/byte_builder.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {
namespace {

MaterialPtr plain(std::u16string name, std::u16string id = {})
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = std::move(name);
    material->uuid = std::move(id);
    return material;
}

class SceneMaterialsTest : public ::testing::Test {
protected:
    // Clones and new materials take their names from the process-wide set.
    void SetUp() override { sceneMaterials()->clear(); }
    void TearDown() override { sceneMaterials()->clear(); }
    SceneMaterials scene;
};

TEST(NewUuid, IsAVersion4UuidInLowerCaseWithHyphens)
{
    const std::u16string id = newUuid();
    ASSERT_EQ(id.size(), 36u);
    for (std::size_t i = 0; i < id.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            EXPECT_EQ(id[i], u'-');
        } else {
            EXPECT_TRUE((id[i] >= u'0' && id[i] <= u'9') || (id[i] >= u'a' && id[i] <= u'f')) << i;
        }
    }
    EXPECT_EQ(id[14], u'4');
    EXPECT_NE(std::u16string(u"89ab").find(id[19]), std::u16string::npos);
    EXPECT_NE(newUuid(), id);
}

TEST_F(SceneMaterialsTest, NamesAreOneKeyWhateverTheirCase)
{
    ASSERT_TRUE(scene.addMaterial(plain(u"Wood")));
    EXPECT_FALSE(scene.addMaterial(plain(u"WOOD")));
    EXPECT_FALSE(scene.isNameFree(u"wOOd"));
    ASSERT_NE(scene.getMaterial(u"wood"), nullptr);
    EXPECT_EQ(scene.getMaterial(u"wood")->name, u"Wood");
    EXPECT_EQ(scene.materialCount(), 1);
    EXPECT_FALSE(scene.addMaterial(plain(u"")));
    EXPECT_FALSE(scene.addMaterial(nullptr));
}

TEST_F(SceneMaterialsTest, CheckNameTestsFreedomBeforeEmptiness)
{
    std::u16string message = u"old";
    EXPECT_TRUE(scene.checkName(u"Stone", message));
    EXPECT_EQ(message, u"");
    EXPECT_FALSE(scene.checkName(u"", message));
    EXPECT_EQ(message, u"A name must have at least one character");

    scene.addMaterial(plain(u"Wood"));
    EXPECT_FALSE(scene.checkName(u"WOOD", message));
    EXPECT_EQ(message, u"The name, \"WOOD\", is already in use");

    // A material under the empty name makes the empty name one that is in use.
    scene.materials[u""] = plain(u"");
    EXPECT_FALSE(scene.checkName(u"", message));
    EXPECT_EQ(message, u"The name, \"\", is already in use");
}

TEST_F(SceneMaterialsTest, UniqueNameKeepsItsIrregularities)
{
    EXPECT_EQ(scene.uniqueName(u"Marble"), u"Marble");
    EXPECT_EQ(scene.uniqueName(u"2 Sided"), u"a2_Sided");
    EXPECT_EQ(scene.uniqueName(u"Wood12"), u"Wood");

    scene.addMaterial(plain(u"Wood"));
    EXPECT_EQ(scene.uniqueName(u"Wood12"), u"Wood1");
    scene.addMaterial(plain(u"wood1"));
    EXPECT_EQ(scene.uniqueName(u"WOOD"), u"WOOD2");

    // The legal form is not tested again.
    scene.addMaterial(plain(u"my_mat"));
    EXPECT_EQ(scene.uniqueName(u"my mat"), u"my_mat");
    // Digits alone leave nothing but the empty name.
    EXPECT_EQ(scene.uniqueName(u"123"), u"");
    scene.materials[u""] = plain(u"");
    EXPECT_EQ(scene.uniqueName(u"123"), u"a1");
    EXPECT_EQ(SceneMaterials::legalizeName(u"9 lives 2"), u"a9_lives_2");
}

TEST_F(SceneMaterialsTest, AddingKeepsAGivenUuidAndMakesAMissingOne)
{
    const auto named = plain(u"Brick", u"B0A1");
    const auto unnamed = plain(u"Glass");
    ASSERT_TRUE(scene.addMaterial(named));
    ASSERT_TRUE(scene.addMaterial(unnamed));
    EXPECT_EQ(scene.uuidForName(u"BRICK"), u"B0A1");
    EXPECT_EQ(scene.materialForUuid(u"b0a1"), named);
    const std::u16string made = scene.uuidForName(u"Glass");
    EXPECT_EQ(made.size(), 36u);
    EXPECT_EQ(unnamed->uuid, u"");
    EXPECT_EQ(scene.materialForUuid(made), unnamed);
    EXPECT_EQ(scene.materialForUuid(u"nothing"), nullptr);
    EXPECT_EQ(scene.uuidForName(u"nothing"), u"");

    // A uuid already known keeps the name it has.
    ASSERT_TRUE(scene.addMaterial(plain(u"Copy", u"B0A1")));
    EXPECT_EQ(scene.uuids.at(u"B0A1"), u"Brick");
    EXPECT_EQ(scene.materialCount(), -1);
}

TEST_F(SceneMaterialsTest, ReplaceLetsTheUuidFollowTheName)
{
    scene.addMaterial(plain(u"Old", u"ID-1"));
    scene.addMaterial(plain(u"Other", u"ID-2"));

    EXPECT_FALSE(scene.replaceMaterial(u"Old", plain(u"other")));
    EXPECT_FALSE(scene.replaceMaterial(u"Missing", plain(u"Fresh")));
    EXPECT_FALSE(scene.replaceMaterial(u"Old", nullptr));

    const auto renamed = plain(u"New");
    ASSERT_TRUE(scene.replaceMaterial(u"OLD", renamed));
    EXPECT_TRUE(scene.isNameFree(u"Old"));
    EXPECT_EQ(scene.uuidForName(u"New"), u"ID-1");
    EXPECT_EQ(scene.materialForUuid(u"ID-1"), renamed);
    EXPECT_EQ(scene.materialCount(), 2);

    // Another case of the same name changes the key and leaves the identifiers alone.
    ASSERT_TRUE(scene.replaceMaterial(u"New", plain(u"NEW")));
    EXPECT_EQ(scene.materials.find(u"new")->first, u"NEW");
    EXPECT_EQ(scene.uuids.at(u"ID-1"), u"New");
}

TEST_F(SceneMaterialsTest, RemoveTakesTheUuidAlong)
{
    scene.addMaterial(plain(u"Old", u"ID-1"));
    scene.addMaterial(plain(u"Other", u"ID-2"));
    EXPECT_FALSE(scene.removeMaterial(u"Missing"));
    EXPECT_TRUE(scene.removeMaterial(u"OTHER"));
    EXPECT_EQ(scene.uuids.count(u"ID-2"), 0u);
    EXPECT_EQ(scene.materialCount(), 1);
    std::vector<std::u16string> names{u"stale"};
    scene.materialNames(names);
    EXPECT_EQ(names, std::vector<std::u16string>{u"Old"});
}

TEST_F(SceneMaterialsTest, CloneMaterialGivesAFreeNameAndNoUuid)
{
    scene.addMaterial(plain(u"Tile7", u"ID-7"));
    const MaterialPtr copy = scene.cloneMaterial(u"tile7");
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->name, u"Tile");
    EXPECT_EQ(copy->uuid, u"");
    EXPECT_EQ(scene.cloneMaterial(u"none"), nullptr);
}

TEST_F(SceneMaterialsTest, DumpListsNamesThenUuids)
{
    scene.addMaterial(plain(u"b", u"2"));
    scene.addMaterial(plain(u"A", u"1"));
    std::ostringstream narrow;
    scene.dump(narrow);
    EXPECT_EQ(narrow.str(), "A A\nb b\nBeginning UUIDs\n1 A\n2 b\n");
    std::wostringstream wide;
    scene.dump(wide);
    EXPECT_EQ(wide.str(), L"A A\nb b\nBeginning UUIDs\n1 A\n2 b\n");
}

std::shared_ptr<MaterialLayeredBRDF> layered(std::u16string name, std::u16string id = {}, uint32_t aux = 0)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = std::move(name);
    material->uuid = std::move(id);
    material->layered_aux_1 = aux;
    material->brdfs.push_back(std::make_shared<Diffuse_BRDF>());
    return material;
}

// A layered material's record as the set stores it: its type id, then the version 4 record.
TalvexTest::ByteBuilder layeredEntry(const std::string& name, const std::string& id)
{
    TalvexTest::ByteBuilder b;
    b.u32(1).tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).tag(2).str(name).str(id).u32(0);
    return b;
}

TEST_F(SceneMaterialsTest, Version2RecordSurvivesWriteAndRead)
{
    scene.addMaterial(layered(u"Brick", u"id-brick", 3));
    scene.addMaterial(layered(u"Glass", {}, 4));
    const std::u16string glassId = scene.uuidForName(u"Glass");
    QuickArchive out(1);
    ASSERT_TRUE(scene.writeBinary(out));

    SceneMaterials back;
    back.addMaterial(layered(u"Stale"));
    ASSERT_TRUE(back.readBinary(out));
    std::vector<std::u16string> names;
    back.materialNames(names);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Brick", u"Glass"}));
    EXPECT_EQ(back.materialCount(), 2);
    EXPECT_EQ(back.uuidForName(u"Glass"), glassId);
    EXPECT_EQ(back.uuidForName(u"Brick"), u"id-brick");
    EXPECT_TRUE(back.getMaterial(u"glass")->isEqual(scene.getMaterial(u"Glass")));
    EXPECT_FALSE(back.getMaterial(u"glass")->isEqual(scene.getMaterial(u"Brick")));
}

TEST_F(SceneMaterialsTest, Version2TakesItsListsAsStored)
{
    TalvexTest::ByteBuilder b;
    b.tag(2).u32(3).append(layeredEntry("Wood", "w")).append(layeredEntry("WOOD", "w2")).append(layeredEntry("Tile", ""));
    b.u32(1).str("W").str("Wood");
    QuickArchive in = b.archive();
    ASSERT_TRUE(scene.readBinary(in));
    EXPECT_EQ(scene.materials.size(), 2u) << "a repeated name is ignored";
    EXPECT_EQ(scene.getMaterial(u"wood")->uuid, u"w");
    EXPECT_EQ(scene.materialCount(), -1) << "the identifier list is shorter";
    EXPECT_EQ(scene.uuidForName(u"Tile"), u"");
    EXPECT_EQ(scene.materialForUuid(u"w"), scene.getMaterial(u"Wood"));

    TalvexTest::ByteBuilder huge;
    huge.tag(2).u32(0).u32(0x7FFFFFFF).str("a").str("b");
    QuickArchive bad = huge.archive();
    EXPECT_FALSE(scene.readBinary(bad));
    EXPECT_TRUE(scene.materials.empty()) << "each read begins by clearing the set";
}

TEST_F(SceneMaterialsTest, Version1MakesTheIdentifiers)
{
    TalvexTest::ByteBuilder b;
    b.tag(1).u32(2).append(layeredEntry("Wood", "w")).append(layeredEntry("Tile", ""));
    QuickArchive in = b.archive();
    ASSERT_TRUE(scene.readBinary(in));
    EXPECT_EQ(scene.materialCount(), 2);
    EXPECT_EQ(scene.uuidForName(u"Wood"), u"w");
    EXPECT_EQ(scene.uuidForName(u"Tile").size(), 36u);

    TalvexTest::ByteBuilder twice;
    twice.tag(1).u32(2).append(layeredEntry("Wood", "")).append(layeredEntry("wood", ""));
    QuickArchive again = twice.archive();
    EXPECT_FALSE(scene.readBinary(again)) << "in version 1 a repeated name fails the load";

    TalvexTest::ByteBuilder unknown;
    unknown.tag(1).u32(1).u32(15).tag(1);
    QuickArchive third = unknown.archive();
    EXPECT_FALSE(scene.readBinary(third));
    TalvexTest::ByteBuilder lowBits;
    lowBits.u32(0x20001);
    QuickArchive fourth = lowBits.archive();
    EXPECT_FALSE(scene.readBinary(fourth));
}

TEST_F(SceneMaterialsTest, DefaultMaterialIsACloneOfTheHiddenTemplate)
{
    SceneMaterials& shared = *sceneMaterials();
    EXPECT_EQ(shared.getDefaultMaterial(), nullptr);
    ASSERT_TRUE(shared.addDefaultMaterial());
    const auto material = std::dynamic_pointer_cast<MaterialLayeredBRDF>(shared.getDefaultMaterial());
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->name, u"Default_Nuva_Material");
    EXPECT_EQ(material->uuid, u"");
    ASSERT_EQ(material->brdfs.size(), 1u);
    EXPECT_EQ(material->brdfs[0]->name, u"Diffuse");
    EXPECT_TRUE(material->brdfs[0]->isEqual(std::make_shared<Diffuse_BRDF>()));
    EXPECT_FALSE(shared.addDefaultMaterial());
}

TEST_F(SceneMaterialsTest, WriteXmlGivesEachMaterialInNameOrder)
{
    auto b = std::make_shared<MaterialLayeredBRDF>();
    b->name = u"b";
    auto a = std::make_shared<MaterialLayeredBRDF>();
    a->name = u"A";
    scene.addMaterial(b);
    scene.addMaterial(a);
    std::u16string text;
    AssetXmlWriter writer(text);
    scene.writeXml(writer);
    const std::string xml = wideToNarrow(text);
    const auto first = xml.find("url=\"/A\"");
    const auto second = xml.find("url=\"/b\"");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
}

}  // namespace
}  // namespace TalvexCore
