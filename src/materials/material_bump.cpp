#include "materials/material_bump.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialBump;

namespace {

// Bump material, version 3: the multiplier, the texture, the base material with no presence byte,
// then the base record.
const RecordRow<M> recordTable[] = {
    {&M::bump_tex_mult}, {&M::bump_tex}, {BareMaterial<M>{&M::base_mtl}}, {BaseRecordRow{}},
};

const XmlRow<M> xmlTable[] = {
    {"bump_tex_mult", &M::bump_tex_mult}, {"base_mtl", &M::base_mtl}, {"bump_tex", &M::bump_tex},
};

// The oldest record's inner material is reset before it reads, and kept only when it read.
bool readResetMaterial(QuickArchive& in, MaterialPtr& slot)
{
    uint32_t id = 0;
    const uint64_t at = in.readPosition();
    in.readU32(id);
    MaterialPtr inner;
    if (!makeChild(in, inner, id, at)) return false;
    inner->resetDefaults();
    if (!readChildRecord(in, inner)) return false;
    slot = inner;
    return true;
}

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

// No version resets the fields first. Versions 1 and 2 stored a bare name where version 3 stores the
// base record, and version 1 a file path for the texture.
bool M::readBinary(QuickArchive& in)
{
    const auto version = readVersion(in, {1, 2, 3});
    if (!version) return false;
    if (*version == 3) return readRecordRows(in, *this, recordRows(), 3);
    if (*version == 2) {
        in.readWString(name);  // kept as read, even when empty
        in.readF32(bump_tex_mult);
        return readChild(in, bump_tex) && readRequiredChild(in, base_mtl);
    }
    readBareName(in);
    readFileChildren(in, bump_tex);
    in.readF32(bump_tex_mult);
    return readResetMaterial(in, base_mtl);
}

// Of the seven wrappers only this one also takes a new name and drops its uuid.
void M::resetDefaults()
{
    resetFieldsKeepingBase(*this);
    resetBaseDefaults();
}

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
