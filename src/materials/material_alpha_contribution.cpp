#include "materials/material_alpha_contribution.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialAlphaContribution;

namespace {

// Alpha contribution, version 1: the base record, the material, the alpha texture and values.
const RecordRow<M> recordTable[] = {
    {BaseRecordRow{}}, {&M::base_mtl}, {&M::alpha_tex}, {&M::alpha_tex_mult}, {&M::alpha},
};

const XmlRow<M> xmlTable[] = {
    {"alpha", &M::alpha}, {"alpha_tex_mult", &M::alpha_tex_mult},
    {"base_mtl", &M::base_mtl}, {"alpha_tex", &M::alpha_tex},
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
