#include "materials/material_object_exclusion.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialObjectExclusion;

namespace {

// Object exclusion, version 3; version 1 ended behind the objects, with no base record at all, and
// version 2 behind the base record.
const RecordRow<M> recordTable[] = {
    {&M::mode}, {&M::base_mtl}, {&M::objects}, {BaseRecordRow{}, 2}, {&M::short_circuit, 3},
};

const XmlRow<M> xmlTable[] = {
    {"base_mtl", &M::base_mtl}, {"mode", &M::mode}, {"short_circuit", &M::short_circuit},
    {"objects", &M::objects},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

bool M::writeBinary(QuickArchive& out) const { return writeRecordRows(out, *this, recordRows(), 3); }

bool M::readBinary(QuickArchive& in) { return readWrapper(in, *this, {1, 2, 3}, LoadReset::AfterTag); }

void M::resetDefaults() { resetFieldsKeepingBase(*this); }

MaterialPtr M::clone() const { return cloneWrapper(*this, InnerCopy::Clone); }

MaterialPtr M::cloneSameName() const { return cloneWrapper(*this, InnerCopy::SameName); }

bool M::isEqual(const MaterialPtr& other) const { return rowsEqual(*this, other); }

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

void M::writeXml(AssetXmlWriter& writer, std::u16string url) const
{
    writeWrapperXml(writer, *this, std::move(url), xmlRows());
}

}  // namespace TalvexCore
