// The scene material set: names without regard to case, free names, identifiers, the records.
#include <gtest/gtest.h>

#include "materials/material_layered_brdf.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

std::shared_ptr<MaterialLayeredBRDF> layered(const std::u16string& name, const std::u16string& id = {},
                                             uint32_t aux = 0)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = name, material->uuid = id, material->layered_aux_1 = aux;
    return material;
}

// A layered material's entry as the set stores it: its type id, then the version 4 record.
ByteBuilder entry(const std::string& name, const std::string& id)
{
    return ByteBuilder().u32(1).tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).tag(2).str(name).str(id).u32(0);
}

using SceneMaterialsTest = SceneCleared;

// Names the set makes and names a user types, step by step as materials come in. A unique name
// loses its trailing digits and gains a counter from 1, and its legal form is not tested for freedom
// again. A typed name is tested for freedom before emptiness, so a material under the empty name
// changes the message.
TEST_F(SceneMaterialsTest, UniqueAndCheckedNamesKeepTheirIrregularities)
{
    struct Step {
        const char16_t* added;  // a material that comes in first, or none
        std::u16string name, unique, message;
    };
    const Step steps[] = {
        {nullptr, u"Marble", u"Marble", u""},
        {nullptr, u"2 Sided", u"a2_Sided", u""},
        {nullptr, u"", u"", u"A name must have at least one character"},
        {u"Wood", u"Wood12", u"Wood1", u""},
        {u"wood1", u"WOOD", u"WOOD2", u"The name, \"WOOD\", is already in use"},
        {u"my_mat", u"my mat", u"my_mat", u""},
        {nullptr, u"123", u"", u""},
        {u"", u"123", u"a1", u""},
        {nullptr, u"", u"a1", u"The name, \"\", is already in use"},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(wideToNarrow(step.name));
        if (step.added) scene.materials[step.added] = layered(step.added);
        EXPECT_EQ(scene.uniqueName(step.name), step.unique);
        std::u16string message = u"old";
        EXPECT_EQ(scene.checkName(step.name, message), step.message.empty());
        EXPECT_EQ(message, step.message);
    }
}

// Names are one key whatever their case. A given uuid is kept, a missing one made in the set only;
// a uuid already known keeps its name.
TEST_F(SceneMaterialsTest, AddingTakesNamesWithoutRegardToCaseAndKeepsOrMakesTheUuid)
{
    const auto given = layered(u"Brick", u"B0A1"), missing = layered(u"Glass");
    ASSERT_TRUE(scene.addMaterial(given));
    ASSERT_TRUE(scene.addMaterial(missing));
    EXPECT_FALSE(scene.addMaterial(layered(u"GLASS")));
    EXPECT_FALSE(scene.addMaterial(layered(u"")));
    EXPECT_FALSE(scene.addMaterial(nullptr));
    EXPECT_TRUE(scene.getMaterial(u"brick") == given && scene.materialForUuid(u"b0a1") == given);
    EXPECT_TRUE(missing->uuid.empty() && scene.materialForUuid(scene.uuidForName(u"GLASS")) == missing);
    EXPECT_TRUE(!scene.materialForUuid(u"nothing") && scene.materialCount() == 2);
    ASSERT_TRUE(scene.addMaterial(layered(u"Copy", u"B0A1")));
    EXPECT_EQ(scene.uuids.at(u"B0A1"), u"Brick");
    EXPECT_EQ(scene.materialCount(), -1);
}

// The uuid follows a rename, stays with a change of case only, and goes with a removal.
TEST_F(SceneMaterialsTest, ReplaceAndRemove)
{
    scene.addMaterial(layered(u"Old", u"ID-1"));
    scene.addMaterial(layered(u"Other", u"ID-2"));
    EXPECT_FALSE(scene.replaceMaterial(u"Old", layered(u"other")));
    EXPECT_FALSE(scene.replaceMaterial(u"Gone", layered(u"New")));
    const auto renamed = layered(u"New");
    ASSERT_TRUE(scene.replaceMaterial(u"OLD", renamed));
    EXPECT_TRUE(scene.isNameFree(u"Old") && scene.materialForUuid(u"ID-1") == renamed);
    ASSERT_TRUE(scene.replaceMaterial(u"New", layered(u"NEW")));
    EXPECT_TRUE(scene.materials.find(u"new")->first == u"NEW" && scene.uuids.at(u"ID-1") == u"New");
    EXPECT_FALSE(scene.removeMaterial(u"Missing"));
    EXPECT_TRUE(scene.removeMaterial(u"OTHER") && scene.uuids.count(u"ID-2") == 0);
}

// The set's own clone and the default material are copies under a free name with no uuid.
TEST_F(SceneMaterialsTest, ClonesAndTheDefaultMaterial)
{
    scene.addMaterial(layered(u"Tile7", u"ID-7"));
    const MaterialPtr copy = scene.cloneMaterial(u"tile7");
    EXPECT_TRUE(copy->name == u"Tile" && copy->uuid.empty() && !scene.cloneMaterial(u"none"));
    ASSERT_TRUE(sceneMaterials()->addDefaultMaterial());
    EXPECT_FALSE(sceneMaterials()->addDefaultMaterial());
    const auto material = std::dynamic_pointer_cast<MaterialLayeredBRDF>(sceneMaterials()->getDefaultMaterial());
    ASSERT_TRUE(material);
    ASSERT_TRUE(material->brdfs.size() == 1);
    EXPECT_TRUE(material->name == u"Default_Nuva_Material" && material->brdfs[0]->name == u"Diffuse");
    EXPECT_TRUE(material->brdfs[0]->isEqual(createBRDF(2)));
}

TEST_F(SceneMaterialsTest, Version2RecordSurvivesWriteAndRead)
{
    scene.addMaterial(layered(u"Brick", u"id-brick", 3));
    scene.addMaterial(layered(u"Glass", {}, 4));
    QuickArchive out(1);
    ASSERT_TRUE(scene.writeBinary(out));
    SceneMaterials back;
    ASSERT_TRUE(back.readBinary(out));
    std::vector<std::u16string> names{u"stale"};
    back.materialNames(names);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"Brick", u"Glass"}));
    EXPECT_EQ(back.uuids, scene.uuids);
    EXPECT_TRUE(back.getMaterial(u"glass")->isEqual(scene.getMaterial(u"Glass")));
}

// Version 2 takes both lists as stored; a repeated name is ignored and the lists may differ in size.
TEST_F(SceneMaterialsTest, Version2TakesItsListsAsStored)
{
    ByteBuilder b;
    b.tag(2).u32(3).append(entry("Wood", "w")).append(entry("WOOD", "w2")).append(entry("Tile", ""));
    ASSERT_TRUE(load(scene, b.u32(1).str("W").str("Wood")));
    EXPECT_TRUE(scene.materials.size() == 2 && scene.getMaterial(u"wood")->uuid == u"w");
    EXPECT_TRUE(scene.materialCount() == -1 && scene.uuidForName(u"Tile").empty());

    EXPECT_FALSE(load(scene, ByteBuilder().tag(2).u32(0).u32(0x7FFFFFFF).str("a").str("b")));
    EXPECT_TRUE(scene.materials.empty()) << "each read begins by clearing the set";
}

// Version 1 adds each material, which makes the identifiers and refuses a repeated name.
TEST_F(SceneMaterialsTest, Version1MakesTheIdentifiers)
{
    ASSERT_TRUE(load(scene, ByteBuilder().tag(1).u32(2).append(entry("Wood", "w")).append(entry("Tile", ""))));
    EXPECT_TRUE(scene.materialCount() == 2 && scene.uuidForName(u"Wood") == u"w");
    EXPECT_EQ(scene.uuidForName(u"Tile").size(), 36u);

    const ByteBuilder refused[] = {ByteBuilder().tag(1).u32(2).append(entry("Wood", "")).append(entry("wood", "")),
                                   ByteBuilder().tag(1).u32(1).u32(15).tag(1), ByteBuilder().u32(0x20001)};
    for (const ByteBuilder& bytes : refused) EXPECT_FALSE(load(scene, bytes));
}

}  // namespace
}  // namespace TalvexTest
