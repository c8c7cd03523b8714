#include "materials/material_skp2sided.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialSkp2Sided;

namespace {

// Plain two-sided material, version 1: here the base record stands right behind the tag. Its loader
// reads over the fields as they stand.
const RecordRow<M> recordTable[] = {
    {BaseRecordRow{}}, {&M::front}, {&M::back}, {&M::force_1sided},
};

const XmlRow<M> xmlTable[] = {
    {"front", &M::front}, {"back", &M::back}, {"force_1sided", &M::force_1sided},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

bool M::writeBinary(QuickArchive& out) const { return writeRecordRows(out, *this, recordRows(), 1); }

bool M::readBinary(QuickArchive& in) { return readWrapper(in, *this, {1}, LoadReset::None); }

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
