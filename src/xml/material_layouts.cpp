#include "xml/material_layouts.h"

namespace TalvexCore {

void writeMaterialAssets(AssetXmlWriter& writer, const MaterialPtr& material)
{
    writer.openAssets();
    writeStandardLayout(writer, material);
    writer.closeAssets();
}

void writeStandardLayout(AssetXmlWriter& /*writer*/, const MaterialPtr& /*material*/)
{
    // The layered material arrives with the material classes.
}

std::vector<MaterialPtr> findMaterialsByType(const MaterialPtr& material, uint32_t typeId)
{
    if (!material) return {};
    if (material->typeId() == typeId) return {material};
    return {};
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
