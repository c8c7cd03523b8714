#include "scene/sphere_light.h"

#include <tuple>

#include "records/record_io.h"
#include "scene/light_record.h"

namespace TalvexCore {

// Version 1 stores five flags, version 2 all eight.
template <class Self, class Fields>
bool SphereLight::record(Self& l, Fields& fields, uint32_t version)
{
    fields(l.transform, l.color, l.shadowColor, l.value1, l.value2, l.value3, l.value4);
    fields(l.count1, l.count2, l.count3, l.count4, l.flag1, l.flag2, l.flag3, l.flag4, l.flag5);
    if (version >= 2) fields(l.flag6, l.flag7, l.flag8);
    return true;
}

bool SphereLight::writeBinary(QuickArchive& out) const { return writeLightRecord(*this, out, 2); }
bool SphereLight::readBinary(QuickArchive& in) { return readLightRecord(*this, in, {1, 2}); }

bool SphereLight::isEqual(const LightPtr& other) const
{
    const auto* o = sameClass(*this, other);
    const auto fields = [](const SphereLight& l) {
        return std::tie(l.transform, l.color, l.shadowColor, l.value1, l.value2, l.value3, l.value4, l.count1,
                        l.count2, l.count3, l.count4, l.flag1, l.flag2, l.flag3, l.flag4, l.flag5, l.flag6, l.flag7,
                        l.flag8);
    };
    return o && fields(*this) == fields(*o);
}

bool DomeLight::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    return true;
}

bool DomeLight::sameClassAs(const LightPtr& other) const
{
    return sameClass(*this, other) != nullptr;
}

}  // namespace TalvexCore
