#include "module/populated_text.h"

#include <algorithm>
#include <cstring>
#include <new>

#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace TalvexCore {

namespace {

constexpr std::size_t step = std::size_t(4) << 20;          // mapped ahead at a time
constexpr std::size_t firstReserve = std::size_t(1) << 30;  // address space only, no memory
// Up to this size the text stays a plain string: mapping a whole step ahead would cost a small
// document far more than its bytes.
constexpr std::size_t smallText = std::size_t(1) << 20;

}  // namespace

PopulatedText::~PopulatedText()
{
#if defined(__linux__)
    if (base != nullptr) munmap(base, reserved);
#endif
}

void PopulatedText::append(std::string_view bytes)
{
    if (!plain && base == nullptr && fallback.size() + bytes.size() > smallText) {
        // The text outgrows a plain string: what it holds so far moves into the mapped region.
        grow(fallback.size() + bytes.size());
        if (base != nullptr) {
            std::memcpy(base, fallback.data(), fallback.size());
            used = fallback.size();
            std::string().swap(fallback);
        }
    }
    if (base != nullptr && used + bytes.size() > populated) grow(used + bytes.size());
    if (base == nullptr) {
        fallback.append(bytes);
        return;
    }
    std::memcpy(base + used, bytes.data(), bytes.size());
    used += bytes.size();
}

void PopulatedText::take(std::string& text)
{
    if (base == nullptr && fallback.empty() && text.size() <= smallText) {
        fallback.swap(text);  // a first small text is kept as it stands
        text.clear();
        return;
    }
    append(text);
    text.clear();
}

std::string_view PopulatedText::view() const
{
    return base == nullptr ? std::string_view(fallback) : std::string_view(base, used);
}

void PopulatedText::grow(std::size_t needed)
{
#if defined(__linux__) && defined(MAP_POPULATE)
    if (needed > reserved) {
        // A larger region, its used part mapped ahead and copied over.
        const std::size_t size = std::max(firstReserve, 2 * reserved);
        const std::size_t wanted = std::max(size, needed);
        void* region = mmap(nullptr, wanted, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (region == MAP_FAILED) {
            plain = true;
            if (base != nullptr) {
                fallback.assign(base, used);
                munmap(base, reserved);
            }
            base = nullptr;
            return;
        }
        char* const next = static_cast<char*>(region);
        if (used > 0) {
            mmap(next, populated, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_POPULATE, -1, 0);
            std::memcpy(next, base, used);
        }
        if (base != nullptr) munmap(base, reserved);
        base = next;
        reserved = wanted;
    }
    // Mapped ahead a whole step or more at a time.
    const std::size_t end = std::min(reserved, (std::max(needed, populated + step) + step - 1) / step * step);
    if (mmap(base + populated, end - populated, PROT_READ | PROT_WRITE,
             MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED | MAP_POPULATE, -1, 0) == MAP_FAILED)
        throw std::bad_alloc();
    populated = end;
#else
    (void)needed;
    plain = true;
#endif
}

}  // namespace TalvexCore
