// MaterialObjectExclusion: a base material that some objects, named in a list, do not take.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "materials/base_material.h"
#include "materials/material_rows.h"

namespace TalvexCore {

class MaterialObjectExclusion : public BaseMaterial {
public:
    MaterialPtr base_mtl;
    uint32_t mode = 0;
    NameList objects;  // compared without regard to case, in list order
    bool short_circuit = true;

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 10; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return u"MtlObjectExclusion"; }

    static std::span<const RecordRow<MaterialObjectExclusion>> recordRows();
    // The parameters of its own asset.
    static std::span<const XmlRow<MaterialObjectExclusion>> xmlRows();
};

}  // namespace TalvexCore
