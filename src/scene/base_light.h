// BaseLight: the root of the light family, its factory and its name table.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "records/serializable.h"
#include "scene/animated_values.h"

namespace TalvexCore {

class BaseLight : public TalvexSerializable, public TalvexXMLSerializable {
public:
    virtual uint32_t typeId() const = 0;
    virtual std::shared_ptr<BaseLight> clone() const = 0;
    // The same class and every stored field exactly.
    virtual bool isEqual(const std::shared_ptr<BaseLight>& other) const = 0;
    virtual void resetDefaults() = 0;

    // A light of a plug-in the XML does not know leaves no trace in it.
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"">(); }
    const std::u16string& assetType() const override { return typeName<u"light">(); }
};

using LightPtr = std::shared_ptr<BaseLight>;

// The default of a light's key-framed transform: one key, the identity at time 0.
inline AnimatedTransform identityKeyFrames()
{
    AnimatedTransform transform;
    transform.clear();
    return transform;
}

// A new light of the class with this type id, at its defaults; empty for 1, 8 and every id
// above 7, since no class stands behind them in files.
LightPtr createLight(int32_t id);
inline void makeFromTypeId(LightPtr& out, uint32_t id) { out = createLight(static_cast<int32_t>(id)); }

extern const std::array<std::u16string, 9> lightTypeNames;

}  // namespace TalvexCore
