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

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
