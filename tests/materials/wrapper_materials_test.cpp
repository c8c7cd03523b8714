// The wrapper materials, toon and the environment override: their records in every version, reset,
// copies, comparison and their own assets.
#include <gtest/gtest.h>

#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_skp2sided.h"
#include "materials/material_toon.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

using WrapperMaterials = SceneCleared;

struct NewestRecord {
    uint32_t id;
    uint32_t version;
    ByteBuilder bytes;  // behind the tag
};

// The newest record of each class, by hand from its table, every value off its default.
std::vector<NewestRecord> newestWrapperRecords()
{
    return {
        {5, 3, ByteBuilder().append(layeredSlot("Front")).append(layeredSlot("Back")).append(child(1, 0, 0))
                .color(0.1f, 0.2f, 0.3f).f32(0.5f).boolean(true).append(child(0, 1, 0)).color(0.4f, 0.5f, 0.6f)
                .f32(0.25f).append(materialBase("Two Sided", "u-5"))},
        {7, 1, ByteBuilder().append(materialBase("Skp")).append(layeredSlot("Front")).boolean(false).boolean(true)},
        {3, 3, ByteBuilder().f32(0.3f).append(child(1, 1, 0)).append(layeredEntry("Core")).append(materialBase("Bumpy"))},
        {9, 2, ByteBuilder().append(materialBase("Raised")).append(layeredSlot("Core")).append(child(0, 0, 1)).f32(2)
                .f32(0.1f).f32(8).u32(64).u32(0).u32(0).u32(0)},
        {10, 3, ByteBuilder().u32(1).append(layeredSlot("Core")).u32(2).str("Chair").str("Table")
                 .append(materialBase("Hidden")).boolean(false)},
        {12, 1, ByteBuilder().append(materialBase("Blend")).append(layeredSlot("One")).append(layeredSlot("Two"))
                 .f32(30).f32(60)},
        {11, 1, ByteBuilder().append(materialBase("Cutout")).append(layeredSlot("Core")).append(child(1, 0, 1))
                 .f32(0.5f).f32(0.75f)},
        {14, 2, ByteBuilder().append(layeredSlot("Core")).f32(2).f32(0.5f).append(child(1, 0, 0)).f32(0.8f).f32(0.9f)
                 .append(child(0, 1, 0)).f32(0.1f).f32(1.5f).boolean(false).color(1, 0, 0).f32(0.6f)
                 .append(child(0, 0, 1)).f32(0.9f).f32(0.05f).f32(0.6f).f32(2).boolean(false).boolean(true)
                 .append(materialBase("Ink")).boolean(true).f32(2.5f)},
        {8, 1, ByteBuilder().append(materialBase("Env")).append(layeredSlot("Core")).append(child(1, 0, 0))
                .append(child(0, 1, 0)).boolean(false).append(child(0, 0, 1)).color(0.1f, 0.1f, 0.1f)
                .color(0.2f, 0.2f, 0.2f).color(0.3f, 0.3f, 0.3f).color(0.4f, 0.4f, 0.4f)
                .floats({0.5f, 0.6f, 0.7f, 0.8f}).boolean(true).boolean(false).boolean(true).boolean(false)},
    };
}

// Each class reads its newest record and writes back the very bytes, tag included; its clone and
// same-name clone compare equal to it, and a class never equals another with the same record.
TEST_F(WrapperMaterials, NewestRecordsRoundTripAndCompare)
{
    for (const NewestRecord& record : newestWrapperRecords()) {
        SCOPED_TRACE(record.id);
        const ByteBuilder bytes = ByteBuilder().tag(record.version).append(record.bytes);
        const MaterialPtr material = loadAs<BaseMaterial>(record.id, bytes);
        EXPECT_EQ(material->typeId(), record.id);
        EXPECT_EQ(bytesOf(*material), bytes.bytes);
        EXPECT_TRUE(material->isEqual(material->clone()));
        EXPECT_TRUE(material->isEqual(material->cloneSameName()));
        EXPECT_FALSE(material->isEqual(createMaterial(record.id)));
        EXPECT_FALSE(material->isEqual(nullptr));
    }
}

// An inner material whose name is empty (one of control characters alone loads so) writes an empty
// name and reads back under a fresh default name: the first round trip changes the record, the
// second no longer does.
TEST_F(WrapperMaterials, AnInnerMaterialWithoutANameSettlesAfterOneRoundTrip)
{
    auto outer = std::make_shared<MaterialSkp2Sided>();
    outer->name = u"Two faces";
    outer->front = createMaterial(1);
    outer->front->name.clear();
    const ByteBuilder first = recordOf(*outer);
    const auto once = readFrom<MaterialSkp2Sided>(first);
    ASSERT_TRUE(once && once->front);
    EXPECT_FALSE(once->front->name.empty() || bytesOf(*once) == first.bytes);
    const auto twice = readFrom<MaterialSkp2Sided>(recordOf(*once));
    ASSERT_TRUE(twice);
    EXPECT_EQ(bytesOf(*twice), bytesOf(*once));
}

// The record runs "bg" first while memory runs "gi" first; toon stores width ahead of colour.
TEST_F(WrapperMaterials, RecordOrderReachesTheRightFields)
{
    const auto records = newestWrapperRecords();
    auto env = loadAs<MaterialOverrideEnvironment>(8, ByteBuilder().tag(1).append(records[8].bytes));
    EXPECT_EQ(std::tuple(acolorOf(env->bg_tex), acolorOf(env->gi_tex), env->reflect_tex, env->bg_color, env->gi_tex_mult),
              std::tuple(AColor{1, 0, 0, 1}, AColor{0, 1, 0, 1}, nullptr, Color{0.1f, 0.1f, 0.1f}, 0.6f));
    EXPECT_TRUE(env->override_bg && !env->override_gi && env->override_reflect && env->name == u"Env");

    auto toon = loadAs<MaterialToon>(14, ByteBuilder().tag(2).append(records[7].bytes));
    EXPECT_EQ(std::tuple(toon->width, acolorOf(toon->width_tex), toon->distort_tex, toon->color, toon->line_units),
              std::tuple(2.0f, AColor{1, 0, 0, 1}, nullptr, Color{1, 0, 0}, 2.0f));
    EXPECT_TRUE(!toon->do_secondary && toon->divide_by_distance && toon->do_silhouette_mult);
    EXPECT_EQ(toon->silhouette_mult, 2.5f);

    auto sided = loadAs<Material2Sided>(5, ByteBuilder().tag(3).append(records[0].bytes));
    EXPECT_EQ(std::tuple(sided->front->name, sided->back->name, sided->transparency, sided->uuid),
              std::tuple(u"Front", u"Back", Color{0.4f, 0.5f, 0.6f}, u"u-5"));
}

// The example library holds the oldest record of each wrapper; these are what its documents do not
// show. The two-sided loader reads over what the object holds, so the first record, which ends
// early, leaves the rest as it was. Version 2 of the bump keeps its bare name as read, even empty;
// version 1 makes it unique.
TEST_F(WrapperMaterials, OldRecordsKeepWhatTheyLackAndTakeBareNames)
{
    auto sided = std::make_shared<Material2Sided>();
    const std::u16string defaultName = sided->name;
    sided->transparency = {9, 9, 9};
    ASSERT_TRUE(load(*sided, ByteBuilder().tag(1).append(layeredSlot("Front")).boolean(false).boolean(false)
                                 .color(0.1f, 0.2f, 0.3f).f32(0.5f).boolean(true)));
    EXPECT_TRUE(sided->transparency == (Color{9, 9, 9}) && sided->name == defaultName && sided->force_1sided);

    auto v2 = loadAs<MaterialBump>(
        3, ByteBuilder().tag(2).str("").f32(0.5f).append(child(1, 0, 0)).append(layeredEntry("Core")));
    EXPECT_EQ(v2->name, u"");
    auto taken = std::make_shared<MaterialLayeredBRDF>();
    taken->name = u"Stone";
    ASSERT_TRUE(sceneMaterials()->addMaterial(taken));
    auto v1 = loadAs<MaterialBump>(
        3, ByteBuilder().tag(1).str("Stone").str("maps/stone.png").f32(0.7f).append(layeredEntry("Core")));
    EXPECT_EQ(v1->name, u"Stone1");

    // The newest record needs the base material, which it stores with no presence byte.
    QuickArchive out(1);
    EXPECT_FALSE(MaterialBump().writeBinary(out));
}

TEST_F(WrapperMaterials, RefusedTagsAndUnknownChildrenFailTheLoad)
{
    for (uint32_t id : {3u, 5u, 7u, 8u, 9u, 10u, 11u, 12u, 14u}) {
        EXPECT_FALSE(load(*createMaterial(id), ByteBuilder().u32(0x10001))) << id;
        EXPECT_FALSE(load(*createMaterial(id), ByteBuilder().tag(9))) << id;
    }
    // A texture of an unknown type id, a material of one, and a base record with a refused tag.
    EXPECT_FALSE(load(*createMaterial(11), ByteBuilder().tag(1).append(materialBase("A")).append(layeredSlot("Core"))
                                               .boolean(true).u32(99)));
    EXPECT_FALSE(load(*createMaterial(12), ByteBuilder().tag(1).append(materialBase("A")).boolean(true).u32(15)));
    EXPECT_FALSE(load(*createMaterial(7), ByteBuilder().tag(1).u32(0x20001)));
}

// Resets restore the table's defaults; only the bump material takes a new name and drops its uuid.
TEST_F(WrapperMaterials, ResetKeepsTheNameExceptInTheBumpMaterial)
{
    MaterialAngleBlend blend;
    blend.name = u"Blend", blend.uuid = u"u-1", blend.start_angle = 1, blend.mtl_one = layeredWith(u"A", u"L");
    blend.resetDefaults();
    EXPECT_TRUE(blend.isEqual(std::make_shared<MaterialAngleBlend>()));
    EXPECT_EQ(blend.name + blend.uuid, u"Blendu-1");

    MaterialBump bump;
    bump.name = u"Bumpy", bump.uuid = u"u-2", bump.bump_tex_mult = 3;
    bump.resetDefaults();
    EXPECT_TRUE(bump.name != u"Bumpy" && bump.uuid.empty() && bump.bump_tex_mult == 1);
}

// Clones copy inner materials under new names, same-name clones keep them, except that toon's
// same-name clone renames its inner material. Only the two-sided material shares its textures.
TEST_F(WrapperMaterials, ClonesCopyInnerMaterialsAndTexturesAsEachClassSays)
{
    auto sided = std::make_shared<Material2Sided>();
    sided->name = u"Sided", sided->uuid = u"u-3";
    sided->front = layeredWith(u"Front", u"L");
    sided->translucency_tex = std::make_shared<AColorTexture>();
    ASSERT_TRUE(sceneMaterials()->addMaterial(sided));
    ASSERT_TRUE(sceneMaterials()->addMaterial(sided->front));

    auto copy = std::dynamic_pointer_cast<Material2Sided>(sided->clone());
    auto same = std::dynamic_pointer_cast<Material2Sided>(sided->cloneSameName());
    EXPECT_EQ(std::tuple(copy->name, copy->uuid, copy->front->name, same->name, same->front->name),
              std::tuple(u"Sided1", u"", u"Front1", u"Sided", u"Front"));
    EXPECT_TRUE(copy->front != sided->front && copy->translucency_tex == sided->translucency_tex);

    auto alpha = std::make_shared<MaterialAlphaContribution>();
    alpha->base_mtl = sided->front;
    alpha->alpha_tex = std::make_shared<AColorTexture>();
    auto alphaCopy = std::dynamic_pointer_cast<MaterialAlphaContribution>(alpha->cloneSameName());
    EXPECT_TRUE(alphaCopy->alpha_tex != alpha->alpha_tex && alphaCopy->base_mtl->name == u"Front");

    auto toon = std::make_shared<MaterialToon>();
    toon->name = u"Ink";
    toon->base_mtl = sided->front;
    auto toonCopy = std::dynamic_pointer_cast<MaterialToon>(toon->cloneSameName());
    EXPECT_EQ(std::pair(toonCopy->name, toonCopy->base_mtl->name), std::pair(std::u16string(u"Ink"), std::u16string(u"Front1")));
}

TEST_F(WrapperMaterials, ComparisonWalksInnerMaterialsTexturesAndValues)
{
    auto a = std::make_shared<MaterialObjectExclusion>();
    auto b = std::make_shared<MaterialObjectExclusion>();
    a->objects = {u"Chair", u"Table"};
    b->objects = {u"CHAIR", u"table"};
    EXPECT_TRUE(a->isEqual(b));
    b->objects = {u"Table", u"Chair"};
    EXPECT_FALSE(a->isEqual(b));

    auto one = std::make_shared<MaterialBump>(), two = std::make_shared<MaterialBump>();
    one->base_mtl = layeredWith(u"A", u"L");
    EXPECT_FALSE(one->isEqual(two));
    two->base_mtl = layeredWith(u"B", u"M");
    EXPECT_TRUE(one->isEqual(two));
    two->bump_tex = std::make_shared<AColorTexture>();
    EXPECT_FALSE(one->isEqual(two));
}

// A wrapper's own asset: inner materials, then textures, then its parameters naming them by its url.
TEST_F(WrapperMaterials, OwnAssetsNameInnerMaterialsUnderTheWrapperUrl)
{
    MaterialBump bump;
    bump.name = u"Bumpy";
    bump.base_mtl = layeredWith(u"Core", u"Paint");
    bump.bump_tex = std::make_shared<AColorTexture>();
    const std::string text = xmlOf(bump, u"/Scene");
    expectInOrder(text, {"url=\"/Scene/Bumpy/Core\"", "url=\"/Scene/Bumpy/bump_tex/TexAColor\"", "url=\"/Scene/Bumpy\"",
                         "<nuvaplugin name=\"MtlBump\" type=\"material\">", "name=\"bump_tex_mult\"", "name=\"base_mtl\"",
                         "<value>/Scene/Bumpy/Core</value>", "<value>/Scene/Bumpy/bump_tex/TexAColor</value>"});

    // The displaced material has no asset: its base material stands under its url; the override
    // adds no name at all.
    MaterialDisplaced displaced;
    displaced.name = u"Raised";
    displaced.base_mtl = layeredWith(u"Core", u"Paint");
    EXPECT_EQ(xmlOf(displaced, u""), xmlOf(*displaced.base_mtl, u"/Raised"));
    MaterialOverrideEnvironment env;
    env.base_mtl = displaced.base_mtl;
    EXPECT_EQ(xmlOf(env, u"/X"), xmlOf(*displaced.base_mtl, u"/X"));

    MaterialObjectExclusion exclusion;
    exclusion.name = u"Hidden";
    exclusion.objects = {u"A&B"};
    const std::string list = xmlOf(exclusion, u"");
    EXPECT_TRUE(has(list, "listType=\"\" label=\"objects\">"));
    EXPECT_TRUE(has(list, "<string>\"A&B\"</string>"));
    EXPECT_TRUE(has(list, "name=\"base_mtl\" handler=\"default\" listType=\"none\" label=\"base_mtl\">\n"
                          "          </parameter>"));
}

}  // namespace
}  // namespace TalvexTest
