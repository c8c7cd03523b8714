// MaterialSkp2Sided: the plain two-sided form, a front and a back material.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialSkp2Sided : public BaseMaterial {
public:
    MaterialPtr front;
    MaterialPtr back;
    bool force_1sided = false;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 7; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlSkp2Sided"; }

    static std::span<const RecordRow<MaterialSkp2Sided>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialSkp2Sided>> xmlRows();
};

}  // namespace TalvexCore
