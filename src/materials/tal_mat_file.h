// TalMatFile: the material file, an ordered list of materials in one of three container versions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "archive/load_failure.h"
#include "archive/load_trace.h"
#include "archive/quick_archive.h"
#include "materials/base_material.h"

namespace TalvexCore {

// What the last load made of its file, for a caller that reports damage; the load still answers
// with its one boolean. Offsets count from the start of the file (for version 1 files, after the
// repair of their line ends).
struct MaterialFileLoad {
    bool binaryHeader = false;           // the header names a material file of a known version
    std::optional<LoadFailure> failure;  // where a load with such a header stopped, and why
    bool readPastEnd = false;            // the reads went on past the end of the data
};

class TalMatFile {
public:
    // The file's materials in file order.
    std::vector<MaterialPtr> materials;

    TalMatFile() = default;
    virtual ~TalMatFile() = default;

    // Writes the newest container; false, with nothing written, for an empty list or a material
    // that fails to write.
    virtual bool save(std::ostream& out);
    // Loads any container version; on failure the list keeps what it held.
    bool load(const std::u16string& path);
    virtual bool load(std::istream& in);
    // Loads of this file tell `trace`, while it is set, the header and each object they read.
    void setLoadTrace(LoadTrace* trace) { loadTrace = trace; }

    std::size_t materialCount() const { return materials.size(); }
    // Copies the reference at `index`; false, leaving `material` alone, past the end.
    bool getMaterial(std::size_t index, MaterialPtr& material) const;
    // Index of the first material of that name, compared without regard to case; -1 if none.
    std::size_t findMaterialByName(const std::u16string& name) const;

    const MaterialFileLoad& lastLoad() const { return loadReport; }

    // What the last failed save would have said.
    const std::u16string& saveMessage() const { return lastSaveMessage; }

    static constexpr uint32_t currentVersion() { return 0x30000; }
    // The stream mode to open a file with: 1 (text) for a version 1 file, 33 (binary) otherwise,
    // and 1 for a file that does not open.
    static int chooseOpenMode(const std::u16string& path);

private:
    bool loadContainer(std::istream& in);
    bool loadMaterials(QuickArchive& archive, uint32_t count);

    std::u16string lastSaveMessage;
    MaterialFileLoad loadReport;
    LoadTrace* loadTrace = nullptr;
};

}  // namespace TalvexCore
