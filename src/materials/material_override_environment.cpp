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

// Unlike the displaced material it adds no name to the url.
void M::writeXml(AssetXmlWriter& writer, const std::u16string& url) const { writeInnerXml(writer, base_mtl, url); }

template class RowMaterial<M>;

}  // namespace TalvexCore
