#include "records/uuid.h"

#include <cstdint>
#include <random>

namespace TalvexCore {

namespace {

std::mt19937_64& generator()
{
    static std::mt19937_64 engine = [] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device(), device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }();
    return engine;
}

}  // namespace

std::u16string newUuid()
{
    uint8_t bytes[16];
    for (int half = 0; half < 2; ++half) {
        const uint64_t bits = generator()();
        for (int i = 0; i < 8; ++i) bytes[half * 8 + i] = static_cast<uint8_t>(bits >> (8 * i));
    }
    bytes[6] = static_cast<uint8_t>((bytes[6] & 0x0F) | 0x40);  // version 4
    bytes[8] = static_cast<uint8_t>((bytes[8] & 0x3F) | 0x80);  // the variant of the usual form

    static constexpr char16_t digits[] = u"0123456789abcdef";
    std::u16string text;
    text.reserve(36);
    for (int i = 0; i < 16; ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) text += u'-';
        text += digits[bytes[i] >> 4];
        text += digits[bytes[i] & 0x0F];
    }
    return text;
}

}  // namespace TalvexCore
