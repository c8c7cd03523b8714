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

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
