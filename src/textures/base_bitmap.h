// BaseBitmap: the root of the bitmap sources, and their factory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "records/serializable.h"

namespace TalvexCore {

class BaseBitmap : public TalvexSerializable, public TalvexXMLSerializable {
public:
    virtual void resetDefaults() = 0;
    virtual uint32_t typeId() const = 0;
    virtual std::shared_ptr<BaseBitmap> clone() const = 0;
    virtual bool isEqual(const std::shared_ptr<BaseBitmap>& other) const = 0;
    const std::u16string& assetType() const override { return typeName<u"bitmap">(); }
};

using BitmapPtr = std::shared_ptr<BaseBitmap>;

// 0 gives a new BitmapBuffer; any other id an empty reference.
BitmapPtr createBitmap(uint32_t id);
inline void makeFromTypeId(BitmapPtr& out, uint32_t id) { out = createBitmap(id); }

}  // namespace TalvexCore
