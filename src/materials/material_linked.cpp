#include "materials/material_linked.h"

#include "archive/quick_archive.h"
#include "archive/name_compare.h"
#include "records/record_io.h"
#include "materials/scene_materials.h"

namespace TalvexCore {

// Identity, version 1: the kind, then text or a number; any other kind is refused behind it.
bool MaterialLinked::IdData::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    out.writeI32(kind);
    if (holdsText()) out.writeWString(textValue);
    else if (kind == 2) out.writeI32(numberValue);
    else return false;
    return true;
}

bool MaterialLinked::IdData::readBinary(QuickArchive& in)
{
    if (!readVersion(in, {1})) return false;
    in.readI32(kind);
    if (holdsText()) in.readWString(textValue);
    else if (kind == 2) in.readI32(numberValue);
    else return false;
    return true;
}

std::u16string MaterialLinked::IdData::text() const { return holdsText() ? textValue : std::u16string(); }

int32_t MaterialLinked::IdData::number() const { return kind == 2 ? numberValue : -1; }

void MaterialLinked::IdData::setText(const std::u16string& value)
{
    if (holdsText()) textValue = value;
}

void MaterialLinked::IdData::setNumber(int32_t value)
{
    if (kind == 2) numberValue = value;
}

bool MaterialLinked::IdData::isEqual(const IdData& other) const
{
    if (kind != other.kind) return false;
    return kind == 2 ? numberValue == other.numberValue : equalsNoCase(text(), other.text());
}

// The reset leaves the name and the uuid alone.
void MaterialLinked::resetDefaults()
{
    linked_mtl = nullptr;
    link_id = IdData();
}

// Linked material, version 1: the identity, the material with no presence byte, the base record.
bool MaterialLinked::writeBinary(QuickArchive& out) const
{
    if (!linked_mtl) return false;
    writeVersion(out, 1);
    return link_id.writeBinary(out) && writeRequiredChild(out, linked_mtl) && writeBaseRecord(out);
}

bool MaterialLinked::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1});
    resetDefaults();
    return version && link_id.readBinary(in) && readRequiredChild(in, linked_mtl) && readBaseRecord(in);
}

MaterialPtr MaterialLinked::clone() const
{
    auto copy = std::make_shared<MaterialLinked>(*this);
    copy->linked_mtl = cloneChild(linked_mtl);
    copy->name = sceneMaterials()->uniqueName(name);
    return copy;
}

MaterialPtr MaterialLinked::cloneSameName() const
{
    auto copy = std::make_shared<MaterialLinked>(*this);
    if (linked_mtl) copy->linked_mtl = linked_mtl->cloneSameName();
    return copy;
}

bool MaterialLinked::isEqual(const MaterialPtr& other) const
{
    const auto* that = sameClass(*this, other);
    return that && childEqual(linked_mtl, that->linked_mtl) && link_id.isEqual(that->link_id);
}

}  // namespace TalvexCore
