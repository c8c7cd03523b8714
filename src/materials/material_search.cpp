#include "materials/material_search.h"

#include <array>
#include <cstddef>

#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_linked.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_reference.h"
#include "materials/material_skp2sided.h"
#include "materials/material_toon.h"
#include "materials/scene_materials.h"

namespace TalvexCore {

namespace {

thread_local int materialDepth = 0;
thread_local long materialVisits = 0;

constexpr uint32_t referenceTypeId = 13;

template <class T>
const T& as(const BaseMaterial& material)
{
    return static_cast<const T&>(material);
}

// At most two inner materials, held without the heap.
struct InnerMaterials {
    std::array<MaterialPtr, 2> items;
    std::size_t count = 0;
    const MaterialPtr* begin() const { return items.data(); }
    const MaterialPtr* end() const { return items.data() + count; }
};

// The inner materials in which the search goes on, by the class of the material, first to last. A
// class with no row stops the search: the single and layered materials, the multi-material and the
// instance.
InnerMaterials innerMaterials(const BaseMaterial& material)
{
    switch (material.typeId()) {
    case 3: return {{as<MaterialBump>(material).base_mtl}, 1};
    case 6: return {{as<MaterialLinked>(material).linked_mtl}, 1};
    case 8: return {{as<MaterialOverrideEnvironment>(material).base_mtl}, 1};
    case 9: return {{as<MaterialDisplaced>(material).base_mtl}, 1};
    case 10: return {{as<MaterialObjectExclusion>(material).base_mtl}, 1};
    case 11: return {{as<MaterialAlphaContribution>(material).base_mtl}, 1};
    case 14: return {{as<MaterialToon>(material).base_mtl}, 1};
    case 5: return {{as<Material2Sided>(material).front, as<Material2Sided>(material).back}, 2};
    case 7: return {{as<MaterialSkp2Sided>(material).front, as<MaterialSkp2Sided>(material).back}, 2};
    case 12: return {{as<MaterialAngleBlend>(material).mtl_one, as<MaterialAngleBlend>(material).mtl_two}, 2};
    case referenceTypeId: {
        // A reference searches the scene's target first, and its own copy only when the scene lacks it.
        const auto& reference = as<MaterialReference>(material);
        MaterialPtr target = sceneMaterials()->materialForUuid(reference.target_uuid);
        return {{target ? target : reference.embedded}, 1};
    }
    default: return {};
    }
}

void findIn(const MaterialPtr& material, uint32_t typeId, std::vector<MaterialPtr>& found)
{
    if (!material) return;
    if (material->typeId() == typeId) {
        found.push_back(material);
        return;
    }
    const MaterialDepthGuard guard;
    if (!guard) return;
    for (const MaterialPtr& inner : innerMaterials(*material)) findIn(inner, typeId, found);
}

MaterialPtr firstIn(const MaterialPtr& material, uint32_t typeId)
{
    if (!material) return nullptr;
    if (material->typeId() == typeId) return material;
    const MaterialDepthGuard guard;
    if (!guard) return nullptr;
    for (const MaterialPtr& inner : innerMaterials(*material))
        if (MaterialPtr found = firstIn(inner, typeId)) return found;
    return nullptr;
}

}  // namespace

MaterialDepthGuard::MaterialDepthGuard()
{
    if (materialDepth == 0) materialVisits = 0;
    entered = materialDepth < maximumMaterialDepth && materialVisits < maximumMaterialVisits;
    if (entered) ++materialDepth, ++materialVisits;
}

MaterialDepthGuard::~MaterialDepthGuard()
{
    if (entered) --materialDepth;
}

std::vector<MaterialPtr> findMaterialsByType(const MaterialPtr& material, uint32_t typeId)
{
    std::vector<MaterialPtr> found;
    findIn(material, typeId, found);
    return found;
}

MaterialPtr findFirstMaterialByType(const MaterialPtr& material, uint32_t typeId)
{
    return firstIn(material, typeId);
}

MaterialPtr resolveReference(const MaterialPtr& material)
{
    if (!material || material->typeId() != referenceTypeId) return material;
    return as<MaterialReference>(*material).embedded;
}

bool isEmittable(const MaterialPtr& material)
{
    if (!material) return false;
    return material->typeId() != referenceTypeId || !as<MaterialReference>(*material).target_uuid.empty();
}

void writeInnerXml(AssetXmlWriter& writer, const MaterialPtr& material, const std::u16string& url)
{
    const MaterialDepthGuard guard;
    if (!guard) return;
    MaterialPtr inner = material;
    for (int step = 0; inner && inner->typeId() == referenceTypeId; ++step) {
        if (step == maximumMaterialDepth) return;
        inner = resolveReference(inner);
    }
    if (inner) inner->writeXml(writer, url);
}

}  // namespace TalvexCore
