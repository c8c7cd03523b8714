// Whether two archives hold the same written bytes: the round-trip check of the fuzz targets.
#pragma once

#include <cstdint>

#include "archive/quick_archive.h"

inline bool sameBytes(const TalvexCore::QuickArchive& a, const TalvexCore::QuickArchive& b)
{
    if (a.writePosition() != b.writePosition()) return false;
    for (uint64_t i = 0; i < a.writePosition(); ++i) {
        uint8_t x = 0, y = 0;
        a.peekByte(i, x);
        b.peekByte(i, y);
        if (x != y) return false;
    }
    return true;
}
