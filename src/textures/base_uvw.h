// BaseUVW: the root of the UVW generators, and their factory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "records/serializable.h"

namespace TalvexCore {

class BaseUVW : public TalvexSerializable, public TalvexXMLSerializable {
public:
    virtual void resetDefaults() = 0;
    virtual uint32_t typeId() const = 0;
    // Recomputes the stored matrices from the components; loading never calls it.
    virtual void updateTransforms() = 0;
    virtual std::shared_ptr<BaseUVW> clone() const = 0;
    virtual bool isEqual(const std::shared_ptr<BaseUVW>& other) const = 0;
    const std::u16string& assetType() const override { return typeName<u"uvw">(); }
};

using UVWPtr = std::shared_ptr<BaseUVW>;

// 0 planar world, 1 object, 3 environment, 4 channel; any other id gives an empty reference.
UVWPtr createUVW(uint32_t id);
UVWPtr createDefaultUVW();
inline void makeFromTypeId(UVWPtr& out, uint32_t id) { out = createUVW(id); }

}  // namespace TalvexCore
