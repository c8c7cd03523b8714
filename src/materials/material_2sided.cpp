#include "materials/material_2sided.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = Material2Sided;

namespace {

// Two-sided material, version 3; version 1 ended behind force_1sided, version 2 behind the
// transparency. Its loader reads over the fields as they stand.
const RecordRow<M> recordTable[] = {
    {&M::front}, {&M::back},
    {&M::translucency_tex}, {&M::translucency}, {&M::translucency_tex_mult}, {&M::force_1sided},
    {&M::transparency_tex, 2}, {&M::transparency, 2}, {&M::transparency_tex_mult, 2},
    {BaseRecordRow{}, 3},
};

const XmlRow<M> xmlTable[] = {
    {"front", &M::front}, {"back", &M::back},
    {"translucency_tex", &M::translucency_tex}, {"transparency_tex", &M::transparency_tex},
    {"translucency", &M::translucency}, {"transparency", &M::transparency},
    {"translucency_tex_mult", &M::translucency_tex_mult}, {"transparency_tex_mult", &M::transparency_tex_mult},
    {"force_1sided", &M::force_1sided},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

bool M::writeBinary(QuickArchive& out) const { return writeRecordRows(out, *this, recordRows(), 3); }

bool M::readBinary(QuickArchive& in) { return readWrapper(in, *this, {1, 2, 3}, LoadReset::None); }

void M::resetDefaults() { resetFieldsKeepingBase(*this); }

MaterialPtr M::clone() const { return cloneWrapper(*this, InnerCopy::Clone, TextureCopy::Share); }

MaterialPtr M::cloneSameName() const { return cloneWrapper(*this, InnerCopy::SameName, TextureCopy::Share); }

bool M::isEqual(const MaterialPtr& other) const { return rowsEqual(*this, other); }

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

void M::writeXml(AssetXmlWriter& writer, std::u16string url) const
{
    writeWrapperXml(writer, *this, std::move(url), xmlRows());
}

}  // namespace TalvexCore
