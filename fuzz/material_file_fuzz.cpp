// Any bytes as a material file: the load never crashes or hangs, and whatever loads emits its XML,
// writes itself again, and reads back into an object that writes the very same bytes. The name is
// set again before that second write: a name of control characters alone loads empty, and an empty
// name reads back as a fresh default name.
#include <cstdint>
#include <sstream>
#include <string>

#include "archive/quick_archive.h"
#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "xml/asset_xml_writer.h"

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
        QuickArchive first(1);
        if (!material->writeBinary(first)) continue;
        MaterialPtr copy = createMaterial(material->typeId());
        QuickArchive second(1);
        if (!copy->readBinary(first)) __builtin_trap();
        copy->name = material->name;
        if (!copy->writeBinary(second)) __builtin_trap();
        if (first.writePosition() != second.writePosition()) __builtin_trap();
        for (uint64_t i = 0; i < first.writePosition(); ++i) {
            uint8_t a = 0, b = 0;
            first.peekByte(i, a);
            second.peekByte(i, b);
            if (a != b) __builtin_trap();
        }
    }
    return 0;
}
