#include "archive/stream_bytes.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <istream>

namespace TalvexCore {

std::string readRemainingBytes(std::istream& in)
{
    const std::streamoff start = in.tellg();
    in.seekg(0, std::ios::end);
    const std::streamoff end = in.tellg();
    in.seekg(start);
    if (start < 0 || end <= start) return {};

    constexpr std::streamoff chunkSize = 1 << 16;
    constexpr std::streamoff reserveLimit = 1 << 20;  // a larger file grows as it arrives
    std::streamoff left = end - start;
    std::string data;
    data.reserve(static_cast<std::size_t>(std::min(left, reserveLimit)));
    std::array<char, chunkSize> chunk;
    while (left > 0) {
        in.read(chunk.data(), std::min(left, chunkSize));
        const std::streamsize got = in.gcount();
        if (got <= 0) break;
        data.append(chunk.data(), static_cast<std::size_t>(got));
        left -= got;
    }
    return data;
}

std::string readBytesUpToZero(std::istream& in)
{
    constexpr std::size_t chunkSize = 1 << 16;
    std::array<char, chunkSize> chunk;
    std::string data;
    while (in.read(chunk.data(), chunkSize) || in.gcount() > 0) {
        const std::size_t got = static_cast<std::size_t>(in.gcount());
        const void* zero = std::memchr(chunk.data(), 0, got);
        if (zero != nullptr) {
            data.append(chunk.data(), static_cast<const char*>(zero) - chunk.data());
            break;
        }
        data.append(chunk.data(), got);
    }
    return data;
}

}  // namespace TalvexCore
