// Base_BRDF: the root of the six shading layers, their base record and their factory.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "materials/serializable.h"

namespace TalvexCore {

class Base_BRDF : public TalvexSerializable, public TalvexXMLSerializable {
public:
    std::u16string name;  // the last component of the layer's url
    bool layer_flag_1 = true;
    bool layer_flag_2 = false;
    bool layer_flag_3 = false;

    // The base record alone; each class writes it at the end of its own record.
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    virtual uint32_t typeId() const = 0;
    virtual void resetDefaults() = 0;
    virtual std::shared_ptr<Base_BRDF> clone() const = 0;
    // Compares values and children; the name and the layer flags take no part.
    virtual bool isEqual(const std::shared_ptr<Base_BRDF>& other) const = 0;

    void writeXml(AssetXmlWriter& writer, std::u16string url) const override;
    std::u16string pluginType() const override { return {}; }
    std::u16string assetType() const override { return u"BRDF"; }

protected:
    // Name back to the class's plug-in type, flags to true, false, false.
    void resetBaseDefaults();
    bool writeBaseRecord(QuickArchive& out) const;
    // Any version 1 to 4; the name loses its control characters also when the record fails.
    bool readBaseRecord(QuickArchive& in);
};

using BRDFPtr = std::shared_ptr<Base_BRDF>;

// 1 refraction, 2 diffuse, 4 Blinn, 8 Phong, 16 mirror, 32 light; any other id gives an empty reference.
BRDFPtr createBRDF(uint32_t id);
inline void makeFromTypeId(BRDFPtr& out, uint32_t id) { out = createBRDF(id); }

}  // namespace TalvexCore
