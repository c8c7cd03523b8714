// MaterialAngleBlend: two materials blended by the angle of view.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialAngleBlend : public BaseMaterial {
public:
    MaterialPtr mtl_one;
    MaterialPtr mtl_two;
    float start_angle = 75;
    float stop_angle = 150;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 12; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlAngleBlend"; }

    static std::span<const RecordRow<MaterialAngleBlend>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialAngleBlend>> xmlRows();
};

}  // namespace TalvexCore
