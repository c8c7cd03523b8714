// The factory of the camera family.
#include "scene/base_camera.h"
#include "scene/physical_camera.h"

namespace TalvexCore {

CameraPtr createCamera(uint32_t id)
{
    if (id == PhysicalCamera::TypeId) return std::make_shared<PhysicalCamera>();
    return nullptr;
}

}  // namespace TalvexCore
