#include "materials/tal_mat_file.h"

#include <istream>
#include <ostream>

#include "archive/name_compare.h"
#include "archive/quick_archive.h"
#include "archive/regular_file.h"
#include "archive/stream_bytes.h"
#include "archive/text_conversion.h"
#include "records/record_io.h"
#include "records/serializable.h"

namespace TalvexCore {

namespace {

constexpr int textInputMode = 1;
constexpr int binaryInputMode = 33;

struct Header {
    uint32_t tag = 0;
    uint32_t count = 0;
};

Header readHeader(std::istream& in)
{
    Header header;
    in.read(reinterpret_cast<char*>(&header.tag), 4);
    in.read(reinterpret_cast<char*>(&header.count), 4);
    return header;
}

// Version 1 files went through a text-mode stream: every line feed stands as CR LF. The repair is
// blind and also takes a genuine CR LF pair in the data.
void repairLineEnds(std::string& data)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < data.size(); ++i)
        if (data[i] != '\r' || i + 1 == data.size() || data[i + 1] != '\n') data[kept++] = data[i];
    data.resize(kept);
}

}  // namespace

bool TalMatFile::load(const std::u16string& path)
{
    RegularFile file(path);
    return file.isOpen() && load(file.stream());
}

bool TalMatFile::load(std::istream& in)
{
    loadReport = {};
    const bool loaded = loadContainer(in);
    if (loadTrace) {
        loadTrace->readPastEnd = loadReport.readPastEnd;
        loadTrace->failure = loadReport.failure;
    }
    return loaded;
}

bool TalMatFile::loadContainer(std::istream& in)
{
    const Header header = readHeader(in);
    const uint32_t version = versionOf(header.tag);
    if ((header.tag & 0xFFFF) != 0 || version < 1 || version > 3) return false;
    loadReport.binaryHeader = in.gcount() == 4;
    if (loadTrace && loadReport.binaryHeader) {
        loadTrace->fileVersion = version;
        loadTrace->declaredObjects = header.count;
    }
    if (header.count == 0) {
        loadReport.failure = LoadFailure{4, "the header counts no materials", {}};
        return false;
    }

    QuickArchive archive(1);
    uint64_t dataStart = 8;
    if (version == 3) {
        dataStart += 4;  // the block count
        if (!archive.readFromStream(in)) {
            loadReport.failure = LoadFailure{8, "the file holds no blocks", {}};
            return false;
        }
    } else {
        std::string data = readRemainingBytes(in);
        if (version == 1) repairLineEnds(data);
        archive = QuickArchive(data.data(), data.size());
    }

    if (loadTrace) {
        loadTrace->setOrigin(dataStart);
        archive.setLoadTrace(loadTrace);
    }
    const bool loaded = loadMaterials(archive, header.count);
    loadReport.readPastEnd = archive.readPastEnd();
    if (!loaded && archive.failure()) {
        loadReport.failure = archive.failure();
        loadReport.failure->offset += dataStart;
    }
    return loaded;
}

bool TalMatFile::loadMaterials(QuickArchive& archive, uint32_t count)
{
    std::vector<MaterialPtr> loaded;
    uint32_t typeId = 0;  // a read past the end keeps the id of the material before
    for (uint32_t i = 0; i < count; ++i) {
        const uint64_t at = archive.readPosition();
        archive.readU32(typeId);
        MaterialPtr material;
        const bool read = makeChild(archive, material, typeId, at) && readTracedRecord(archive, *material, true);
        if (!read) {
            archive.noteObject(u"material " + narrowToWide(std::to_string(i + 1)) +
                               (material ? u" (" + material->pluginType() + u")" : u""));
            return false;
        }
        loaded.push_back(std::move(material));
    }
    materials = std::move(loaded);
    return true;
}

bool TalMatFile::save(std::ostream& out)
{
    if (materials.empty()) return false;
    const Header header{currentVersion(), static_cast<uint32_t>(materials.size())};
    QuickArchive archive(1);
    for (const MaterialPtr& material : materials) {
        if (!material) return false;
        archive.writeU32(material->typeId());
        if (!material->writeBinary(archive)) {
            lastSaveMessage = u"An error has occurred while attempting to serialize \"" + material->name +
                              u"\" - aborting talmat creation";
            return false;
        }
    }
    out.write(reinterpret_cast<const char*>(&header.tag), 4);
    out.write(reinterpret_cast<const char*>(&header.count), 4);
    return archive.writeToStream(out);
}

bool TalMatFile::getMaterial(std::size_t index, MaterialPtr& material) const
{
    if (index >= materials.size()) return false;
    material = materials[index];
    return true;
}

std::size_t TalMatFile::findMaterialByName(const std::u16string& name) const
{
    for (std::size_t i = 0; i < materials.size(); ++i)
        if (materials[i] && equalsNoCase(materials[i]->name, name)) return i;
    return static_cast<std::size_t>(-1);
}

int TalMatFile::chooseOpenMode(const std::u16string& path)
{
    RegularFile file(path);
    if (!file.isOpen()) return textInputMode;
    const Header header = readHeader(file.stream());
    return ((header.tag & 0xFFFF) == 0 && versionOf(header.tag) == 1) ? textInputMode : binaryInputMode;
}

}  // namespace TalvexCore
