// Hostile material files and graphs: wrappers nested past any sane depth, and references that reach
// themselves through the scene. Loading, saving, searching, comparing and emitting all end, and
// what loading refuses saving refuses too.
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>

#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_layouts.h"
#include "materials/material_reference.h"
#include "materials/tal_mat_file.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

using HostileMaterials = SceneCleared;

// `depth` bump records, each holding the next as its bare base material, around a layered material.
ByteBuilder nestedBumps(int depth)
{
    ByteBuilder bytes;
    for (int i = 0; i < depth; ++i) bytes.tag(3).f32(1).boolean(false).u32(3);
    // The innermost bump holds the layered material, whose entry brings its own type id.
    bytes.bytes.resize(bytes.bytes.size() - 4);
    bytes.append(layeredEntry("Core"));
    // Base records close from the innermost bump outward.
    for (int i = depth; i > 0; --i) bytes.append(materialBase("Bump" + std::to_string(i)));
    return bytes;
}

// A material file holding one material: the header, then the archive's block image.
std::string materialFile(uint32_t typeId, const ByteBuilder& record)
{
    QuickArchive archive(1);
    archive.writeU32(typeId);
    archive.writeRaw(record.bytes.data(), record.bytes.size());
    std::ostringstream out;
    const uint32_t header[2] = {0x30000, 1};
    out.write(reinterpret_cast<const char*>(header), sizeof header);
    archive.writeToStream(out);
    return out.str();
}

std::shared_ptr<MaterialBump> bumpChain(int depth)
{
    MaterialPtr inner = layeredWith(u"Core", u"Paint");
    std::shared_ptr<MaterialBump> bump;
    for (int i = 0; i < depth; ++i) {
        bump = std::make_shared<MaterialBump>();
        bump->base_mtl = inner;
        inner = bump;
    }
    return bump;
}

TEST_F(HostileMaterials, NestingDepthIsBoundedAlikeForLoadingAndSaving)
{
    // Just inside the bound a chain loads, writes back the same bytes, and flattens.
    const ByteBuilder inside = nestedBumps(maximumMaterialDepth - 1);
    std::istringstream insideFile(materialFile(3, inside));
    TalMatFile file;
    ASSERT_TRUE(file.load(insideFile));
    EXPECT_EQ(bytesOf(*file.materials[0]), inside.bytes);
    const std::string text = assetsOf(file.materials[0]);
    EXPECT_TRUE(has(text, "url=\"/Bump1\" >"));
    EXPECT_EQ(countOf(text, "name=\"bump_on\""), 1u);

    // Far past it, the load fails cleanly.
    std::istringstream deepFile(materialFile(3, nestedBumps(5000)));
    EXPECT_FALSE(file.load(deepFile));

    // A chain built in memory past the bound is refused on saving, as it would be on loading; the
    // search does not follow it past the bound either.
    const auto deep = bumpChain(maximumMaterialDepth + 5);
    QuickArchive out(1);
    EXPECT_TRUE(!deep->writeBinary(out) && findMaterialsByType(deep, 1).empty());
    EXPECT_FALSE(findMaterialsByType(bumpChain(maximumMaterialDepth - 1), 1).empty());
}

// A reference whose target in the scene is itself: saving sets its copy to itself and then refuses the
// depth; searching and comparing end.
TEST_F(HostileMaterials, ReferenceThatReachesItselfThroughTheScene)
{
    auto reference = std::make_shared<MaterialReference>();
    reference->name = u"Loop", reference->uuid = u"L-1", reference->target_uuid = u"L-1";
    ASSERT_TRUE(sceneMaterials()->addMaterial(reference));

    QuickArchive out(1);
    EXPECT_TRUE(findMaterialsByType(reference, 1).empty());
    EXPECT_FALSE(reference->isEqual(reference) || reference->writeBinary(out));
    EXPECT_EQ(reference->embedded, reference);
    EXPECT_EQ(assetsOf(reference), "  <Assets>\n  </Assets>\n");
    reference->embedded = nullptr;  // the loop would outlive the test
}

// Two references to the blend that holds them: every walk doubles at each level, and still ends soon.
TEST_F(HostileMaterials, BranchingLoopThroughTheSceneEndsInTime)
{
    auto blend = std::make_shared<MaterialAngleBlend>();
    blend->name = u"Blend", blend->uuid = u"B-1";
    ASSERT_TRUE(sceneMaterials()->addMaterial(blend));
    blend->mtl_one = sceneMaterials()->makeReference(u"Blend");
    blend->mtl_two = sceneMaterials()->makeReference(u"Blend");

    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(findMaterialsByType(blend, 1).empty());
    EXPECT_FALSE(blend->isEqual(blend->clone()));
    QuickArchive out(1);
    EXPECT_FALSE(blend->writeBinary(out));
    assetsOf(blend);
    xmlOf(*blend);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    for (const MaterialPtr& side : {blend->mtl_one, blend->mtl_two})
        std::static_pointer_cast<MaterialReference>(side)->embedded = nullptr;
}

}  // namespace
}  // namespace TalvexTest
