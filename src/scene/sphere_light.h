// SphereLight and DomeLight: lights of plug-ins the XML does not know, so they leave no trace in it.
#pragma once

#include "records/shared_constants.h"
#include "scene/base_light.h"

namespace TalvexCore {

// Its values have no names of their own; nothing reads them but its record and its comparison.
class SphereLight : public BaseLight {
public:
    Transform transform = identityTransform;
    Color color = whiteColor, shadowColor = blackColor;
    float value1 = 0, value2 = 0.005f, value3 = 1, value4 = 1;
    uint32_t count1 = 500, count2 = 1000, count3 = 0, count4 = 8;
    bool flag1 = true, flag2 = true, flag3 = false, flag4 = false, flag5 = false, flag6 = true, flag7 = true,
         flag8 = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 7; }
    LightPtr clone() const override { return std::make_shared<SphereLight>(*this); }
    bool isEqual(const LightPtr& other) const override;
    void resetDefaults() override { *this = SphereLight(); }

    template <class Self, class Fields>
    static bool record(Self& light, Fields& fields, uint32_t version);
};

// No fields. Its reader reads nothing, not even the tag its writer writes; no file holds one, since
// the factory makes none.
class DomeLight : public BaseLight {
public:
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive&) override { return true; }
    uint32_t typeId() const override { return 8; }
    LightPtr clone() const override { return std::make_shared<DomeLight>(*this); }
    bool isEqual(const LightPtr& other) const override { return sameClassAs(other); }
    void resetDefaults() override {}

private:
    bool sameClassAs(const LightPtr& other) const;
};

}  // namespace TalvexCore
