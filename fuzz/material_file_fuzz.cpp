// Any bytes as a material file: the load never crashes or hangs, and whatever loads emits its XML
// and writes itself again. Reading what it wrote may still change it twice over: a name of control
// characters stored by a record that keeps it reads back empty, and an empty name, the outer
// material's or an inner one's, reads back as a fresh default name. So the check is that from the
// third writing on, reading and writing again gives the very same bytes.
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "archive/quick_archive.h"
#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "xml/asset_xml_writer.h"

#include "same_bytes.h"

using namespace TalvexCore;

namespace {

MaterialPtr readBack(uint32_t typeId, QuickArchive& archive)
{
    MaterialPtr copy = createMaterial(typeId);
    if (!copy->readBinary(archive)) __builtin_trap();
    return copy;
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
        std::vector<QuickArchive> writings;
        writings.reserve(4);
        writings.emplace_back(1);
        if (!material->writeBinary(writings.back())) continue;
        for (int round = 0; round < 3; ++round) {
            const MaterialPtr copy = readBack(material->typeId(), writings.back());
            writings.emplace_back(1);
            if (!copy->writeBinary(writings.back())) __builtin_trap();
        }
        if (!sameBytes(writings[2], writings[3])) __builtin_trap();
    }
    return 0;
}
