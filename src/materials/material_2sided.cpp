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

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
