// The table form of a material's fields: rows of its record, with the version that began to store
// each, and parameter rows of its XML.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "archive/value_types.h"
#include "materials/base_material.h"
#include "textures/base_texture.h"

namespace TalvexCore {

using ObjectNames = std::vector<std::u16string>;

// The place of the base material record among a class's rows.
struct BaseRecordRow {};
// A material stored with no presence byte; the writer needs it present.
template <class M>
struct BareMaterial {
    MaterialPtr M::*field;
};

// One row of a record: a material or texture slot, a bare material, a value, a list of names, or
// the base record. Rows with `since` above a record's version are not in that record.
template <class M>
struct RecordRow {
    using Field = std::variant<BaseRecordRow, BareMaterial<M>, MaterialPtr M::*, TexturePtr M::*, Color M::*,
                               float M::*, uint32_t M::*, bool M::*, ObjectNames M::*>;
    Field field;
    uint32_t since = 1;
};

// One parameter of an asset: a field, or a flag computed from the object. A texture's asset stands
// under the owner's url, "/" and its url word, which is the parameter's name unless given.
template <class M>
struct XmlRow {
    using Owner = M;
    using Field = std::variant<MaterialPtr M::*, TexturePtr M::*, Color M::*, float M::*, uint32_t M::*, bool M::*,
                               ObjectNames M::*, bool (*)(const M&)>;
    const char* name;
    Field field;
    const char* urlWord = nullptr;

    const char* word() const { return urlWord ? urlWord : name; }
};


// Whether a class's loader puts its fields back to their defaults right behind the tag.
enum class LoadReset { None, AfterTag };
// Whether copies clone the textures or share them with the source.
enum class TextureCopy { Clone, Share };

// The operations of a material class whose fields are rows, written once for all of them. The class
// `M` derives from RowMaterial<M> and gives recordRows() and xmlRows(), and the constants
// classTypeId, plugin, newestVersion, knownVersions, loadReset and textureCopy. A class whose record
// or asset is irregular overrides the operation concerned. The operations are defined beside the
// walkers of the rows, and each class instantiates them in its own source file.
template <class M>
class RowMaterial : public BaseMaterial {
public:
    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return M::classTypeId; }
    // The fields of the table back to their defaults; the name and the uuid stay.
    void resetDefaults() override;
    // Inner materials cloned under new names, textures cloned or shared, the copy named anew.
    MaterialPtr clone() const override;
    // Inner materials copied under their names, textures cloned or shared, the source's name.
    MaterialPtr cloneSameName() const override;
    // Same class; each inner material and texture equal or both empty; every value equal.
    bool isEqual(const MaterialPtr& other) const override;
    // Inner materials, textures, then its own asset with the parameters of xmlRows().
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override
    {
        static const std::u16string kept = M::plugin;
        return kept;
    }

private:
    const M& self() const { return static_cast<const M&>(*this); }
    M& self() { return static_cast<M&>(*this); }
};

}  // namespace TalvexCore
