// AnimatedTransform: a transform per time, interpolated between key frames.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "archive/value_types.h"
#include "records/serializable.h"

namespace TalvexCore {

class AnimatedTransform : public TalvexSerializable, public TalvexXMLSerializable {
public:
    AnimatedTransform() { clear(); }

    bool writeBinary(QuickArchive& out) const override;
    // Comes back with exactly the stored keys, not even the default key kept.
    bool readBinary(QuickArchive& in) override;
    Transform valueAt(double time) const;
    void setKey(const Transform& value, double time);
    int32_t keyCount() const { return static_cast<int32_t>(keys.size()); }
    double keyTime(int32_t index) const;
    Transform keyValue(int32_t index) const;
    // One key: the identity at time 0.
    void clear();
    void writeXml(AssetXmlWriter&, std::u16string) const override {}
    std::u16string pluginType() const override { return {}; }
    std::u16string assetType() const override { return {}; }

    bool operator==(const AnimatedTransform& other) const { return keys == other.keys; }

private:
    std::map<double, Transform> keys;
};

}  // namespace TalvexCore
