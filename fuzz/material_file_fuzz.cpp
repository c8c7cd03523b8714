// Any bytes as a material file: the load never crashes or hangs, and whatever loads emits its XML,
// writes itself again, and reads back equal to itself.
#include <cstdint>
#include <sstream>
#include <string>

#include "archive/quick_archive.h"
#include "archive/tal_mat_file.h"
#include "xml/asset_xml_writer.h"
#include "xml/material_layouts.h"

using namespace TalvexCore;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    TalMatFile file;
    if (!file.load(in)) return 0;

    std::u16string text;
    AssetXmlWriter writer(text);
    writer.openRoot(u"talmat");
    for (const MaterialPtr& material : file.materials) writeMaterialAssets(writer, material);
    writer.closeRoot();

    for (const MaterialPtr& material : file.materials) {
        QuickArchive archive(1);
        if (!material->writeBinary(archive)) continue;
        MaterialPtr copy = createMaterial(material->typeId());
        if (!copy->readBinary(archive) || !material->isEqual(copy)) __builtin_trap();
    }
    return 0;
}
