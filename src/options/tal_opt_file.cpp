#include "options/tal_opt_file.h"

#include <fstream>
#include <istream>
#include <ostream>

#include "archive/file_path.h"
#include "archive/quick_archive.h"
#include "archive/regular_file.h"
#include "archive/stream_bytes.h"
#include "options/all_options.h"
#include "records/record_io.h"

namespace TalvexCore {

bool TalOptFile::save(const AllOptions& options, const std::u16string& path)
{
    QuickArchive archive(1);
    if (!options.writeBinary(archive)) return false;
    std::ofstream out(filePath(path), std::ios::binary);
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
    RegularFile file(path);
    return file.isOpen() && load(options, file.stream());
}

bool TalOptFile::load(AllOptions& options, std::istream& in, LoadTrace* trace)
{
    // The size the file reports, against the bytes that arrive: fewer is a short read.
    const std::streamoff start = in.tellg();
    in.seekg(0, std::ios::end);
    const std::streamoff end = in.tellg();
    in.seekg(start);
    const std::string bytes = readRemainingBytes(in);
    if (bytes.empty() || (start >= 0 && end > start && bytes.size() < static_cast<std::size_t>(end - start)))
        return false;
    QuickArchive archive(bytes.data(), bytes.size());
    if (!trace) return options.readBinary(archive);

    archive.setLoadTrace(trace);
    const bool loaded = readEmbeddedRecord(archive, options);
    // The record's own tag is the file's only version mark.
    if (!trace->objects().empty()) trace->fileVersion = trace->objects().front().version;
    trace->readPastEnd = archive.readPastEnd();
    if (!loaded) trace->failure = archive.failure();
    return loaded;
}

}  // namespace TalvexCore
