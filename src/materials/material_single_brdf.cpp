#include "materials/material_single_brdf.h"

#include "archive/quick_archive.h"
#include "materials/scene_materials.h"
#include "records/record_io.h"

namespace TalvexCore {

void MaterialSingleBRDF::resetDefaults()
{
    resetBaseDefaults();
    single_aux_1 = 0;
    single_aux_2 = 0;
}

// Single-layer material, version 2: two integers, the layer, then the base record.
bool MaterialSingleBRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeU32(single_aux_1);
    out.writeU32(single_aux_2);
    if (!writeRequiredChild(out, brdf)) return false;
    return writeBaseRecord(out);
}

bool MaterialSingleBRDF::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    in.readU32(single_aux_1);
    in.readU32(single_aux_2);
    // Version 1 stored a bare name ahead of the layer, and no base record.
    if (*version == 1) readBareName(in);
    BRDFPtr layer;
    if (!readRequiredChild(in, layer)) return false;
    brdf = layer;
    if (*version == 1) return true;
    return readBaseRecord(in);
}

MaterialPtr MaterialSingleBRDF::clone() const
{
    auto copy = std::make_shared<MaterialSingleBRDF>(*this);
    copy->name = sceneMaterials()->uniqueName(name);
    return copy;
}

MaterialPtr MaterialSingleBRDF::cloneSameName() const
{
    return std::make_shared<MaterialSingleBRDF>(*this);
}

bool MaterialSingleBRDF::isEqual(const MaterialPtr& other) const
{
    const auto* that = sameClass(*this, other);
    return that && childEqual(brdf, that->brdf) && single_aux_1 == that->single_aux_1 &&
           single_aux_2 == that->single_aux_2;
}

}  // namespace TalvexCore
