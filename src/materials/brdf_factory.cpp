#include "materials/base_brdf.h"
#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/light_brdf.h"
#include "materials/mirror_brdf.h"
#include "records/object_runs.h"

namespace TalvexCore {

// The type ids are single bits; the ids between them name no layer.
BRDFPtr createBRDF(uint32_t id)
{
    switch (id) {
    case 1: return makeObject<Glass_BRDF>();
    case 2: return makeObject<Diffuse_BRDF>();
    case 4: return makeObject<Blinn_BRDF>();
    case 8: return makeObject<Phong_BRDF>();
    case 16: return makeObject<Mirror_BRDF>();
    case 32: return makeObject<Light_BRDF>();
    default: return nullptr;
    }
}

}  // namespace TalvexCore
