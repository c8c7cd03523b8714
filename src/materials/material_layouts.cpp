#include "materials/material_layouts.h"

#include <array>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_skp2sided.h"
#include "materials/material_toon.h"
#include "materials/wrapper_fields.h"

namespace TalvexCore {

namespace {

constexpr uint32_t layeredTypeId = 1;

template <class M>
bool alwaysOn(const M&)
{
    return true;
}

// The blocks that wrappers add to the standard asset, in the order the asset holds them. A
// texture's asset stands under the standard asset's url and the texture's parameter name.
const XmlRow<MaterialBump> bumpBlock[] = {
    {"bump_on", &alwaysOn<MaterialBump>},
    {"bump_tex_mult", &MaterialBump::bump_tex_mult},
    {"bump_tex", &MaterialBump::bump_tex},
};

const XmlRow<MaterialDisplaced> displacedBlock[] = {
    {"displace_on", &alwaysOn<MaterialDisplaced>},
    {"displace_shift", &MaterialDisplaced::displace_shift},
    {"displace_edge_length", &MaterialDisplaced::displace_edge_length},
    {"displace_tex_mult", &MaterialDisplaced::displace_tex_mult},
    {"displace_max_subdivs", &MaterialDisplaced::displace_max_subdivs},
    {"displace_continuity", &MaterialDisplaced::displace_continuity},
    {"displace_view_dependent", &MaterialDisplaced::displace_view_dependent},
    {"displace_use_globals", &MaterialDisplaced::displace_use_globals},
    {"displace_tex", &MaterialDisplaced::displace_tex},
};

// The textures run "gi" first and their multipliers "bg" first.
using Override = MaterialOverrideEnvironment;
const XmlRow<Override> overrideBlock[] = {
    {"gi_tex", &Override::gi_tex}, {"bg_tex", &Override::bg_tex},
    {"reflect_tex", &Override::reflect_tex}, {"refract_tex", &Override::refract_tex},
    {"gi_color", &Override::gi_color}, {"bg_color", &Override::bg_color},
    {"reflect_color", &Override::reflect_color}, {"refract_color", &Override::refract_color},
    {"bg_tex_mult", &Override::bg_tex_mult}, {"gi_tex_mult", &Override::gi_tex_mult},
    {"reflect_tex_mult", &Override::reflect_tex_mult}, {"refract_tex_mult", &Override::refract_tex_mult},
    {"override_bg", &Override::override_bg}, {"override_gi", &Override::override_gi},
    {"override_reflect", &Override::override_reflect}, {"override_refract", &Override::override_refract},
};

// The list of objects does not reach the standard asset.
const XmlRow<MaterialObjectExclusion> exclusionBlock[] = {
    {"ignore_objects", +[](const MaterialObjectExclusion& m) { return m.mode != 0; }},
    {"short_circuit", &MaterialObjectExclusion::short_circuit},
};

const XmlRow<MaterialAlphaContribution> alphaBlock[] = {
    {"alpha", &MaterialAlphaContribution::alpha},
    {"alpha_tex_mult", &MaterialAlphaContribution::alpha_tex_mult},
    {"alpha_tex", &MaterialAlphaContribution::alpha_tex},
};

template <const auto& rows>
using OwnerOf = typename std::remove_cvref_t<decltype(rows[0])>::Owner;

template <const auto& rows>
void blockTextures(AssetXmlWriter& writer, const BaseMaterial& material, const std::u16string& url)
{
    using M = OwnerOf<rows>;
    writeRowTextures(writer, static_cast<const M&>(material), url, std::span<const XmlRow<M>>(rows));
}

template <const auto& rows>
void blockParameters(AssetXmlWriter& writer, const BaseMaterial& material, const std::u16string& url)
{
    using M = OwnerOf<rows>;
    writeRowParameters(writer, static_cast<const M&>(material), url, std::span<const XmlRow<M>>(rows),
                       InnerNaming::TopLevel);
}

struct WrapperBlock {
    uint32_t typeId;
    void (*textures)(AssetXmlWriter&, const BaseMaterial&, const std::u16string&);
    void (*parameters)(AssetXmlWriter&, const BaseMaterial&, const std::u16string&);
};

const std::array<WrapperBlock, 5> wrapperBlocks = {{
    {3, blockTextures<bumpBlock>, blockParameters<bumpBlock>},
    {9, blockTextures<displacedBlock>, blockParameters<displacedBlock>},
    {8, blockTextures<overrideBlock>, blockParameters<overrideBlock>},
    {10, blockTextures<exclusionBlock>, blockParameters<exclusionBlock>},
    {11, blockTextures<alphaBlock>, blockParameters<alphaBlock>},
}};

// The four classes with an asset of their own. A parameter naming an inner material names the
// standard asset of what it resolves to, and only when that one is emittable.
const XmlRow<MaterialAngleBlend> angleBlendLayout[] = {
    {"mtl_one", &MaterialAngleBlend::mtl_one}, {"mtl_two", &MaterialAngleBlend::mtl_two},
    {"start_angle", &MaterialAngleBlend::start_angle}, {"stop_angle", &MaterialAngleBlend::stop_angle},
};

// Only these four of the class's parameters reach the top level.
const XmlRow<Material2Sided> twoSidedLayout[] = {
    {"front", &Material2Sided::front}, {"back", &Material2Sided::back},
    {"translucency", &Material2Sided::translucency}, {"force_1sided", &Material2Sided::force_1sided},
};

const XmlRow<MaterialSkp2Sided> skpTwoSidedLayout[] = {
    {"front", &MaterialSkp2Sided::front}, {"back", &MaterialSkp2Sided::back},
    {"force_1sided", &MaterialSkp2Sided::force_1sided},
};

// Camel-case names of their own, unlike the class's own asset, and no line units.
const XmlRow<MaterialToon> toonLayout[] = {
    {"base_mtl", &MaterialToon::base_mtl},
    {"lineColorTex", &MaterialToon::color_tex, "color_tex"},
    {"distortTex", &MaterialToon::distort_tex, "distort_tex"},
    {"opacityTex", &MaterialToon::opacity_tex, "opacity_tex"},
    {"lineWidthTex", &MaterialToon::width_tex, "width_tex"},
    {"lineColor", &MaterialToon::color},
    {"lineColorTexMult", &MaterialToon::color_tex_mult},
    {"distort", &MaterialToon::distort},
    {"distortTexMult", &MaterialToon::distort_tex_mult},
    {"opacity", &MaterialToon::opacity},
    {"opacityTexMult", &MaterialToon::opacity_tex_mult},
    {"lineWidth", &MaterialToon::width},
    {"lineWidthTexMult", &MaterialToon::width_tex_mult},
    {"zThreshold", &MaterialToon::z_threshold},
    {"traceBias", &MaterialToon::trace_bias},
    {"normalThreshold", &MaterialToon::normal_threshold},
    {"silhouetteMult", &MaterialToon::silhouette_mult},
    {"doSecondary", &MaterialToon::do_secondary},
    {"divideByDist", &MaterialToon::divide_by_distance},
    {"doSilhouetteMult", &MaterialToon::do_silhouette_mult},
};

// The standard assets of the inner materials, the textures, then the material's own asset.
template <const auto& rows>
void writeOwnLayout(AssetXmlWriter& writer, const BaseMaterial& material, const char* layout)
{
    using M = OwnerOf<rows>;
    const auto& self = static_cast<const M&>(material);
    const std::span<const XmlRow<M>> table(rows);
    const KeptUrl kept(writer, AssetUrl(u"", self.name));
    const std::u16string& url = kept.text();
    for (const XmlRow<M>& row : table)
        if (auto f = std::get_if<MaterialPtr M::*>(&row.field)) writeStandardLayout(writer, resolveReference(self.**f));
    writeRowTextures(writer, self, url, table);
    writer.beginAsset(kept.xmlText(), self.assetType(), layout, self.pluginType());
    writeRowParameters(writer, self, url, table, InnerNaming::TopLevel);
    writer.endAsset();
}

}  // namespace

void writeMaterialAssets(AssetXmlWriter& writer, const MaterialPtr& material)
{
    writer.openAssets();
    // Every class without a layout of its own, the multi-material, the single-layer and the
    // reference material too, takes the standard one.
    if (material) {
        switch (material->typeId()) {
        case 12: writeOwnLayout<angleBlendLayout>(writer, *material, "AngleBlendMatLayout"); break;
        case 5: writeOwnLayout<twoSidedLayout>(writer, *material, "TwoSidedMatLayout"); break;
        case 7: writeOwnLayout<skpTwoSidedLayout>(writer, *material, "SkpTwoSidedMatLayout"); break;
        case 14: writeOwnLayout<toonLayout>(writer, *material, "ToonMatLayout"); break;
        default: writeStandardLayout(writer, material); break;
        }
    }
    writer.closeAssets();
}

// The standard asset: the wrappers' textures, the layered core's layers, then one asset under the
// outermost name with the core's parameters and a block for the first wrapper found of each kind.
void writeStandardLayout(AssetXmlWriter& writer, const MaterialPtr& given)
{
    const MaterialPtr material = resolveReference(given);
    if (!material) return;
    const MaterialPtr core = findFirstMaterialByType(material, layeredTypeId);
    // Without a layered core, the material does not appear in the XML at all.
    if (!core) return;
    const auto& layered = static_cast<const MaterialLayeredBRDF&>(*core);
    const KeptUrl kept(writer, AssetUrl(u"", material->name));
    const std::u16string& url = kept.text();

    std::array<std::pair<const WrapperBlock*, MaterialPtr>, std::tuple_size_v<decltype(wrapperBlocks)>> found;
    std::size_t foundCount = 0;
    for (const WrapperBlock& block : wrapperBlocks)
        if (MaterialPtr wrapper = findFirstMaterialByType(material, block.typeId))
            found[foundCount++] = {&block, std::move(wrapper)};
    const std::span<const std::pair<const WrapperBlock*, MaterialPtr>> wrappers(found.data(), foundCount);

    for (const auto& [block, wrapper] : wrappers) block->textures(writer, *wrapper, url);
    layered.writeAsset(writer, url, [&] {
        for (const auto& [block, wrapper] : wrappers) block->parameters(writer, *wrapper, url);
    });
}

std::u16string layerGroupName(uint32_t group)
{
    switch (group) {
    case 0: return u"Emissive";
    case 1: return u"Reflection";
    case 2: return u"Diffuse";
    case 3: return u"Refraction";
    default: return {};
    }
}

}  // namespace TalvexCore
