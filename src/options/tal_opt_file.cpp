#include "options/tal_opt_file.h"

#include <fstream>
#include <istream>
#include <ostream>

#include "archive/quick_archive.h"
#include "archive/stream_bytes.h"
#include "archive/text_conversion.h"
#include "options/all_options.h"

namespace TalvexCore {

bool TalOptFile::save(const AllOptions& options, const std::u16string& path)
{
    QuickArchive archive(1);
    if (!options.writeBinary(archive)) return false;
    std::ofstream out(wideToNarrow(path), std::ios::binary);
    if (!out.is_open()) return false;
    const QuickArchive::Block zeros{};
    for (uint64_t i = 0; i < archive.blockCount(); ++i) {
        const QuickArchive::Block* block = archive.blockAt(i);
        out.write(reinterpret_cast<const char*>((block ? *block : zeros).data()), QuickArchive::BlockSize);
        // The same constant after every block, not a running total.
        if (out.tellp() != static_cast<std::streamoff>(QuickArchive::BlockSize)) return false;
    }
    return true;
}

bool TalOptFile::load(AllOptions& options, const std::u16string& path)
{
    std::ifstream in(wideToNarrow(path), std::ios::binary);
    if (!in.is_open()) return false;
    return load(options, in);
}

bool TalOptFile::load(AllOptions& options, std::istream& in)
{
    const std::string bytes = readRemainingBytes(in);
    if (bytes.empty()) return false;
    QuickArchive archive(bytes.data(), bytes.size());
    return options.readBinary(archive);
}

}  // namespace TalvexCore
