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
#include "records/object_runs.h"

namespace TalvexCore {

// The class of each stored type id; each class's typeId() gives back the same number.
MaterialPtr createMaterial(uint32_t id)
{
    switch (id) {
    case 0: return makeObject<MaterialSingleBRDF>();
    case 1: return makeObject<MaterialLayeredBRDF>();
    case 2: return makeObject<MaterialMulti>();
    case 3: return makeObject<MaterialBump>();
    case 4: return makeObject<MaterialInstance>();
    case 5: return makeObject<Material2Sided>();
    case 6: return makeObject<MaterialLinked>();
    case 7: return makeObject<MaterialSkp2Sided>();
    case 8: return makeObject<MaterialOverrideEnvironment>();
    case 9: return makeObject<MaterialDisplaced>();
    case 10: return makeObject<MaterialObjectExclusion>();
    case 11: return makeObject<MaterialAlphaContribution>();
    case 12: return makeObject<MaterialAngleBlend>();
    case 13: return makeObject<MaterialReference>();
    case 14: return makeObject<MaterialToon>();
    default: return nullptr;
    }
}

}  // namespace TalvexCore
