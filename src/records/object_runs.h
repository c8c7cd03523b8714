// ObjectRuns: the memory of the objects the families' factories make, side by side in runs.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

namespace TalvexCore {

// A file's objects are made one after another and mostly go together, when the file's model goes.
// Each thread places the objects it makes one behind the other in a run of memory of its own; a run
// is given back whole once every object in it is gone, from whichever thread. So making an object
// costs a few steps, giving one back costs one count, and the objects of one material lie together
// as they were read. Runs are mapped many at a time and kept for the next file, up to a limit.
class ObjectRuns {
public:
    static constexpr std::size_t runSize = std::size_t(256) << 10;
    // Larger objects are made apart, as any other.
    static constexpr std::size_t largestInRun = runSize / 16;

    static void* allocate(std::size_t bytes);
    static void deallocate(void* object, std::size_t bytes) noexcept;
    // Runs mapped and not in use, kept for the objects to come.
    static std::size_t spareRuns();
    // False where every object is made apart (under the address checker).
    static bool placesInRuns();
};

// An allocator over ObjectRuns, for std::allocate_shared.
template <class T>
struct RunAllocator {
    using value_type = T;
    static_assert(alignof(T) <= alignof(std::max_align_t), "objects in runs keep the common alignment");

    RunAllocator() = default;
    template <class U>
    RunAllocator(const RunAllocator<U>&) noexcept {}

    T* allocate(std::size_t n) { return static_cast<T*>(ObjectRuns::allocate(n * sizeof(T))); }
    void deallocate(T* object, std::size_t n) noexcept { ObjectRuns::deallocate(object, n * sizeof(T)); }

    template <class U>
    bool operator==(const RunAllocator<U>&) const noexcept { return true; }
};

// A new object of class T, held by a shared pointer, in the thread's run.
template <class T, class... Args>
std::shared_ptr<T> makeObject(Args&&... args)
{
    return std::allocate_shared<T>(RunAllocator<T>(), std::forward<Args>(args)...);
}

}  // namespace TalvexCore
