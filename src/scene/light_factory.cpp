// The factory of the light family and its name table.
#include "scene/base_light.h"
#include "scene/ies_light.h"
#include "scene/maya_direct_light.h"
#include "scene/omni_light.h"
#include "scene/rectangle_light.h"
#include "scene/sphere_light.h"
#include "scene/spot_light.h"
#include "scene/sun_light.h"
#include "records/object_runs.h"

namespace TalvexCore {

LightPtr createLight(int32_t id)
{
    switch (id) {
    case 0: return makeObject<MayaDirectLight>();
    case 2: return makeObject<OmniLight>();
    case 3: return makeObject<RectangleLight>();
    case 4: return makeObject<SpotLight>();
    case 5: return makeObject<SunLight>();
    case 6: return makeObject<IESLight>();
    case 7: return makeObject<SphereLight>();
    default: return nullptr;  // 1 has no class, and no file makes the dome light of 8
    }
}

const std::array<std::u16string, 9> lightTypeNames = {
    u"Infinite Direct Light", u"Positional Direct Light", u"Omni Light", u"Rectangle Light", u"Spot Light",
    u"Sun Light",             u"IES Light",               u"Sphere Light", u"Invalid Light"};

}  // namespace TalvexCore
