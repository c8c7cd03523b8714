#include "materials/base_brdf.h"
#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/light_brdf.h"
#include "materials/mirror_brdf.h"

namespace TalvexCore {

// The type ids are single bits; the ids between them name no layer.
BRDFPtr createBRDF(uint32_t id)
{
    switch (id) {
    case 1: return std::make_shared<Glass_BRDF>();
    case 2: return std::make_shared<Diffuse_BRDF>();
    case 4: return std::make_shared<Blinn_BRDF>();
    case 8: return std::make_shared<Phong_BRDF>();
    case 16: return std::make_shared<Mirror_BRDF>();
    case 32: return std::make_shared<Light_BRDF>();
    default: return nullptr;
    }
}

}  // namespace TalvexCore
