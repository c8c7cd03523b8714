// BaseCamera: the root of the camera family and its factory.
#pragma once

#include <cstdint>
#include <memory>

#include "records/serializable.h"

namespace TalvexCore {

class BaseCamera : public TalvexSerializable, public TalvexXMLSerializable {
public:
    virtual uint32_t typeId() const = 0;
    // Deep copy.
    virtual std::shared_ptr<BaseCamera> clone() const = 0;
    virtual void resetDefaults() = 0;
    // Comparison by value; false for an empty reference or another class.
    virtual bool isEqual(const std::shared_ptr<BaseCamera>& other) const = 0;
};

using CameraPtr = std::shared_ptr<BaseCamera>;

// A new camera of the class with this type id, at its defaults; empty for an unknown id.
CameraPtr createCamera(uint32_t id);
inline void makeFromTypeId(CameraPtr& out, uint32_t id) { out = createCamera(id); }

}  // namespace TalvexCore
