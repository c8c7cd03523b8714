#include "materials/base_material.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_single_brdf.h"

namespace TalvexCore {

// The class of each stored type id; each class's typeId() gives back the same number.
MaterialPtr createMaterial(uint32_t id)
{
    switch (id) {
    case 0: return std::make_shared<MaterialSingleBRDF>();
    case 1: return std::make_shared<MaterialLayeredBRDF>();
    // 2 to 14: the wrapper and reference materials.
    default: return nullptr;
    }
}

}  // namespace TalvexCore
