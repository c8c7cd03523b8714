#include "materials/material_displaced.h"

#include "materials/wrapper_fields.h"

namespace TalvexCore {

using M = MaterialDisplaced;

namespace {

// Displaced material, version 2; version 1 ended behind the texture multiplier.
const RecordRow<M> recordTable[] = {
    {BaseRecordRow{}}, {&M::base_mtl}, {&M::displace_tex}, {&M::displace_tex_mult},
    {&M::displace_shift, 2}, {&M::displace_edge_length, 2}, {&M::displace_max_subdivs, 2},
    {&M::displace_continuity, 2}, {&M::displace_view_dependent, 2}, {&M::displace_use_globals, 2},
};

}  // namespace

std::span<const RecordRow<M>> M::recordRows() { return recordTable; }

// No asset of its own: what it adds reaches the XML through the standard asset only.
void M::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeInnerXml(writer, base_mtl, KeptUrl(writer, AssetUrl(url, name)));
}

template class RowMaterial<M>;

}  // namespace TalvexCore
