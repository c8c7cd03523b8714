// The material assets of a file: one "Assets" element per material, the standard asset into which a
// chain of wrappers collapses, and the four classes with a layout of their own.
#pragma once

#include <cstdint>
#include <string>

#include "materials/base_material.h"
#include "materials/material_search.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// One "Assets" element around the assets of one material.
void writeMaterialAssets(AssetXmlWriter& writer, const MaterialPtr& material);
// The standard asset: the layered core under the name of the outermost material, with a block of
// parameters for each kind of wrapper found around it.
void writeStandardLayout(AssetXmlWriter& writer, const MaterialPtr& material);
// 0 "Emissive", 1 "Reflection", 2 "Diffuse", 3 "Refraction"; any other value the empty string.
std::u16string layerGroupName(uint32_t group);

}  // namespace TalvexCore
