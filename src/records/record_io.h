// The recurring forms of a record: the version gate, the child slots and the counted list.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>

#include "archive/quick_archive.h"
#include "records/serializable.h"

namespace TalvexCore {

// Reads a tag; gives its version when the low half is zero and the version is one of `known`.
// A refused tag is noted on the archive.
std::optional<uint32_t> readVersion(QuickArchive& in, std::initializer_list<uint32_t> known);
// The same for a record that has known every version from 1 to `newest`.
std::optional<uint32_t> readVersionUpTo(QuickArchive& in, uint32_t newest);
// The same for a record whose tag carries `mark` in its low half, with the versions `known` accepts;
// `knownTags` names them in a refusal.
std::optional<uint32_t> readMarkedVersion(QuickArchive& in, uint32_t mark, bool (*known)(uint32_t),
                                          const char* knownTags);

// Reads a list's count; false, noted, when that many elements of at least `bytesEach` bytes cannot
// stand in the data that is left.
bool readListCount(QuickArchive& in, uint64_t& count, uint64_t bytesEach);

// Makes the object of a type id read at `at`; false, noted, when its family has no such class.
template <class T>
bool makeChild(QuickArchive& in, std::shared_ptr<T>& child, uint32_t id, uint64_t at)
{
    makeFromTypeId(child, id);
    if (!child) in.noteFailure(at, "unknown type id " + std::to_string(id));
    return child != nullptr;
}

// An object's name in a trace or a failure: its plug-in type, where its class has one.
template <class R>
std::u16string objectName(const R& object)
{
    if constexpr (requires { object.pluginType(); }) return object.pluginType();
    else return {};
}

// An object's own record, told to the archive's trace when it carries one: where the record begins,
// its class and the type id it was made from (for an object made by id), and where its reads ended.
// `entered` false refuses the record unread, as the nesting bound does.
template <class R>
bool readTracedRecord(QuickArchive& in, R& object, [[maybe_unused]] bool madeById, bool entered = true)
{
    LoadTrace* const trace = in.loadTrace();
    if (trace) {
        std::optional<uint32_t> id;
        if constexpr (requires { object.typeId(); })
            if (madeById) id = object.typeId();
        trace->beginObject(objectName(object), id, in.readPosition());
    }
    const bool read = entered && object.readBinary(in);
    if (trace) trace->endObject(in.readPosition(), read);
    return read;
}

// A child's record, one level deeper; a refusal inside names the child on its way out.
template <class T>
bool readChildRecord(QuickArchive& in, const std::shared_ptr<T>& child)
{
    const QuickArchive::NestingGuard guard(in);
    if (readTracedRecord(in, *child, true, static_cast<bool>(guard))) return true;
    in.noteObject(child->pluginType());
    return false;
}

// A record held by value inside its owner's, with no type id; a refusal inside names it on its way out.
template <class R>
bool readEmbeddedRecord(QuickArchive& in, R& record)
{
    if (readTracedRecord(in, record, false)) return true;
    if (const std::u16string name = objectName(record); !name.empty()) in.noteObject(name);
    return false;
}

// A child's record written one level deeper: what is nested too deep to read is not written.
template <class T>
bool writeChildRecord(QuickArchive& out, const std::shared_ptr<T>& child)
{
    const QuickArchive::NestingGuard guard(out);
    return guard && child->writeBinary(out);
}

// Writes the tag of a version.
inline void writeVersion(QuickArchive& out, uint32_t version) { out.writeU32(tagOf(version)); }

// A required child: its type id, then its record. The family's factory makes the object, found by
// the overload makeFromTypeId(std::shared_ptr<Root>&, uint32_t) that each family root declares.
template <class T>
bool readRequiredChild(QuickArchive& in, std::shared_ptr<T>& child)
{
    uint32_t id = 0;
    const uint64_t at = in.readPosition();
    in.readU32(id);
    return makeChild(in, child, id, at) && readChildRecord(in, child);
}

// An optional child: a presence byte, then when present the required form. When absent the slot
// keeps what it holds.
template <class T>
bool readChild(QuickArchive& in, std::shared_ptr<T>& child)
{
    bool present = false;
    in.readBool(present);
    return !present || readRequiredChild(in, child);
}

// Writing refuses the depth that reading refuses, so that a saved file always loads again.
template <class T>
bool writeRequiredChild(QuickArchive& out, const std::shared_ptr<T>& child)
{
    if (!child) return false;
    out.writeU32(child->typeId());
    return writeChildRecord(out, child);
}

template <class T>
bool writeChild(QuickArchive& out, const std::shared_ptr<T>& child)
{
    out.writeBool(child != nullptr);
    return !child || writeRequiredChild(out, child);
}

// A counted list: a count32, then each element as `readElement` reads it, stopping at the first that
// fails. A count of more elements than the bytes left can hold, each at least `minimumBytes`,
// fails the list before anything is read or made.
template <class ReadElement, class... Lists>
bool readCountedList(QuickArchive& in, uint64_t minimumBytes, ReadElement&& readElement, Lists&... gathered)
{
    uint64_t count = 0;
    if (!readListCount(in, count, minimumBytes)) return false;
    // Lists the elements are gathered into take their room once: the count fits the bytes left.
    (gathered.reserve(gathered.size() + static_cast<std::size_t>(count)), ...);
    for (uint64_t i = 0; i < count; ++i)
        if (!readElement()) return false;
    return true;
}

// The count of `elements`, then each as `writeElement` writes it, stopping at the first that fails.
template <class Elements, class WriteElement>
bool writeCountedList(QuickArchive& out, const Elements& elements, WriteElement&& writeElement)
{
    out.writeCount(elements.size());
    for (const auto& element : elements)
        if (!writeElement(element)) return false;
    return true;
}

// Deep copy of a child slot: a present child is cloned, an empty one stays empty.
template <class T>
auto cloneChild(const std::shared_ptr<T>& child) -> decltype(child->clone())
{
    return child ? child->clone() : nullptr;
}

// The other object as this one's class, or null when it is empty or of another class: objects of
// different classes are never equal, also when all their fields agree.
template <class T, class Root>
const T* sameClass(const T& self, const std::shared_ptr<Root>& other)
{
    if (!other || other->typeId() != self.typeId()) return nullptr;
    return dynamic_cast<const T*>(other.get());
}

// Two slots are equal when both are empty or the children are equal by value.
template <class T>
bool childEqual(const std::shared_ptr<T>& mine, const std::shared_ptr<T>& theirs)
{
    return mine ? mine->isEqual(theirs) : !theirs;
}

}  // namespace TalvexCore
