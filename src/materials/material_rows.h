// The table form of a material's fields: rows of its record, with the version that began to store
// each, and parameter rows of its XML.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "archive/value_types.h"
#include "materials/base_material.h"
#include "textures/base_texture.h"

namespace TalvexCore {

using NameList = std::vector<std::u16string>;

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
                               float M::*, uint32_t M::*, bool M::*, NameList M::*>;
    Field field;
    uint32_t since = 1;
};

// One parameter of an asset: a field, or a flag computed from the object. A texture's asset stands
// under the owner's url, "/" and its url word, which is the parameter's name unless given.
template <class M>
struct XmlRow {
    using Owner = M;
    using Field = std::variant<MaterialPtr M::*, TexturePtr M::*, Color M::*, float M::*, uint32_t M::*, bool M::*,
                               NameList M::*, bool (*)(const M&)>;
    const char* name;
    Field field;
    const char* urlWord = nullptr;

    const char* word() const { return urlWord ? urlWord : name; }
};

}  // namespace TalvexCore
