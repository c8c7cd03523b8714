// The reference materials: multi, instance, linked and reference; and the scene set's operations on
// references.
#include <gtest/gtest.h>

#include "materials/material_bump.h"
#include "materials/material_instance.h"
#include "materials/material_linked.h"
#include "materials/material_multi.h"
#include "materials/material_reference.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

using ReferenceMaterials = SceneCleared;

// The newest records read and write back byte for byte; the older multi-material ends in a bare name
// that is made unique, and its loader appends to the list it holds.
TEST_F(ReferenceMaterials, RecordsOfEveryVersion)
{
    const ByteBuilder multi = ByteBuilder().tag(2).u32(2).append(layeredEntry("A")).append(layeredEntry("B"))
                                  .append(materialBase("Multi", "u-1"));
    const ByteBuilder linked = ByteBuilder().tag(1).tag(1).i32(1).str("Oak.mat").append(layeredEntry("Oak"))
                                   .append(materialBase("Linked"));
    const ByteBuilder numbered = ByteBuilder().tag(1).tag(1).i32(2).i32(-7).append(layeredEntry("Oak"))
                                     .append(materialBase("Linked"));
    const ByteBuilder instance = ByteBuilder().tag(1).append(materialBase("Instance"));
    for (const auto& [id, bytes] : {std::pair{2u, multi}, {6u, linked}, {6u, numbered}, {4u, instance}})
        EXPECT_EQ(bytesOf(*loadAs<BaseMaterial>(id, bytes)), bytes.bytes) << id;

    auto taken = std::make_shared<MaterialLayeredBRDF>();
    taken->name = u"Multi";
    ASSERT_TRUE(sceneMaterials()->addMaterial(taken));
    auto old = std::make_shared<MaterialMulti>();
    old->materials = {layeredWith(u"Kept", u"L")};
    ASSERT_TRUE(load(*old, ByteBuilder().tag(1).u32(1).append(layeredEntry("A")).str("Multi")));
    EXPECT_EQ(old->name, u"Multi1");
    ASSERT_EQ(old->materials.size(), 2u);
    EXPECT_EQ(old->materials[1]->name, u"A");

    EXPECT_FALSE(load(*createMaterial(6), ByteBuilder().tag(1).tag(1).i32(3).append(layeredEntry("Oak"))));
    // A count far beyond the bytes is refused before anything is made.
    EXPECT_FALSE(load(*createMaterial(2), ByteBuilder().tag(2).u32(0x7FFFFFFF)));
}

// The link's identity compares its text without regard to case, and its kind.
TEST_F(ReferenceMaterials, LinkedIdentity)
{
    auto a = std::make_shared<MaterialLinked>(), b = std::make_shared<MaterialLinked>();
    a->link_id.kind = b->link_id.kind = 0;
    a->link_id.setText(u"Walnut");
    b->link_id.setText(u"WALNUT");
    EXPECT_TRUE(a->isEqual(b));
    b->link_id.kind = 1;
    EXPECT_FALSE(a->isEqual(b));

    // Without its material a linked material writes nothing at all.
    QuickArchive out(1);
    EXPECT_FALSE(a->writeBinary(out));
    EXPECT_EQ(out.writePosition(), 0u);
    a->linked_mtl = layeredWith(u"Walnut", u"L");
    a->link_id.kind = 4;
    EXPECT_FALSE(a->writeBinary(out));
}

// Copies: the multi-material shares its list, the instance its target, the linked material clones its
// own; a reference keeps its target and drops its copy. An instance equals nothing, not even itself.
TEST_F(ReferenceMaterials, CopiesShareOrCloneAsEachClassSays)
{
    auto multi = std::make_shared<MaterialMulti>();
    multi->name = u"Multi";
    multi->materials = {layeredWith(u"A", u"L")};
    auto multiCopy = std::dynamic_pointer_cast<MaterialMulti>(multi->clone());
    EXPECT_TRUE(multiCopy->materials[0] == multi->materials[0] && multi->isEqual(multiCopy));

    auto instance = std::make_shared<MaterialInstance>();
    instance->name = u"Inst";
    instance->instance_target = multi;
    auto instanceCopy = std::dynamic_pointer_cast<MaterialInstance>(instance->clone());
    EXPECT_TRUE(instanceCopy->name == u"Inst" && instanceCopy->instance_target == multi);
    EXPECT_FALSE(instance->isEqual(instance));

    auto linked = std::make_shared<MaterialLinked>();
    linked->name = u"Link";
    linked->linked_mtl = layeredWith(u"Oak", u"L");
    ASSERT_TRUE(sceneMaterials()->addMaterial(linked->linked_mtl));
    auto linkedCopy = std::dynamic_pointer_cast<MaterialLinked>(linked->clone());
    EXPECT_EQ(linkedCopy->linked_mtl->name, u"Oak1");
    EXPECT_EQ(std::dynamic_pointer_cast<MaterialLinked>(linked->cloneSameName())->linked_mtl->name, u"Oak");

    auto reference = std::make_shared<MaterialReference>();
    reference->name = u"Ref", reference->target_uuid = u"T", reference->embedded = multi;
    auto referenceCopy = std::dynamic_pointer_cast<MaterialReference>(reference->clone());
    EXPECT_TRUE(referenceCopy->name == u"Ref" && referenceCopy->target_uuid == u"T" && !referenceCopy->embedded);
}

// Saving refreshes the copy from the scene: a target that is gone takes the old copy with it.
TEST_F(ReferenceMaterials, SavingRefreshesTheEmbeddedCopy)
{
    auto target = layeredWith(u"Target", u"L");
    target->uuid = u"T-1";
    auto reference = std::make_shared<MaterialReference>();
    reference->name = u"Ref", reference->target_uuid = u"t-1", reference->embedded = layeredWith(u"Old", u"L");

    const std::vector<uint8_t> gone = bytesOf(*reference);
    EXPECT_EQ(reference->embedded, nullptr);
    EXPECT_EQ(gone, ByteBuilder().tag(2).append(materialBase("Ref")).str("t-1").boolean(false).bytes);

    ASSERT_TRUE(sceneMaterials()->addMaterial(target));
    QuickArchive out(1);
    ASSERT_TRUE(reference->writeBinary(out));
    EXPECT_EQ(reference->embedded, target);
    const auto loaded = loadAs<MaterialReference>(13, recordOf(*reference));
    ASSERT_NE(loaded->embedded, nullptr);
    EXPECT_EQ(loaded->embedded->name, u"Target");

    // Version 1 holds no copy; equality goes by the target without regard to case and by the scene.
    auto old = loadAs<MaterialReference>(13, ByteBuilder().tag(1).append(materialBase("Old")).str("T-1"));
    EXPECT_EQ(old->embedded, nullptr);
    EXPECT_TRUE(old->isEqual(reference));
    old->target_uuid = u"other";
    EXPECT_FALSE(old->isEqual(reference));
}

TEST_F(ReferenceMaterials, SceneOperationsOnReferences)
{
    SceneMaterials& scene = *sceneMaterials();
    EXPECT_TRUE(scene.makeReference(u"Nothing")->target_uuid.empty());

    auto target = layeredWith(u"Target", u"L");
    target->uuid = u"T-1";
    ASSERT_TRUE(scene.addMaterial(target));
    auto bump = std::make_shared<MaterialBump>();
    bump->name = u"Holder";
    bump->base_mtl = scene.makeReference(u"target");
    ASSERT_TRUE(scene.addMaterial(bump));
    EXPECT_EQ(std::dynamic_pointer_cast<MaterialReference>(bump->base_mtl)->target_uuid, u"T-1");

    // One material holding one reference: both indices agree.
    EXPECT_EQ(scene.referencesTo(u"t-1"), std::vector<MaterialPtr>{bump->base_mtl});
    EXPECT_TRUE(scene.referencesTo(u"T-2").empty());

    // The name "Target" has gathered a second identifier; the last in identifier order survives, and
    // the reference follows it.
    scene.uuids[u"T-0"] = u"Target";
    scene.mergeDuplicateUuids();
    EXPECT_TRUE(scene.uuids.count(u"T-0") == 0 && scene.uuidForName(u"Target") == u"T-1");
    scene.uuids[u"T-9"] = u"TARGET";
    scene.mergeDuplicateUuids();
    EXPECT_EQ(scene.uuidForName(u"Target"), u"T-9");
    auto reference = std::dynamic_pointer_cast<MaterialReference>(bump->base_mtl);
    EXPECT_TRUE(reference->target_uuid == u"T-9" && reference->embedded == target);
}

}  // namespace
}  // namespace TalvexTest
