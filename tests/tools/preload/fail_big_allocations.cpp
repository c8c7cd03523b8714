// Loaded ahead of the command in a test (LD_PRELOAD): any single allocation larger than
// CINDREL_TEST_ALLOCATION_LIMIT bytes fails with std::bad_alloc, as it would where memory runs out.
#include <cstdlib>
#include <new>

namespace {

std::size_t limit()
{
    static const std::size_t bytes = [] {
        const char* text = std::getenv("CINDREL_TEST_ALLOCATION_LIMIT");
        return text ? static_cast<std::size_t>(std::strtoull(text, nullptr, 10)) : static_cast<std::size_t>(-1);
    }();
    return bytes;
}

void* allocate(std::size_t size)
{
    void* block = size <= limit() ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (!block) throw std::bad_alloc();
    return block;
}

}  // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }
