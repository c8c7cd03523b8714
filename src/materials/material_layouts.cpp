#include "materials/material_layouts.h"

#include "materials/material_layered_brdf.h"

namespace TalvexCore {

namespace {

constexpr uint32_t layeredTypeId = 1;
// A chain of references can lead back to itself through the scene: the search stops this deep.
constexpr int maximumSearchDepth = 100;

// The inner materials in which the search goes on, by the class of the material. A class with no
// row stops the search: the single and layered materials, the multi-material and the instance.
std::vector<MaterialPtr> innerMaterials(const BaseMaterial& material)
{
    switch (material.typeId()) {
    default: return {};
    }
}

void findIn(const MaterialPtr& material, uint32_t typeId, int depth, std::vector<MaterialPtr>& found)
{
    if (!material || depth > maximumSearchDepth) return;
    if (material->typeId() == typeId) {
        found.push_back(material);
        return;
    }
    // Of two inner materials the first one's matches come first.
    for (const MaterialPtr& inner : innerMaterials(*material)) findIn(inner, typeId, depth + 1, found);
}

}  // namespace

void writeMaterialAssets(AssetXmlWriter& writer, const MaterialPtr& material)
{
    writer.openAssets();
    // The classes with a layout of their own are dispatched here; every other class, the
    // multi-material, the single-layer and the reference material too, takes the standard one.
    if (material) {
        switch (material->typeId()) {
        default: writeStandardLayout(writer, material); break;
        }
    }
    writer.closeAssets();
}

// The standard asset: the layered core, its layers ahead of it, under the outermost name.
void writeStandardLayout(AssetXmlWriter& writer, const MaterialPtr& material)
{
    if (!material) return;
    const std::u16string url = u"/" + material->name;
    const std::vector<MaterialPtr> cores = findMaterialsByType(material, layeredTypeId);
    // Without a layered core, the material does not appear in the XML at all.
    if (cores.empty()) return;
    const auto* layered = dynamic_cast<const MaterialLayeredBRDF*>(cores.front().get());
    if (!layered) return;

    layered->writeAsset(writer, url);
}

std::vector<MaterialPtr> findMaterialsByType(const MaterialPtr& material, uint32_t typeId)
{
    std::vector<MaterialPtr> found;
    findIn(material, typeId, 0, found);
    return found;
}

std::u16string layerGroupName(uint32_t group)
{
    switch (group) {
    case 0: return u"Emissive";
    case 1: return u"Reflection";
    case 2: return u"Diffuse";
    case 3: return u"Refraction";
    default: return {};
    }
}

}  // namespace TalvexCore
