// RenderView: the view of a scene, a key-framed transform and lens values, two regions, the image size.
#pragma once

#include <cstdint>
#include <string>

#include "archive/value_types.h"
#include "records/serializable.h"
#include "scene/animated_values.h"

namespace TalvexCore {

class RenderView : public TalvexSerializable, public TalvexXMLSerializable {
public:
    AnimatedTransform viewTransform;
    // Every edge -1 by default, with the size a read of such edges gives.
    Rect regionA;
    Rect regionB;
    AnimatedReal fieldOfView{true};
    AnimatedReal viewRealA{true};
    AnimatedReal viewRealB{true};
    int32_t img_width = 0;
    int32_t img_height = 0;
    AnimatedInt viewFlag{false};

    RenderView() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // Version 2 stores single values where version 3 stores containers; version 1 also begins
    // with a single transform and has no container of it.
    bool readBinary(QuickArchive& in) override;
    virtual void resetDefaults();
    bool operator==(const RenderView& other) const;

    // One settings asset with the image size.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"RenderView">(); }
    const std::u16string& assetType() const override { return typeName<u"settings">(); }
};

}  // namespace TalvexCore
