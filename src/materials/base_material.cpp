#include "materials/base_material.h"

#include "archive/quick_archive.h"
#include "materials/scene_materials.h"
#include "records/record_io.h"

namespace TalvexCore {

namespace {

// The name a material gets when it has none.
const std::u16string unnamedMaterial = u"DefaultMaterial";

}  // namespace

BaseMaterial::BaseMaterial() { sceneMaterials()->assignUniqueName(name, unnamedMaterial); }

BaseMaterial::BaseMaterial(const BaseMaterial& other) : TalvexSerializable(other), TalvexXMLSerializable(other), name(other.name) {}

void BaseMaterial::writeXml(AssetXmlWriter& /*writer*/, const std::u16string& /*url*/) const {}

void BaseMaterial::resetBaseDefaults()
{
    sceneMaterials()->assignUniqueName(name, unnamedMaterial);
    uuid.clear();
}

// Base material record: version 2 holds the name and the uuid, version 1 the name alone.
bool BaseMaterial::writeBaseRecord(QuickArchive& out) const
{
    writeVersion(out, 2);
    out.writeWString(name);
    out.writeWString(uuid);
    return true;
}

bool BaseMaterial::readBaseRecord(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (version) {
        in.readWString(name);
        // A stored name is kept as read; only a missing one is made anew.
        if (name.empty()) sceneMaterials()->assignUniqueName(name, unnamedMaterial);
        if (*version == 2) in.readWString(uuid);
    }
    stripControlCharacters(name);
    return version.has_value();
}

void BaseMaterial::readBareName(QuickArchive& in)
{
    in.readWString(name);
    if (name.empty()) name = unnamedMaterial;
    // In this old format a stored name can change on load.
    name = sceneMaterials()->uniqueName(name);
}

}  // namespace TalvexCore
