// GenChannelUVW: texture coordinates from a mapping channel of the mesh, with two transforms.
#pragma once

#include "archive/value_types.h"
#include "records/transform_components.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class GenChannelUVW : public BaseUVW {
public:
    Transform uvwMatrix;  // result of uvwComponents
    Transform texMatrix;  // result of texComponents
    TransformComponents uvwComponents;
    TransformComponents texComponents;
    int32_t wrap_u = 0;
    int32_t wrap_v = 0;
    int32_t uvw_channel = 0;

    GenChannelUVW() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 4; }
    void updateTransforms() override;
    UVWPtr clone() const override;
    bool isEqual(const UVWPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"UVWGenChannel">(); }
};

}  // namespace TalvexCore
