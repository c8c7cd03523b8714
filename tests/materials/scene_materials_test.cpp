// The scene material set: names without regard to case, free names, identifiers, the records.
#include <gtest/gtest.h>

#include <sstream>

#include "materials/scene_materials.h"
#include "materials/uuid.h"

namespace TalvexCore {
namespace {

// The smallest material: a name and an identifier.
class PlainMaterial : public BaseMaterial {
public:
    explicit PlainMaterial(std::u16string materialName, std::u16string id = {})
    {
        name = std::move(materialName);
        uuid = std::move(id);
    }
    bool writeBinary(QuickArchive& out) const override { return writeBaseRecord(out); }
    bool readBinary(QuickArchive& in) override { return readBaseRecord(in); }
    uint32_t typeId() const override { return 1; }
    void resetDefaults() override { resetBaseDefaults(); }
    MaterialPtr clone() const override
    {
        auto copy = std::make_shared<PlainMaterial>(*this);
        copy->name = sceneMaterials()->uniqueName(name);
        return copy;
    }
    MaterialPtr cloneSameName() const override { return std::make_shared<PlainMaterial>(*this); }
    bool isEqual(const MaterialPtr& other) const override { return other && other->typeId() == typeId(); }
};

MaterialPtr plain(std::u16string name, std::u16string id = {})
{
    return std::make_shared<PlainMaterial>(std::move(name), std::move(id));
}

class SceneMaterialsTest : public ::testing::Test {
protected:
    void SetUp() override { scene.clear(); }
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

}  // namespace
}  // namespace TalvexCore
