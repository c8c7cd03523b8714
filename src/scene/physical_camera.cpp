#include "scene/physical_camera.h"

#include "records/record_io.h"

namespace TalvexCore {

namespace {
constexpr uint32_t NewestVersion = 2;
}

bool PhysicalCamera::writeBinary(QuickArchive& out) const
{
    writeVersion(out, NewestVersion);
    return writeSettings(physicalCameraSettings, out, *this);
}

bool PhysicalCamera::readBinary(QuickArchive& in)
{
    resetDefaults();
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    return readSettings(physicalCameraSettings, in, *this, static_cast<uint16_t>(*version));
}

void PhysicalCamera::resetDefaults() { resetSettings(physicalCameraSettings, *this); }

bool PhysicalCamera::isEqual(const CameraPtr& other) const
{
    const auto* o = sameClass(*this, other);
    return o && *this == *o;
}

bool PhysicalCamera::operator==(const PhysicalCamera& other) const
{
    return settingsEqual(physicalCameraSettings, *this, other);
}

}  // namespace TalvexCore
