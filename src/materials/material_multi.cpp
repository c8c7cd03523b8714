#include "materials/material_multi.h"

#include "archive/quick_archive.h"
#include "records/record_io.h"
#include "materials/scene_materials.h"

namespace TalvexCore {

namespace {

// A material in the list is at least its type id and its tag.
constexpr uint64_t minimumMaterialBytes = 8;

}  // namespace

void MaterialMulti::resetDefaults()
{
    resetBaseDefaults();
    materials.clear();
}

// Multi-material, version 2: a count, each material's type id and record, then the base record.
bool MaterialMulti::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeCount(materials.size());
    for (const MaterialPtr& material : materials)
        if (!writeRequiredChild(out, material)) return false;
    return writeBaseRecord(out);
}

// Version 1 ends in a bare name where version 2 holds the base record.
bool MaterialMulti::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (!version) return false;
    uint64_t count = 0;
    in.readCount(count);
    if (!in.countFits(count, minimumMaterialBytes)) return false;
    for (uint64_t i = 0; i < count; ++i) {
        MaterialPtr material;
        if (!readRequiredChild(in, material)) return false;
        materials.push_back(material);
    }
    if (*version == 2) return readBaseRecord(in);
    readBareName(in);
    return true;
}

MaterialPtr MaterialMulti::clone() const
{
    auto copy = std::make_shared<MaterialMulti>(*this);
    copy->name = sceneMaterials()->uniqueName(name);
    return copy;
}

MaterialPtr MaterialMulti::cloneSameName() const { return std::make_shared<MaterialMulti>(*this); }

bool MaterialMulti::isEqual(const MaterialPtr& other) const
{
    const auto* that = sameClass(*this, other);
    if (!that || that->materials.size() != materials.size()) return false;
    for (std::size_t i = 0; i < materials.size(); ++i)
        if (!childEqual(materials[i], that->materials[i])) return false;
    return true;
}

}  // namespace TalvexCore
