#include "module/material_conversion.h"

#include "archive/regular_file.h"
#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "module/model_state_lock.h"

namespace TalvexCore {

ConversionOutcome writeMaterialFileXml(const std::u16string& path, std::string& text,
                                       const AssetXmlWriter::Utf8FlushSink& sink, ConversionNotes* notes,
                                       LoneSurrogates loneSurrogates)
{
    const std::lock_guard<std::mutex> held(modelStateLock());
    RegularFile input(path);
    TalMatFile file;
    const bool loaded = input.isOpen() && file.load(input.stream());
    if (notes) {
        const MaterialFileLoad& load = file.lastLoad();
        *notes = {load.binaryHeader, load.failure, load.readPastEnd, {}};
    }
    if (!loaded) return appendPlainText(input, text, sink, notes);

    AssetXmlWriter writer(text, loneSurrogates, AssetXmlWriter::Delivery::AtFlush);
    writer.setFlushSink(sink);
    writer.openRoot(materialRootTag);
    for (std::size_t i = 0; i < file.materialCount(); ++i) {
        MaterialPtr material;
        if (file.getMaterial(i, material) && material) writeMaterialAssets(writer, material);
    }
    writer.closeRoot();
    return ConversionOutcome::Binary;
}

std::string materialFileToXml(const std::u16string& path, LoneSurrogates loneSurrogates)
{
    std::string text;
    writeMaterialFileXml(path, text, {}, nullptr, loneSurrogates);
    return text;
}

}  // namespace TalvexCore
