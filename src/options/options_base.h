// TalvexOptionsBase: the root of the render-options family, a record and an asset of type "settings".
#pragma once

#include "records/serializable.h"

namespace TalvexCore {

class TalvexOptionsBase : public TalvexSerializable, public TalvexXMLSerializable {
public:
    virtual void resetDefaults() = 0;
    const std::u16string& assetType() const override { return typeName<u"settings">(); }
};

}  // namespace TalvexCore
