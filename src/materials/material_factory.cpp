#include "materials/base_material.h"

namespace TalvexCore {

MaterialPtr createMaterial(uint32_t /*id*/)
{
    return nullptr;
}

}  // namespace TalvexCore
