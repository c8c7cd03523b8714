// MaterialSingleBRDF: a material of one BRDF layer, which has no form in XML.
#pragma once

#include <cstdint>
#include <string>

#include "materials/base_brdf.h"
#include "materials/base_material.h"

namespace TalvexCore {

class MaterialSingleBRDF : public BaseMaterial {
public:
    BRDFPtr brdf;  // its one layer; a reset leaves it as it stands, a clone shares it
    uint32_t single_aux_1 = 0;
    uint32_t single_aux_2 = 0;

    MaterialSingleBRDF() = default;

    // Needs `brdf` to be present.
    bool writeBinary(QuickArchive& out) const override;
    // Reads over the fields as they stand: there is no reset first.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return 0; }
    void resetDefaults() override;
    MaterialPtr clone() const override;
    MaterialPtr cloneSameName() const override;
    bool isEqual(const MaterialPtr& other) const override;

    const std::u16string& pluginType() const override { return typeName<u"MtlSingleBRDF">(); }
};

}  // namespace TalvexCore
