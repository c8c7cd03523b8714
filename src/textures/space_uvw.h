// GenPlanarWorldUVW and GenObjectUVW: coordinates from world or object space, one transform each.
#pragma once

#include "archive/value_types.h"
#include "records/transform_components.h"
#include "textures/base_uvw.h"

namespace TalvexCore {

// The record, the XML, the comparison and the transform rule that the two generators share.
class SpaceUVW : public BaseUVW {
public:
    Transform uvwMatrix;  // result of uvwComponents
    TransformComponents uvwComponents;

    bool writeBinary(QuickArchive& out) const override;
    void resetDefaults() override;
    void updateTransforms() override;
    bool isEqual(const UVWPtr& other) const override;
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;

protected:
    bool readRecord(QuickArchive& in);
};

class GenPlanarWorldUVW : public SpaceUVW {
public:
    GenPlanarWorldUVW() { resetDefaults(); }
    // Reads over what the generator holds.
    bool readBinary(QuickArchive& in) override { return readRecord(in); }
    uint32_t typeId() const override { return 0; }
    UVWPtr clone() const override { return std::make_shared<GenPlanarWorldUVW>(*this); }
    const std::u16string& pluginType() const override { return typeName<u"UVWGenPlanarWorld">(); }
};

class GenObjectUVW : public SpaceUVW {
public:
    GenObjectUVW() { resetDefaults(); }
    // Goes back to its defaults first, unlike the other generators.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 1; }
    UVWPtr clone() const override { return std::make_shared<GenObjectUVW>(*this); }
    const std::u16string& pluginType() const override { return typeName<u"UVWGenObject">(); }
};

}  // namespace TalvexCore
