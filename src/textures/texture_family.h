// The comparison rule that the texture, generator and bitmap families share.
#pragma once

#include <memory>

namespace TalvexCore {

// The other object as this one's class, or null when it is empty or of another class: objects of
// different classes are never equal, also when all their fields agree.
template <class T, class Root>
const T* sameClass(const T& self, const std::shared_ptr<Root>& other)
{
    if (!other || other->typeId() != self.typeId()) return nullptr;
    return dynamic_cast<const T*>(other.get());
}

}  // namespace TalvexCore
