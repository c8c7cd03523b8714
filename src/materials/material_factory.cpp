#include "materials/base_material.h"
#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_instance.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_linked.h"
#include "materials/material_multi.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_reference.h"
#include "materials/material_single_brdf.h"
#include "materials/material_skp2sided.h"
#include "materials/material_toon.h"

namespace TalvexCore {

// The class of each stored type id; each class's typeId() gives back the same number.
MaterialPtr createMaterial(uint32_t id)
{
    switch (id) {
    case 0: return std::make_shared<MaterialSingleBRDF>();
    case 1: return std::make_shared<MaterialLayeredBRDF>();
    case 2: return std::make_shared<MaterialMulti>();
    case 3: return std::make_shared<MaterialBump>();
    case 4: return std::make_shared<MaterialInstance>();
    case 5: return std::make_shared<Material2Sided>();
    case 6: return std::make_shared<MaterialLinked>();
    case 7: return std::make_shared<MaterialSkp2Sided>();
    case 8: return std::make_shared<MaterialOverrideEnvironment>();
    case 9: return std::make_shared<MaterialDisplaced>();
    case 10: return std::make_shared<MaterialObjectExclusion>();
    case 11: return std::make_shared<MaterialAlphaContribution>();
    case 12: return std::make_shared<MaterialAngleBlend>();
    case 13: return std::make_shared<MaterialReference>();
    case 14: return std::make_shared<MaterialToon>();
    default: return nullptr;
    }
}

}  // namespace TalvexCore
