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

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
