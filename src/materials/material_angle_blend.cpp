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

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
