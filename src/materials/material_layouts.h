// The material assets of a file: one "Assets" element per material, the standard layout, and the search through wrappers.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "materials/base_material.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// One "Assets" element around the assets of one material.
void writeMaterialAssets(AssetXmlWriter& writer, const MaterialPtr& material);
// The standard asset: the layered core under the name of the outermost material.
void writeStandardLayout(AssetXmlWriter& writer, const MaterialPtr& material);
// The materials of type `typeId` found through the wrappers, the material itself first.
std::vector<MaterialPtr> findMaterialsByType(const MaterialPtr& material, uint32_t typeId);
// 0 "Emissive", 1 "Reflection", 2 "Diffuse", 3 "Refraction"; any other value the empty string.
std::u16string layerGroupName(uint32_t group);

}  // namespace TalvexCore
