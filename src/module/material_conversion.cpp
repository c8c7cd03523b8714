#include "module/material_conversion.h"

#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"

namespace TalvexCore {

ConversionOutcome writeMaterialFileXml(const std::u16string& path, std::u16string& text,
                                       const AssetXmlWriter::FlushSink& sink, ConversionNotes* notes)
{
    TalMatFile file;
    const bool loaded = file.load(path);
    if (notes) {
        const MaterialFileLoad& load = file.lastLoad();
        *notes = {load.binaryHeader, load.failure, load.readPastEnd, {}};
    }
    if (!loaded) return appendPlainText(path, text, sink, notes);

    AssetXmlWriter writer(text);
    writer.setFlushSink(sink);
    writer.openRoot(materialRootTag);
    for (std::size_t i = 0; i < file.materialCount(); ++i) {
        MaterialPtr material;
        if (file.getMaterial(i, material) && material) writeMaterialAssets(writer, material);
    }
    writer.closeRoot();
    return ConversionOutcome::Binary;
}

std::u16string materialFileToXml(const std::u16string& path)
{
    std::u16string text;
    writeMaterialFileXml(path, text, {});
    return text;
}

}  // namespace TalvexCore
