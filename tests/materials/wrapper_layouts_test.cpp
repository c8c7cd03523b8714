// The flattening of wrappers into the standard asset, the own layouts, and how references reach the
// XML: what the example library's documents (wrapper chains, own layouts, references) do not show.
#include <gtest/gtest.h>

#include "materials/material_2sided.h"
#include "materials/material_bump.h"
#include "materials/material_multi.h"
#include "materials/material_single_brdf.h"
#include "materials/material_reference.h"
#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

using WrapperLayouts = SceneCleared;

template <class T>
std::shared_ptr<T> wrapper(const std::u16string& name)
{
    auto material = std::make_shared<T>();
    material->name = name;
    return material;
}

// A layered material's standard asset is its own asset (the example library shows its text); the
// search finds nothing in a material with no layered core, whose file shows an empty element.
TEST_F(WrapperLayouts, LayeredMaterialIsItsOwnStandardAsset)
{
    auto material = layeredWith(u"Lacquer", u"Base");
    std::u16string own, standard;
    AssetXmlWriter ownWriter(own), standardWriter(standard);
    material->writeXml(ownWriter, u"");
    writeStandardLayout(standardWriter, material);
    writeStandardLayout(standardWriter, nullptr);
    EXPECT_EQ(standard, own);

    EXPECT_TRUE(findMaterialsByType(nullptr, 1).empty() && findMaterialsByType(material, 0).empty());
    EXPECT_EQ(findMaterialsByType(material, 1), std::vector<MaterialPtr>{material});
    auto single = std::make_shared<MaterialSingleBRDF>();
    single->brdf = createBRDF(2);
    EXPECT_TRUE(findMaterialsByType(single, 1).empty());
    EXPECT_EQ(assetsOf(single), "  <Assets>\n  </Assets>\n");
}

// The search stops at its first hit of each kind, and at the multi-material, which has no form in XML.
TEST_F(WrapperLayouts, SearchTakesTheFirstHitOfEachKind)
{
    auto inner = wrapper<MaterialBump>(u"Inner");
    inner->base_mtl = layeredWith(u"Core", u"Paint");
    auto outer = wrapper<MaterialBump>(u"Outer");
    outer->base_mtl = inner;
    EXPECT_EQ(findMaterialsByType(outer, 3), std::vector<MaterialPtr>{outer});

    auto sided = wrapper<Material2Sided>(u"Sided");
    sided->front = layeredWith(u"Front", u"FrontLayer");
    sided->back = layeredWith(u"Back", u"BackLayer");
    auto around = wrapper<MaterialBump>(u"Around");
    around->base_mtl = sided;
    EXPECT_EQ(findMaterialsByType(around, 1), (std::vector<MaterialPtr>{sided->front, sided->back}));

    auto multi = wrapper<MaterialMulti>(u"Multi");
    multi->materials = {layeredWith(u"A", u"L")};
    EXPECT_TRUE(findMaterialsByType(multi, 1).empty() && assetsOf(multi) == "  <Assets>\n  </Assets>\n");
}

// An own layout leaves out a parameter whose material is a reference with no target, and names the
// standard asset of one with a copy by "/" and its name.
TEST_F(WrapperLayouts, OwnLayoutsLeaveOutUnresolvedReferences)
{
    auto sided = wrapper<Material2Sided>(u"Sided");
    sided->front = layeredWith(u"Front", u"L1");
    auto reference = wrapper<MaterialReference>(u"Ref");
    sided->back = reference;
    const std::string unresolved = assetsOf(sided);
    EXPECT_FALSE(has(unresolved.substr(unresolved.find("TwoSidedMatLayout")), "name=\"back\""));
    reference->embedded = layeredWith(u"Copy", u"L2");
    expectInOrder(assetsOf(sided), {"url=\"/Front\" >", "url=\"/Copy\" >", "TwoSidedMatLayout", "<value>/Front</value>",
                                    "name=\"back\"", "<value>/Copy</value>"});
}

// At the top level a reference goes through its copy; inside a wrapper the search goes through the
// scene first, so the same reference can show another material there.
TEST_F(WrapperLayouts, ReferencesResolveThroughTheCopyAtTopAndTheSceneInside)
{
    auto reference = wrapper<MaterialReference>(u"Ref");
    reference->target_uuid = u"T-1";
    reference->embedded = layeredWith(u"Copy", u"CopyLayer");
    auto target = layeredWith(u"Target", u"TargetLayer");
    target->uuid = u"T-1";
    ASSERT_TRUE(sceneMaterials()->addMaterial(target));

    EXPECT_EQ(resolveReference(reference), reference->embedded);
    EXPECT_TRUE(has(assetsOf(reference), "<entry>/Copy/CopyLayer</entry>"));
    auto bump = wrapper<MaterialBump>(u"Outer");
    bump->base_mtl = reference;
    EXPECT_TRUE(has(assetsOf(bump), "<entry>/Outer/TargetLayer</entry>"));

    EXPECT_TRUE(isEmittable(target) && isEmittable(reference));
    EXPECT_FALSE(isEmittable(nullptr) || isEmittable(wrapper<MaterialReference>(u"Empty")));
    // A reference has no asset of its own: asked for one, it gives its copy's.
    EXPECT_EQ(xmlOf(*reference, u"/X"), xmlOf(*reference->embedded, u"/X"));
}

}  // namespace
}  // namespace TalvexTest
