// Any bytes as a material file: the load never crashes or hangs, and whatever loads emits its XML
// and writes itself again. A first reading of what it wrote may still change it (a name of control
// characters alone loads empty, and an empty name, the outer material's or an inner one's, reads
// back as a fresh default name), so the check is that the second writing reads back into an object
// that writes the very same bytes.
#include <cstdint>
#include <sstream>
#include <string>

#include "archive/quick_archive.h"
#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

MaterialPtr readBack(uint32_t typeId, QuickArchive& archive)
{
    MaterialPtr copy = createMaterial(typeId);
    if (!copy->readBinary(archive)) __builtin_trap();
    return copy;
}

bool sameBytes(const QuickArchive& a, const QuickArchive& b)
{
    if (a.writePosition() != b.writePosition()) return false;
    for (uint64_t i = 0; i < a.writePosition(); ++i) {
        uint8_t x = 0, y = 0;
        a.peekByte(i, x);
        b.peekByte(i, y);
        if (x != y) return false;
    }
    return true;
}

}  // namespace

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
        const MaterialPtr once = readBack(material->typeId(), first);
        QuickArchive second(1);
        if (!once->writeBinary(second)) __builtin_trap();
        const MaterialPtr twice = readBack(material->typeId(), second);
        QuickArchive third(1);
        if (!twice->writeBinary(third)) __builtin_trap();
        if (!sameBytes(second, third)) __builtin_trap();
    }
    return 0;
}
