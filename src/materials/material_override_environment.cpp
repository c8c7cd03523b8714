#include "materials/material_override_environment.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialOverrideEnvironment;

namespace {

// Environment override, version 1. The record runs "bg" first, where memory and the XML run "gi"
// first.
const RecordRow<M> recordTable[] = {
    {BaseRecordRow{}}, {&M::base_mtl},
    {&M::bg_tex}, {&M::gi_tex}, {&M::reflect_tex}, {&M::refract_tex},
    {&M::bg_color}, {&M::gi_color}, {&M::reflect_color}, {&M::refract_color},
    {&M::bg_tex_mult}, {&M::gi_tex_mult}, {&M::reflect_tex_mult}, {&M::refract_tex_mult},
    {&M::override_bg}, {&M::override_gi}, {&M::override_reflect}, {&M::override_refract},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

bool M::writeBinary(QuickArchive& out) const { return writeRecordRows(out, *this, recordRows(), 1); }

bool M::readBinary(QuickArchive& in) { return readWrapper(in, *this, {1}, LoadReset::AfterTag); }

void M::resetDefaults() { resetFieldsKeepingBase(*this); }

MaterialPtr M::clone() const { return cloneWrapper(*this, InnerCopy::Clone); }

MaterialPtr M::cloneSameName() const { return cloneWrapper(*this, InnerCopy::SameName); }

bool M::isEqual(const MaterialPtr& other) const { return rowsEqual(*this, other); }

// Unlike the displaced material it adds no name to the url.
void M::writeXml(AssetXmlWriter& writer, std::u16string url) const { writeInnerXml(writer, base_mtl, url); }

}  // namespace TalvexCore
