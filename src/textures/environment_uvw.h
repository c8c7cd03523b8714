// GenEnvironmentUVW: directions of the environment mapped to coordinates by one of four projections.
#pragma once

#include "archive/value_types.h"
#include "records/transform_components.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

class GenEnvironmentUVW : public BaseUVW {
public:
    int32_t mapping_type = 0;  // index into mappingTypeNames
    Matrix uvwMatrix;          // result of uvwComponents
    TransformComponents uvwComponents;

    GenEnvironmentUVW() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // Fails for a mapping type outside the four projections.
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    uint32_t typeId() const override { return 3; }
    // The matrix only: a direction has no offset.
    void updateTransforms() override;
    UVWPtr clone() const override;
    bool isEqual(const UVWPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"UVWGenEnvironment">(); }
};

}  // namespace TalvexCore
