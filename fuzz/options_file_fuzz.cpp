// Any bytes as an options file: the load never crashes or hangs, and whatever loads emits its 22
// settings assets, writes itself again, and reads back into an object that writes the very same bytes.
#include <cstdint>
#include <sstream>
#include <string>

#include "archive/quick_archive.h"
#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "xml/asset_xml_writer.h"

#include "same_bytes.h"

using namespace TalvexCore;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    AllOptions options;
    if (!TalOptFile().load(options, in)) return 0;

    // The conversion's own writer, which gathers UTF-8.
    std::string text;
    AssetXmlWriter writer(text);
    writer.openRoot(u"talopt");
    options.writeXml(writer, u"");
    writer.closeRoot();

    QuickArchive first(1);
    if (!options.writeBinary(first)) return 0;
    AllOptions copy;
    if (!copy.readBinary(first)) __builtin_trap();
    QuickArchive second(1);
    if (!copy.writeBinary(second) || !sameBytes(first, second)) __builtin_trap();
    return 0;
}
