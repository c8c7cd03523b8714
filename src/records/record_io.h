// The recurring forms of a record: the version gate and the child slots.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>

#include "archive/quick_archive.h"
#include "records/serializable.h"

namespace TalvexCore {

// Reads a tag; gives its version when the low half is zero and the version is one of `known`.
std::optional<uint32_t> readVersion(QuickArchive& in, std::initializer_list<uint32_t> known);
// Writes the tag of a version.
inline void writeVersion(QuickArchive& out, uint32_t version) { out.writeU32(tagOf(version)); }

// A required child: its type id, then its record. The family's factory makes the object, found by
// the overload makeFromTypeId(std::shared_ptr<Root>&, uint32_t) that each family root declares.
template <class T>
bool readRequiredChild(QuickArchive& in, std::shared_ptr<T>& child)
{
    uint32_t id = 0;
    in.readU32(id);
    makeFromTypeId(child, id);
    if (!child) return false;
    const QuickArchive::NestingGuard guard(in);
    return guard && child->readBinary(in);
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

template <class T>
bool writeRequiredChild(QuickArchive& out, const std::shared_ptr<T>& child)
{
    if (!child) return false;
    out.writeU32(child->typeId());
    return child->writeBinary(out);
}

template <class T>
bool writeChild(QuickArchive& out, const std::shared_ptr<T>& child)
{
    out.writeBool(child != nullptr);
    return !child || writeRequiredChild(out, child);
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
