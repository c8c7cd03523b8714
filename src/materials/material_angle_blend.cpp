#include "materials/material_angle_blend.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialAngleBlend;

namespace {

// Angle blend, version 1: the base record, the two materials, the two angles.
const RecordRow<M> recordTable[] = {
    {BaseRecordRow{}}, {&M::mtl_one}, {&M::mtl_two}, {&M::start_angle}, {&M::stop_angle},
};

const XmlRow<M> xmlTable[] = {
    {"mtl_one", &M::mtl_one}, {"mtl_two", &M::mtl_two},
    {"start_angle", &M::start_angle}, {"stop_angle", &M::stop_angle},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

bool M::writeBinary(QuickArchive& out) const { return writeRecordRows(out, *this, recordRows(), 1); }

bool M::readBinary(QuickArchive& in) { return readWrapper(in, *this, {1}, LoadReset::AfterTag); }

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
