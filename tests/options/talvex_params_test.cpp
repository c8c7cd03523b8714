// The parameters record: version 1 against version 5, the forced sampler type, the reserved words.
#include <gtest/gtest.h>

#include <cstring>

#include "options/options_test_support.h"

namespace TalvexTest {
namespace {

using namespace TalvexCore;

// Words of the version 5 record of a default object, counted from the tag.
constexpr std::size_t detailWord = 74, reservedWord = 133, samplerWord = 140, subpixelWord = 144, gammaWord = 145;

// The version 5 record with one word replaced.
ByteBuilder paramsWithWord(std::size_t wordIndex, uint32_t value)
{
    ByteBuilder b = recordOf(TalvexParams());
    std::memcpy(&b.bytes[wordIndex * 4], &value, 4);
    return b;
}

// Version 1 stores no sampler type, no subpixel mapping, no gamma, and one float in place of the
// four detail values; versions 2 to 4 add the first three one by one.
TEST(TalvexParams, WhatEachVersionStores)
{
    TalvexParams newest;
    newest.im_detail_radius = 10;
    newest.cm_gamma = 2.2f;
    newest.subpixel_mapping = 1;
    newest.xc = 7;

    // Bytes of version 1 from the newest: drop gamma, subpixel mapping and the sampler type, and
    // put one float where the detail values stand.
    for (uint32_t version = 1; version <= 5; ++version) {
        SCOPED_TRACE(version);
        ByteBuilder b = recordOf(newest);
        std::vector<uint8_t>& bytes = b.bytes;
        const auto dropWords = [&](std::size_t word, std::size_t count) {
            bytes.erase(bytes.begin() + word * 4, bytes.begin() + (word + count) * 4);
        };
        bytes[2] = static_cast<uint8_t>(version);
        if (version < 4) dropWords(gammaWord, 1);
        if (version < 3) dropWords(subpixelWord, 1);
        if (version < 2) dropWords(samplerWord, 1);
        if (version < 5) dropWords(detailWord + 1, 3);
        TalvexParams loaded;
        ASSERT_TRUE(load(loaded, b));
        EXPECT_EQ(std::tuple(loaded.xc, loaded.im_detail_radius, loaded.cm_gamma, loaded.subpixel_mapping,
                             loaded.displacement_aux_int_2),
                  std::tuple(7, version >= 5 ? 10.0f : 60.0f, version >= 4 ? 2.2f : 1.0f, version >= 3 ? 1 : 0, 16));
    }
}

TEST(TalvexParams, VersionGate)
{
    for (uint32_t tag : {0x00000u, 0x60000u, 0x50001u}) {
        TalvexParams p;
        p.xc = 1;
        EXPECT_FALSE(load(p, ByteBuilder().u32(tag).i32(1))) << std::hex << tag;
        EXPECT_EQ(p.xc, 48);
    }
}

// The sampler type of a file reads as 2 and writes back as 2; the reserved words around
// time_dependent are written as 0 and 1.0 and dropped on reading.
TEST(TalvexParams, ForcedSamplerTypeAndReservedWords)
{
    ByteBuilder stored = paramsWithWord(samplerWord, 7);
    TalvexParams p;
    ASSERT_TRUE(load(p, stored));
    EXPECT_EQ(p.path_sampler_type, 2);
    EXPECT_EQ(recordOf(p).bytes, recordOf(TalvexParams()).bytes);

    const ByteBuilder fresh = recordOf(TalvexParams());
    uint32_t around[3] = {1, 1, 0};
    std::memcpy(around, &fresh.bytes[reservedWord * 4], 12);
    EXPECT_TRUE(around[0] == 0 && around[2] == 0x3F800000u);
    ASSERT_TRUE(load(p, paramsWithWord(reservedWord, 5)));
    EXPECT_EQ(p.time_dependent, 1);
    // Whatever the file held there, the word behind it goes out as 1.0 again.
    ASSERT_TRUE(load(p, paramsWithWord(reservedWord + 2, 5)));
    EXPECT_EQ(recordOf(p).bytes, fresh.bytes);
}

}  // namespace
}  // namespace TalvexTest
