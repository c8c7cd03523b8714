// Any bytes as an archive image and as a stream of typed reads: no read crashes or allocates
// beyond the data, whatever the lengths and counts say.
#include <cstdint>
#include <sstream>
#include <string>

#include "archive/quick_archive.h"

using namespace TalvexCore;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data), size));
    QuickArchive image(1);
    image.readFromStream(stream);

    QuickArchive in(data, size);
    uint8_t op = 0;
    for (int step = 0; step < 256 && in.readPosition() < size; ++step) {
        in.readU8(op);
        switch (op % 8) {
        case 0: { std::string s; in.readString(s); break; }
        case 1: { std::u16string s; in.readWString(s); break; }
        case 2: { Transform t; in.readTransform(t); break; }
        case 3: { Rect r; in.readRect(r); break; }
        case 4: { uint8_t buffer[16]; in.readBuffer(buffer, sizeof buffer, op & 8); break; }
        case 5: { uint64_t n = 0; in.readCount(n); break; }
        case 6: { double d = 0; in.readF64(d); break; }
        default: { Color c; in.readColor(c); break; }
        }
    }
    return 0;
}
