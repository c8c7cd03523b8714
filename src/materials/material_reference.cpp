#include "materials/material_reference.h"

#include "archive/quick_archive.h"
#include "archive/name_compare.h"
#include "materials/material_search.h"
#include "records/record_io.h"
#include "materials/scene_materials.h"

namespace TalvexCore {

void MaterialReference::resetDefaults()
{
    resetBaseDefaults();
    target_uuid.clear();
    embedded = nullptr;
}

// Reference, version 2: the base record, the target's uuid, the copy in a material slot.
bool MaterialReference::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 2);
    if (!writeBaseRecord(out)) return false;
    out.writeWString(target_uuid);
    // A target the scene no longer knows takes the old copy with it.
    embedded = sceneMaterials()->materialForUuid(target_uuid);
    return writeChild(out, embedded);
}

bool MaterialReference::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2});
    if (!version || !readBaseRecord(in)) return false;
    in.readWString(target_uuid);
    return *version == 1 || readChild(in, embedded);
}

MaterialPtr MaterialReference::clone() const
{
    auto copy = std::make_shared<MaterialReference>(*this);
    copy->embedded = nullptr;
    return copy;
}

MaterialPtr MaterialReference::cloneSameName() const { return clone(); }

bool MaterialReference::isEqual(const MaterialPtr& other) const
{
    const auto* that = sameClass(*this, other);
    if (!that || !equalsNoCase(target_uuid, that->target_uuid)) return false;
    // A scene material that holds a reference to itself would compare without end.
    const MaterialDepthGuard guard;
    if (!guard) return false;
    const auto scene = sceneMaterials();
    return childEqual(scene->materialForUuid(target_uuid), scene->materialForUuid(that->target_uuid));
}

void MaterialReference::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeInnerXml(writer, embedded, url);
}

}  // namespace TalvexCore
