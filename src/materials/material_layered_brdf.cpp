#include "materials/material_layered_brdf.h"

#include "archive/quick_archive.h"
#include "materials/scene_materials.h"
#include "records/record_io.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

namespace {

// A layer in the list is at least its type id and its tag.
constexpr uint64_t minimumLayerBytes = 8;

// A list of layers: a count, then each layer's type id and record, with no presence byte.
bool readLayers(QuickArchive& in, std::vector<BRDFPtr>& layers)
{
    return readCountedList(in, minimumLayerBytes, [&] {
        BRDFPtr layer;
        if (!readRequiredChild(in, layer)) return false;
        layers.push_back(std::move(layer));
        return true;
    }, layers);
}

bool writeLayers(QuickArchive& out, const std::vector<BRDFPtr>& layers)
{
    return writeCountedList(out, layers, [&](const BRDFPtr& layer) { return writeRequiredChild(out, layer); });
}

}  // namespace

void MaterialLayeredBRDF::resetDefaults()
{
    resetBaseDefaults();
    brdfs.clear();
    double_sided = 1;
    layered_aux_1 = 0;
    layered_aux_2 = 1;
    layered_aux_3 = 1;
    layered_aux_4 = 0;
}

// Layered material, version 4: layers, five integers with the base record before the last.
bool MaterialLayeredBRDF::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 4);
    if (!writeLayers(out, brdfs)) return false;
    out.writeU32(double_sided);
    out.writeU32(layered_aux_1);
    out.writeU32(layered_aux_2);
    out.writeU32(layered_aux_3);
    if (!writeBaseRecord(out)) return false;
    out.writeU32(layered_aux_4);
    return true;
}

bool MaterialLayeredBRDF::readBinary(QuickArchive& in)
{
    // The tag is read before the reset, and a refused tag leaves the defaults.
    const auto version = readVersion(in, {1, 2, 3, 4});
    resetDefaults();
    if (!version) return false;
    if (!readLayers(in, brdfs)) return false;
    in.readU32(double_sided);
    in.readU32(layered_aux_1);
    if (*version >= 3) {
        in.readU32(layered_aux_2);
        in.readU32(layered_aux_3);
    }
    // Version 1 stored a bare name where later versions store the base record.
    if (*version == 1) {
        readBareName(in);
        return true;
    }
    const bool base = readBaseRecord(in);
    if (*version >= 4) in.readU32(layered_aux_4);
    return base;
}

std::shared_ptr<MaterialLayeredBRDF> MaterialLayeredBRDF::copyWithClonedLayers() const
{
    auto copy = std::make_shared<MaterialLayeredBRDF>(*this);
    for (BRDFPtr& layer : copy->brdfs) layer = cloneChild(layer);
    return copy;
}

MaterialPtr MaterialLayeredBRDF::clone() const
{
    auto copy = copyWithClonedLayers();
    copy->name = sceneMaterials()->uniqueName(name);
    return copy;
}

MaterialPtr MaterialLayeredBRDF::cloneSameName() const
{
    return copyWithClonedLayers();
}

bool MaterialLayeredBRDF::isEqual(const MaterialPtr& other) const
{
    const auto* that = sameClass(*this, other);
    if (!that || that->brdfs.size() != brdfs.size()) return false;
    for (std::size_t i = 0; i < brdfs.size(); ++i)
        if (!childEqual(brdfs[i], that->brdfs[i])) return false;
    return double_sided == that->double_sided && layered_aux_1 == that->layered_aux_1 &&
           layered_aux_2 == that->layered_aux_2 && layered_aux_3 == that->layered_aux_3 &&
           layered_aux_4 == that->layered_aux_4;
}

void MaterialLayeredBRDF::writeLayerList(AssetXmlWriter& writer, const std::u16string& url) const
{
    writer.openList("brdfs", "plugin");
    for (const BRDFPtr& layer : brdfs)
        if (layer) writer.writeEntry(KeptUrl(writer, AssetUrl(url, layer->name)).text());
    writer.closeList();
}

void MaterialLayeredBRDF::writeAsset(AssetXmlWriter& writer, const std::u16string& url,
                                     MoreParameters moreParameters) const
{
    // Each layer extends the material's url by its own name.
    const AssetFrame frame(writer, *this, url, "defnumat", brdfs.size(),
                           [this](std::size_t i) { return ChildSlot(nullptr, nullptr, brdfs[i]); });
    writer.writeInt("double_sided", static_cast<int32_t>(double_sided));
    writeLayerList(writer, url);
    if (moreParameters) moreParameters();
    frame.close();
}

void MaterialLayeredBRDF::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    writeAsset(writer, KeptUrl(writer, AssetUrl(url, name)));
}

}  // namespace TalvexCore
