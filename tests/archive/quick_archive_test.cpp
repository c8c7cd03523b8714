// The block archive: value words, blocks, the tolerant reads, streams and hostile lengths.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <tuple>

#include "archive/quick_archive.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::writtenBytes;
using A = QuickArchive;

namespace {

// An archive that reads from `offset` of a source whose read cursor is at 0, sharing its blocks.
QuickArchive readingAt(const QuickArchive& source, uint64_t offset)
{
    QuickArchive a(source);
    std::vector<uint8_t> skip(offset);
    a.readRaw(skip.data(), skip.size());
    return a;
}

QuickArchive patternArchive(std::size_t size)
{
    std::vector<uint8_t> bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<uint8_t>(i * 7 + 3);
    return QuickArchive(bytes.data(), bytes.size());
}

// One read from a copy of the archive into a destination that starts as `value`.
template <class T, class Read>
T readFrom(QuickArchive a, Read read, T value)
{
    (a.*read)(value);
    return value;
}

// Writes a value, checks the bytes it took, and reads it back into a destination that starts as `back`.
template <class T, class Write, class Read>
T trip(QuickArchive& a, Write write, Read read, const T& value, uint64_t size, T back = T{})
{
    const uint64_t start = a.writePosition();
    (a.*write)(value);
    EXPECT_EQ(a.writePosition() - start, size);
    (a.*read)(back);
    EXPECT_EQ(a.readPosition(), a.writePosition());
    return back;
}

}  // namespace

TEST(QuickArchive, EveryWordRoundTripsInItsSize)
{
    const Matrix matrix{{Vector{1, 2, 3}, Vector{4, 5, 6}, Vector{7, 8, 9}}};
    const Bytes16 bytes16{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    // The first values straddle the seam between two blocks.
    QuickArchive a(1);
    std::vector<uint8_t> fill(4090, 0x55);
    a.writeRaw(fill.data(), fill.size()), a.readRaw(fill.data(), fill.size());
    EXPECT_EQ(trip(a, &A::writeString, &A::readString, std::string("across the seam"), 19), "across the seam");
    EXPECT_EQ(trip(a, &A::writeU32, &A::readU32, 0xDEADBEEFu, 4), 0xDEADBEEFu);
    EXPECT_EQ(trip(a, &A::writeU8, &A::readU8, uint8_t{0xAB}, 1), 0xAB);
    EXPECT_EQ(trip(a, &A::writeI8, &A::readI8, int8_t{-5}, 1), -5);
    EXPECT_TRUE(trip(a, &A::writeBool, &A::readBool, true, 1));
    EXPECT_EQ(trip(a, &A::writeI32, &A::readI32, -123456, 4), -123456);
    EXPECT_EQ(trip(a, &A::writeF32, &A::readF32, 3.5f, 4), 3.5f);
    EXPECT_EQ(trip(a, &A::writeF64, &A::readF64, -2.25e-300, 8), -2.25e-300);
    EXPECT_EQ(trip(a, &A::writeCount, &A::readCount, uint64_t{0x1'0000'0007}, 4), 7u);  // low 32 bits only
    EXPECT_EQ(trip(a, &A::writeColor, &A::readColor, Color{0.25f, 0.5f, 2}, 12), (Color{0.25f, 0.5f, 2}));
    EXPECT_EQ(trip(a, &A::writeVector, &A::readVector, Vector{-1, 0, 1e10f}, 12), (Vector{-1, 0, 1e10f}));
    EXPECT_EQ(trip(a, &A::writeAColor, &A::readAColor, AColor{1, 2, 3, 0.5f}, 16), (AColor{1, 2, 3, 0.5f}));
    EXPECT_EQ(trip(a, &A::writeBytes16, &A::readBytes16, bytes16, 16), bytes16);
    // Reading derives width and height and clears the two spare words; only the edges are stored.
    EXPECT_EQ(trip(a, &A::writeRect, &A::readRect, Rect{-1, 2, 30, 40, 99, 99, 99, 99}, 16),
              (Rect{-1, 2, 30, 40, 31, 38, 0, 0}));
    // Edges far apart: the size wraps as two's complement does.
    EXPECT_EQ(trip(a, &A::writeRect, &A::readRect, Rect{-2000000000, 0, 2000000000, 0}, 16).width, -294967296);
    EXPECT_EQ(trip(a, &A::writeMatrix, &A::readMatrix, matrix, 36), matrix);
    EXPECT_EQ(trip(a, &A::writeTransform, &A::readTransform, Transform{matrix, {10, 11, 12}}, 48),
              (Transform{matrix, {10, 11, 12}}));
    // The offset of a transformD goes through binary32.
    EXPECT_EQ(trip(a, &A::writeTransformD, &A::readTransformD, TransformD{matrix, {0.5, 1.0 / 3.0, 1e300}}, 48),
              (TransformD{matrix, {0.5, double(1.0f / 3.0f), double(float(1e300))}}));
    EXPECT_EQ(trip(a, &A::writeWString, &A::readWString, std::u16string(u"\u00e9\U0001F600"), 10), u"\u00e9\U0001F600");
    EXPECT_EQ(trip(a, &A::writeWString, &A::readWString, std::u16string(), 4, std::u16string(u"old")), u"");

    // Little endian; a wide string is its UTF-8 length and bytes, and an empty one four zeros.
    QuickArchive w(1);
    w.writeU32(0x11223344), w.writeWString(u"\u00e9\U0001F600"), w.writeWString(u"");
    EXPECT_EQ(writtenBytes(w), (std::vector<uint8_t>{0x44, 0x33, 0x22, 0x11, 6, 0, 0, 0, 0xC3, 0xA9, 0xF0, 0x9F,
                                                     0x98, 0x80, 0, 0, 0, 0}));
}

// Behind the last block a scalar keeps its bytes, and every word of several floats comes out zero.
TEST(QuickArchive, ReadsPastTheEndKeepScalarsAndZeroTheRest)
{
    const QuickArchive none(nullptr, 0);
    EXPECT_EQ(readFrom(none, &A::readU32, 7u), 7u);
    EXPECT_TRUE(readFrom(none, &A::readBool, true));
    EXPECT_EQ(readFrom(none, &A::readCount, uint64_t{9}), 0u);
    EXPECT_EQ(readFrom(none, &A::readColor, Color{1, 1, 1}), Color{});
    EXPECT_EQ(readFrom(none, &A::readBytes16, Bytes16{1, 1}), Bytes16{});
    const Matrix ones{{Vector{1, 1, 1}, Vector{1, 1, 1}, Vector{1, 1, 1}}};
    EXPECT_EQ(readFrom(none, &A::readTransformD, TransformD{ones, {1, 1, 1}}), TransformD{});
    EXPECT_EQ(readFrom(none, &A::readString, std::string("kept?")), "");
    EXPECT_EQ(readFrom(none, &A::readWString, std::u16string(u"kept?")), u"");
}

// The whole-value copy inside a block must give exactly what single byte steps give, also where a
// value crosses into the next block or off the end of the last one.
TEST(QuickArchive, TypedReadsMatchByteStepsAtEveryOffset)
{
    const QuickArchive source = patternArchive(2 * QuickArchive::BlockSize);
    auto byteSteps = [&](uint64_t offset, std::size_t n, uint8_t start) {
        QuickArchive a = readingAt(source, offset);
        std::vector<uint8_t> out(n, start);
        for (auto& b : out) a.readU8(b);
        return out;
    };
    auto typed = [&](uint64_t offset, auto read, auto value) {
        std::memset(static_cast<void*>(&value), 0xEE, sizeof value);
        value = readFrom(readingAt(source, offset), read, value);
        const auto* p = reinterpret_cast<const uint8_t*>(&value);
        return std::vector<uint8_t>(p, p + sizeof value);
    };
    for (uint64_t seam : {QuickArchive::BlockSize, 2 * QuickArchive::BlockSize}) {
        for (uint64_t offset = seam - 40; offset <= seam + 4; ++offset) {
            SCOPED_TRACE(offset);
            EXPECT_EQ(typed(offset, &A::readU32, uint32_t{}), byteSteps(offset, 4, 0xEE));
            EXPECT_EQ(typed(offset, &A::readF64, double{}), byteSteps(offset, 8, 0xEE));
            EXPECT_EQ(typed(offset, &A::readAColor, AColor{}), byteSteps(offset, 16, 0));
            EXPECT_EQ(typed(offset, &A::readMatrix, Matrix{}), byteSteps(offset, 36, 0));
        }
    }
}

TEST(QuickArchive, CopiesShareBlocksAndRandomAccess)
{
    QuickArchive a(1);
    a.writeU32(5);
    QuickArchive b(a);
    b.writeU32(6);
    EXPECT_EQ(readFrom(readingAt(a, 4), &A::readU32, 0u), 6u);  // seen through the original
    a.clear();
    EXPECT_EQ(a.blockCount(), 0u);
    EXPECT_EQ(readFrom(b, &A::readU32, 0u), 5u);  // the copy keeps its blocks

    uint8_t byte = 0x42;
    a.pokeByte(10, 0x99);  // adds the block it needs, and no cursor moves
    EXPECT_EQ(std::pair(a.blockCount(), a.writePosition()), std::pair(uint64_t{1}, uint64_t{0}));
    EXPECT_TRUE(a.peekByte(10, byte) == 1 && a.peekByte(4096, byte) == 0 && byte == 0x99);
}

// The zero blocks that a short stream never stored are made on first write, where every copy sees
// them, also when one copy then grows past them.
TEST(QuickArchive, CopiesShareTheZeroBlocksOfAShortStream)
{
    const auto count = ByteBuilder().u32(3).bytes;
    std::istringstream stream(std::string(count.begin(), count.end()) + std::string(4096, 0x11));
    QuickArchive a(1);
    ASSERT_TRUE(a.readFromStream(stream));
    QuickArchive b(a);
    uint8_t byte = 0x42;
    ASSERT_EQ(b.peekByte(8192, byte), 1);
    EXPECT_EQ(byte, 0);
    a.pokeByte(8192, 7);
    EXPECT_EQ((b.peekByte(8192, byte), byte), 7);
    a.pokeByte(5 * 4096, 1);  // past the end: a's own block, after the shared ones
    b.pokeByte(4096, 9);
    EXPECT_EQ((a.peekByte(4096, byte), byte), 9);
    a.pokeByte(8192, 8);
    EXPECT_EQ((b.peekByte(8192, byte), byte), 8);
    EXPECT_EQ(b.peekByte(5 * 4096, byte), 0) << "a block added to one copy is its own";
    EXPECT_EQ(std::pair(a.blockCount(), b.blockCount()), std::pair(uint64_t{6}, uint64_t{3}));
}

TEST(QuickArchive, ReadBufferWithAndWithoutRewind)
{
    const uint8_t twelve[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    QuickArchive stored(1);
    stored.writeBuffer(twelve, 12), stored.writeU8(0x77);
    // Capacity, rewind, read position after, bytes copied: capacity 0 with rewind tells the size and
    // leaves the cursor; without rewind the cursor skips what did not fit.
    const std::tuple<uint64_t, bool, uint64_t, std::size_t> cases[] = {
        {0, true, 0, 0}, {12, true, 16, 12}, {4, true, 0, 4}, {4, false, 16, 4}, {16, false, 16, 12}};
    for (const auto& [capacity, rewind, position, copied] : cases) {
        SCOPED_TRACE(testing::Message() << capacity << (rewind ? " with rewind" : ""));
        QuickArchive a(stored);
        std::vector<uint8_t> out(16, 0xAA), expected(16, 0xAA);
        std::copy(twelve, twelve + copied, expected.begin());
        EXPECT_EQ(a.readBuffer(out.data(), capacity, rewind), 12u);
        EXPECT_EQ(a.readPosition(), position);
        EXPECT_EQ(out, expected);
    }
}

TEST(QuickArchive, StreamFormIsCountThenWholeBlocks)
{
    std::ostringstream out;
    EXPECT_TRUE(patternArchive(4097).writeToStream(out));
    const std::string file = out.str();
    ASSERT_EQ(file.size(), 4u + 8192u);
    EXPECT_EQ(file.substr(0, 4), std::string("\x02\x00\x00\x00", 4));
    EXPECT_EQ(static_cast<uint8_t>(file[4 + 4096]), static_cast<uint8_t>(4096 * 7 + 3));

    QuickArchive back(1);
    back.writeU32(0xFFFFFFFF);
    std::istringstream in(file);
    EXPECT_TRUE(back.readFromStream(in));
    std::ostringstream again;
    back.writeToStream(again);
    EXPECT_EQ(again.str(), file);
    // After loading, a write starts at 0 over the blocks just read.
    back.writeU8(0xEE);
    EXPECT_EQ(readFrom(back, &A::readU8, uint8_t{}), 0xEE);

    // A count of 2 with one block behind it loads, and the missing block reads as zeros.
    std::istringstream short_(std::string("\x02\x00\x00\x00", 4) + std::string(4096, '\x5A'));
    EXPECT_TRUE(back.readFromStream(short_) && back.blockCount() == 2);
    EXPECT_EQ(readFrom(readingAt(back, 4094), &A::readU32, 0xFFFFFFFFu), 0x00005A5Au);
    // A count of 0, or no count at all, does not load.
    std::istringstream zero(std::string(4, '\0')), nothing("");
    EXPECT_FALSE(back.readFromStream(zero) || back.blockCount() != 0 || back.readFromStream(nothing));
}

// Damaged lengths and counts cost no more memory than the data holds, and the cursor still moves
// as the length says.
TEST(QuickArchive, HostileLengthsDoNotAllocate)
{
    QuickArchive a = ByteBuilder().u32(0xFFFFFFF0).raw("text", 4).archive();
    std::string s;
    a.readString(s);
    EXPECT_TRUE(s == "text" && s.capacity() < 8192);
    EXPECT_EQ(a.readPosition(), 4u + 0xFFFFFFF0u);
    // A string ends at its first zero byte.
    EXPECT_EQ(readFrom(ByteBuilder().u32(5).raw("ab\0cd", 5).archive(), &A::readString, std::string()), "ab");

    // A string that starts in the data and runs past it keeps what exists.
    std::vector<uint8_t> bytes(4090, 'x');
    QuickArchive r = readingAt(ByteBuilder().raw(bytes.data(), bytes.size()).u32(100).raw("ab", 2).archive(), 4090);
    r.readString(s);
    EXPECT_EQ(std::pair(s, r.readPosition()), std::pair(std::string("ab"), uint64_t{4094 + 100}));

    // A block count of 0xFFFFFFFF in a 20-byte file loads what is there.
    std::istringstream in(std::string("\xFF\xFF\xFF\xFF", 4) + "sixteen bytes...");
    QuickArchive big(1);
    EXPECT_TRUE(big.readFromStream(in) && big.blockCount() == 0xFFFFFFFFu);
    EXPECT_LE(big.dataLeft(), QuickArchive::BlockSize);
    big.readString(s);  // "sixt" read as a length
    EXPECT_EQ(s, "een bytes...");
    uint8_t far = 1;
    EXPECT_TRUE(big.peekByte(uint64_t(1) << 40, far) == 1 && far == 0);
    EXPECT_FALSE(big.countFits(1000, 8) || patternArchive(1).countFits(4097, 1));
    EXPECT_TRUE(patternArchive(1).countFits(4096, 1));
}
