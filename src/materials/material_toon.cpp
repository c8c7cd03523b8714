#include "materials/material_toon.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialToon;

namespace {

// Toon material, version 2; version 1 ended behind the base record.
const RecordRow<M> recordTable[] = {
    {&M::base_mtl},
    {&M::width}, {&M::width_tex_mult}, {&M::width_tex},
    {&M::opacity}, {&M::opacity_tex_mult}, {&M::opacity_tex},
    {&M::distort}, {&M::distort_tex_mult}, {&M::distort_tex},
    {&M::color}, {&M::color_tex_mult}, {&M::color_tex},
    {&M::z_threshold}, {&M::trace_bias}, {&M::normal_threshold}, {&M::line_units},
    {&M::do_secondary}, {&M::divide_by_distance},
    {BaseRecordRow{}},
    {&M::do_silhouette_mult, 2}, {&M::silhouette_mult, 2},
};

const XmlRow<M> xmlTable[] = {
    {"base_mtl", &M::base_mtl},
    {"color_tex", &M::color_tex}, {"distort_tex", &M::distort_tex},
    {"opacity_tex", &M::opacity_tex}, {"width_tex", &M::width_tex},
    {"color", &M::color},
    {"color_tex_mult", &M::color_tex_mult}, {"distort", &M::distort}, {"distort_tex_mult", &M::distort_tex_mult},
    {"opacity", &M::opacity}, {"opacity_tex_mult", &M::opacity_tex_mult},
    {"width", &M::width}, {"width_tex_mult", &M::width_tex_mult},
    {"z_threshold", &M::z_threshold}, {"trace_bias", &M::trace_bias},
    {"normal_threshold", &M::normal_threshold}, {"line_units", &M::line_units},
    {"silhouette_mult", &M::silhouette_mult},
    {"do_secondary", &M::do_secondary}, {"divide_by_distance", &M::divide_by_distance},
    {"do_silhouette_mult", &M::do_silhouette_mult},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

MaterialPtr M::cloneSameName() const
{
    auto copy = copyWithInner(*this, recordRows(), InnerCopy::SameName);
    copy->base_mtl = cloneChild(base_mtl);
    return copy;
}

std::span<const XmlRow<M>> M::xmlRows() { return xmlTable; }

template class RowMaterial<M>;

}  // namespace TalvexCore
