#include "records/object_runs.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
#include <vector>

#if defined(__linux__)
#include <sys/mman.h>
#elif defined(_WIN32)
#include <malloc.h>
#endif

// Under the address checker every object is made apart, where the checker sees its bounds (and
// finds what objects hold, which it does not look for in runs).
#if defined(__SANITIZE_ADDRESS__)
#define CINDREL_OBJECTS_APART 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CINDREL_OBJECTS_APART 1
#endif
#endif

namespace TalvexCore {

namespace {

#ifdef CINDREL_OBJECTS_APART
constexpr bool inRuns = false;
#else
constexpr bool inRuns = true;
#endif

constexpr std::size_t alignment = alignof(std::max_align_t);
static_assert((ObjectRuns::runSize & (ObjectRuns::runSize - 1)) == 0, "a run is found from its objects' addresses");

// While a thread places objects in a run, the run counts this many objects more than it holds, so
// that no object given back can empty it; the thread takes the surplus away when it moves on.
constexpr std::size_t placingSurplus = std::size_t(1) << 48;

// The head of every run: the objects it holds.
struct alignas(alignment) RunHead {
    std::atomic<std::size_t> live;
};

#if defined(__linux__)
constexpr std::size_t runsPerMapping = 4;  // 1 MiB mapped at a time
#endif
// A large file's runs are kept for the next one, up to 64 MiB; a small file's need a few.
constexpr std::size_t sparesKept = 256;

class SpareRuns {
public:
    // Room for every run `give` may keep, so that giving never allocates.
    SpareRuns() { spares.reserve(sparesKept); }

    char* take()
    {
        {
            const std::lock_guard<std::mutex> held(lock);
            if (!spares.empty()) {
                char* const run = spares.back();
                spares.pop_back();
                return run;
            }
        }
        return mapRuns();
    }

    // Never fails: the list has room for every run it may keep.
    void give(char* run) noexcept
    {
        {
            const std::lock_guard<std::mutex> held(lock);
            if (spares.size() < sparesKept) {
                spares.push_back(run);
                return;
            }
        }
        unmapRun(run);
    }

    std::size_t count()
    {
        const std::lock_guard<std::mutex> held(lock);
        return spares.size();
    }

private:
#if defined(__linux__)
    // Runs are mapped several at a time, aligned to their size, and their pages are mapped in bulk:
    // touched for the first time one by one, each page would stop the program on its own.
    char* mapRuns()
    {
        constexpr std::size_t size = runsPerMapping * ObjectRuns::runSize;
        void* const region = mmap(nullptr, size + ObjectRuns::runSize, PROT_READ | PROT_WRITE,
                                  MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (region == MAP_FAILED) throw std::bad_alloc();
        const auto start = reinterpret_cast<std::uintptr_t>(region);
        const std::uintptr_t aligned = (start + ObjectRuns::runSize - 1) & ~(ObjectRuns::runSize - 1);
        if (aligned > start) munmap(region, aligned - start);
        if (const std::uintptr_t end = start + size + ObjectRuns::runSize; end > aligned + size)
            munmap(reinterpret_cast<void*>(aligned + size), end - (aligned + size));
        char* const runs = reinterpret_cast<char*>(aligned);
        if (mmap(runs, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_POPULATE, -1, 0) ==
            MAP_FAILED) {
            munmap(runs, size);
            throw std::bad_alloc();
        }
        const std::lock_guard<std::mutex> held(lock);
        for (std::size_t i = 1; i < runsPerMapping; ++i) spares.push_back(runs + i * ObjectRuns::runSize);
        return runs;
    }
    static void unmapRun(char* run) noexcept { munmap(run, ObjectRuns::runSize); }
#elif defined(_WIN32)
    static char* mapRuns()
    {
        if (void* const run = _aligned_malloc(ObjectRuns::runSize, ObjectRuns::runSize)) return static_cast<char*>(run);
        throw std::bad_alloc();
    }
    static void unmapRun(char* run) noexcept { _aligned_free(run); }
#else
    static char* mapRuns()
    {
        if (void* const run = std::aligned_alloc(ObjectRuns::runSize, ObjectRuns::runSize)) return static_cast<char*>(run);
        throw std::bad_alloc();
    }
    static void unmapRun(char* run) noexcept { std::free(run); }
#endif

    std::mutex lock;
    std::vector<char*> spares;
};

// Never destroyed: an object may go after the program's other statics.
SpareRuns& spareRunList()
{
    static SpareRuns* const runs = new SpareRuns;
    return *runs;
}

void giveBackIfEmpty(char* run, std::size_t fewer) noexcept
{
    if (reinterpret_cast<RunHead*>(run)->live.fetch_sub(fewer, std::memory_order_acq_rel) == fewer)
        spareRunList().give(run);
}

// The run a thread places its objects in.
struct Placing {
    char* run = nullptr;
    char* next = nullptr;
    std::size_t made = 0;

    ~Placing() { moveTo(nullptr); }

    void moveTo(char* fresh) noexcept
    {
        if (run) giveBackIfEmpty(run, placingSurplus - made);
        run = fresh;
        made = 0;
        if (fresh) {
            new (fresh) RunHead{placingSurplus};
            next = fresh + sizeof(RunHead);
        }
    }
};

thread_local Placing placing;

}  // namespace

bool ObjectRuns::placesInRuns()
{
    return inRuns;
}

void* ObjectRuns::allocate(std::size_t bytes)
{
    if (!inRuns || bytes > largestInRun) return ::operator new(bytes);
    const std::size_t size = (bytes + alignment - 1) & ~(alignment - 1);
    Placing& here = placing;
    if (!here.run || static_cast<std::size_t>(here.run + runSize - here.next) < size) here.moveTo(spareRunList().take());
    void* const object = here.next;
    here.next += size;
    ++here.made;
    return object;
}

void ObjectRuns::deallocate(void* object, std::size_t bytes) noexcept
{
    if (!inRuns || bytes > largestInRun) {
        ::operator delete(object);
        return;
    }
    giveBackIfEmpty(reinterpret_cast<char*>(reinterpret_cast<std::uintptr_t>(object) & ~(runSize - 1)), 1);
}

std::size_t ObjectRuns::spareRuns()
{
    return spareRunList().count();
}

}  // namespace TalvexCore
