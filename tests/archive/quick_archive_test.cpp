// The block archive: value words, blocks, the tolerant reads, streams and hostile lengths.
#include <gtest/gtest.h>

#include <cstring>
#include <sstream>

#include "archive/quick_archive.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::writtenBytes;

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

}  // namespace

TEST(QuickArchive, EveryWordRoundTripsInItsSize)
{
    const Color color{0.25f, 0.5f, 2};
    const Vector vector{-1, 0, 1e10f};
    const AColor acolor{1, 2, 3, 0.5f};
    const Bytes16 bytes16{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
    const Matrix matrix{{Vector{1, 2, 3}, Vector{4, 5, 6}, Vector{7, 8, 9}}};
    const Transform transform{matrix, {10, 11, 12}};
    const TransformD transformD{matrix, {0.5, 1.0 / 3.0, 1e300}};
    const uint8_t raw[3] = {0xDE, 0xAD, 0xBE};

    QuickArchive a(1);
    std::vector<uint64_t> ends;
    auto mark = [&] { ends.push_back(a.writePosition()); };
    a.writeU8(0xAB), mark();
    a.writeI8(-5), mark();
    a.writeBool(true), mark();
    a.writeU32(0xDEADBEEF), mark();
    a.writeI32(-123456), mark();
    a.writeF32(3.5f), mark();
    a.writeF64(-2.25e-300), mark();
    a.writeCount(0x1'0000'0007ull), mark();  // only the low 32 bits are stored
    a.writeColor(color), mark();
    a.writeVector(vector), mark();
    a.writeAColor(acolor), mark();
    a.writeBytes16(bytes16), mark();
    a.writeRect({-1, 2, 30, 40, 99, 99, 99, 99}), mark();
    a.writeMatrix(matrix), mark();
    a.writeTransform(transform), mark();
    a.writeTransformD(transformD), mark();
    a.writeString("abc"), mark();
    a.writeWString(u"\u00e9\U0001F600"), mark();  // 2 + 4 bytes of UTF-8
    a.writeWString(u""), mark();
    a.writeRaw(raw, 3), mark();
    a.writeBuffer(raw, 2), mark();
    EXPECT_EQ(ends, (std::vector<uint64_t>{1, 2, 3, 7, 11, 15, 23, 27, 39, 51, 67, 83, 99, 135, 183, 231, 238, 248,
                                           252, 255, 261}));

    auto back = [&a](auto read, auto value) {
        (a.*read)(value);
        return value;
    };
    EXPECT_EQ(back(&QuickArchive::readU8, uint8_t{}), 0xAB);
    EXPECT_EQ(back(&QuickArchive::readI8, int8_t{}), -5);
    EXPECT_TRUE(back(&QuickArchive::readBool, false));
    EXPECT_EQ(back(&QuickArchive::readU32, 0u), 0xDEADBEEF);
    EXPECT_EQ(back(&QuickArchive::readI32, 0), -123456);
    EXPECT_EQ(back(&QuickArchive::readF32, 0.0f), 3.5f);
    EXPECT_EQ(back(&QuickArchive::readF64, 0.0), -2.25e-300);
    EXPECT_EQ(back(&QuickArchive::readCount, uint64_t{}), 7u);
    EXPECT_EQ(back(&QuickArchive::readColor, Color{}), color);
    EXPECT_EQ(back(&QuickArchive::readVector, Vector{}), vector);
    EXPECT_EQ(back(&QuickArchive::readAColor, AColor{}), acolor);
    EXPECT_EQ(back(&QuickArchive::readBytes16, Bytes16{}), bytes16);
    // Reading derives width and height and clears the two spare words; the stored size was not written.
    EXPECT_EQ(back(&QuickArchive::readRect, Rect{}), (Rect{-1, 2, 30, 40, 31, 38, 0, 0}));
    EXPECT_EQ(back(&QuickArchive::readMatrix, Matrix{}), matrix);
    EXPECT_EQ(back(&QuickArchive::readTransform, Transform{}), transform);
    // The offset of a transformD goes through binary32.
    EXPECT_EQ(back(&QuickArchive::readTransformD, TransformD{}),
              (TransformD{matrix, {0.5, static_cast<double>(1.0f / 3.0f), static_cast<double>(static_cast<float>(1e300))}}));
    EXPECT_EQ(back(&QuickArchive::readString, std::string()), "abc");
    EXPECT_EQ(back(&QuickArchive::readWString, std::u16string()), u"\u00e9\U0001F600");
    EXPECT_EQ(back(&QuickArchive::readWString, std::u16string(u"old")), u"");
    uint8_t rawBack[3] = {}, buffer[4] = {};
    a.readRaw(rawBack, 3);
    EXPECT_EQ(a.readBuffer(buffer, 4, false), 2u);
    EXPECT_EQ(a.readPosition(), a.writePosition());
    EXPECT_EQ(0, std::memcmp(rawBack, raw, 3));
    EXPECT_EQ(0, std::memcmp(buffer, raw, 2));

    const std::vector<uint8_t> bytes = writtenBytes(a);
    EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 238, bytes.begin() + 248),
              (std::vector<uint8_t>{6, 0, 0, 0, 0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80}));
    EXPECT_EQ(std::vector<uint8_t>(bytes.begin() + 248, bytes.begin() + 252), (std::vector<uint8_t>{0, 0, 0, 0}));
}

TEST(QuickArchive, ValuesStraddlingTwoBlocksReadBack)
{
    QuickArchive a(1);
    const std::vector<uint8_t> fill(4094, 0x55);
    a.writeRaw(fill.data(), fill.size());
    a.writeU32(0x11223344);
    a.writeString("across the seam");
    a.writeColor({1, 2, 3});
    EXPECT_EQ(a.blockCount(), 2u);

    QuickArchive r = readingAt(a, 4094);
    uint32_t u32 = 0;
    std::string s;
    Color c;
    r.readU32(u32), r.readString(s), r.readColor(c);
    EXPECT_EQ(u32, 0x11223344u);
    EXPECT_EQ(s, "across the seam");
    EXPECT_EQ(c, (Color{1, 2, 3}));
}

// Behind the last block a scalar keeps its bytes, and every word of several floats comes out zero.
TEST(QuickArchive, ReadsPastTheEndKeepScalarsAndZeroTheRest)
{
    QuickArchive none(nullptr, 0);
    EXPECT_EQ(none.blockCount(), 0u);
    uint32_t seven = 7;
    Color white{1, 1, 1};
    none.readU32(seven);
    none.readColor(white);
    EXPECT_EQ(seven, 7u);
    EXPECT_EQ(white, (Color{}));
    EXPECT_EQ(none.readPosition(), 16u);  // the cursor moves in any case

    QuickArchive a(nullptr, 0);
    auto back = [&a](auto read, auto value) {
        (a.*read)(value);
        return value;
    };
    EXPECT_EQ(back(&QuickArchive::readU8, uint8_t{1}), 1);
    EXPECT_EQ(back(&QuickArchive::readI8, int8_t{-1}), -1);
    EXPECT_TRUE(back(&QuickArchive::readBool, true));
    EXPECT_EQ(back(&QuickArchive::readI32, -7), -7);
    EXPECT_EQ(back(&QuickArchive::readF32, 0.5f), 0.5f);
    EXPECT_EQ(back(&QuickArchive::readF64, 0.25), 0.25);
    const Matrix ones{{Vector{1, 1, 1}, Vector{1, 1, 1}, Vector{1, 1, 1}}};
    EXPECT_EQ(back(&QuickArchive::readCount, uint64_t{9}), 0u);
    EXPECT_EQ(back(&QuickArchive::readVector, Vector{1, 1, 1}), Vector{});
    EXPECT_EQ(back(&QuickArchive::readAColor, AColor{1, 1, 1, 1}), AColor{});
    EXPECT_EQ(back(&QuickArchive::readBytes16, Bytes16{1, 1}), Bytes16{});
    EXPECT_EQ(back(&QuickArchive::readMatrix, ones), Matrix{});
    EXPECT_EQ(back(&QuickArchive::readTransform, Transform{ones, {1, 1, 1}}), Transform{});
    EXPECT_EQ(back(&QuickArchive::readTransformD, TransformD{ones, {1, 1, 1}}), TransformD{});
    EXPECT_EQ(back(&QuickArchive::readString, std::string("kept?")), "");
    EXPECT_EQ(back(&QuickArchive::readWString, std::u16string(u"kept?")), u"");

    // A scalar that runs off the end in its middle changes its low bytes only.
    std::vector<uint8_t> bytes(4096, 0);
    bytes[4094] = 0x22, bytes[4095] = 0x11;
    QuickArchive partial = readingAt(QuickArchive(bytes.data(), bytes.size()), 4094);
    uint32_t value = 0xFFFFFFFF;
    partial.readU32(value);
    EXPECT_EQ(value, 0xFFFF1122u);
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
    auto bytesOf = [](const auto& value) {
        const auto* p = reinterpret_cast<const uint8_t*>(&value);
        return std::vector<uint8_t>(p, p + sizeof value);
    };
    for (uint64_t seam : {QuickArchive::BlockSize, 2 * QuickArchive::BlockSize}) {
        for (uint64_t offset = seam - 40; offset <= seam + 4; ++offset) {
            SCOPED_TRACE(offset);
            QuickArchive a = readingAt(source, offset);
            uint32_t u32 = 0xEEEEEEEE;
            a.readU32(u32);
            EXPECT_EQ(bytesOf(u32), byteSteps(offset, 4, 0xEE));
            a = readingAt(source, offset);
            double f64;
            std::memset(&f64, 0xEE, sizeof f64);
            a.readF64(f64);
            EXPECT_EQ(bytesOf(f64), byteSteps(offset, 8, 0xEE));
            a = readingAt(source, offset);
            uint64_t count = 0;
            a.readCount(count);
            EXPECT_EQ(bytesOf(static_cast<uint32_t>(count)), byteSteps(offset, 4, 0));
            a = readingAt(source, offset);
            AColor ac{9, 9, 9, 9};
            a.readAColor(ac);
            EXPECT_EQ(bytesOf(ac), byteSteps(offset, 16, 0));
            a = readingAt(source, offset);
            Matrix m;
            a.readMatrix(m);
            EXPECT_EQ(bytesOf(m), byteSteps(offset, 36, 0));
            EXPECT_EQ(a.readPosition(), offset + 36);
        }
    }
}

TEST(QuickArchive, CopiesShareBlocksAndCursors)
{
    QuickArchive a(1);
    a.writeU32(5);
    QuickArchive b(a);
    EXPECT_EQ(b.writePosition(), 4u);
    b.writeU32(6);
    uint32_t seen = 0;
    QuickArchive c = readingAt(a, 4);
    c.readU32(seen);
    EXPECT_EQ(seen, 6u);  // a write through the copy shows in the original
    a = a;
    EXPECT_EQ(a.writePosition(), 4u);
    a.clear();
    EXPECT_EQ(a.blockCount(), 0u);
    EXPECT_EQ(a.writePosition(), 0u);
    b.readU32(seen);
    EXPECT_EQ(seen, 5u);  // the copy keeps its blocks
}

TEST(QuickArchive, ReadBufferWithAndWithoutRewind)
{
    const uint8_t twelve[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    const QuickArchive stored = ByteBuilder().u32(12).raw(twelve, 12).u8(0x77).archive();
    // Capacity 0 with rewind tells the size and leaves the cursor; without rewind the cursor skips
    // what did not fit.
    struct Case {
        uint64_t capacity;
        bool rewind;
        uint64_t position;
        std::size_t copied;
    };
    const Case cases[] = {{0, true, 0, 0}, {12, true, 16, 12}, {4, true, 0, 4}, {4, false, 16, 4}, {16, false, 16, 12}};
    for (const Case& c : cases) {
        QuickArchive a(stored);
        std::vector<uint8_t> out(16, 0xAA), expected(16, 0xAA);
        std::copy(twelve, twelve + c.copied, expected.begin());
        EXPECT_EQ(a.readBuffer(out.data(), c.capacity, c.rewind), 12u);
        EXPECT_EQ(a.readPosition(), c.position) << c.capacity << c.rewind;
        EXPECT_EQ(out, expected) << c.capacity << c.rewind;
    }
}

TEST(QuickArchive, PeekAndPoke)
{
    QuickArchive a(nullptr, 0);
    uint8_t b = 0x42;
    EXPECT_EQ(a.peekByte(0, b), 0);
    EXPECT_EQ(b, 0x42);
    a.pokeByte(10, 0x99);  // adds the block it needs
    EXPECT_EQ(a.blockCount(), 1u);
    EXPECT_EQ(a.writePosition(), 0u);
    EXPECT_EQ(a.peekByte(10, b), 1);
    EXPECT_EQ(b, 0x99);
    EXPECT_EQ(a.peekByte(4095, b), 1);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(a.peekByte(4096, b), 0);
    uint8_t checked = 0x13;
    QuickArchive r = readingAt(a, 4095);
    EXPECT_EQ(r.readByteChecked(checked), 1);
    EXPECT_EQ(r.readByteChecked(checked), 0);
    EXPECT_EQ(r.readPosition(), 4097u);
}

TEST(QuickArchive, StreamFormIsCountThenWholeBlocks)
{
    const QuickArchive a = patternArchive(4097);
    std::ostringstream out;
    EXPECT_TRUE(a.writeToStream(out));
    const std::string file = out.str();
    ASSERT_EQ(file.size(), 4u + 8192u);
    EXPECT_EQ(file.substr(0, 4), std::string("\x02\x00\x00\x00", 4));
    EXPECT_EQ(static_cast<uint8_t>(file[4 + 4096]), static_cast<uint8_t>(4096 * 7 + 3));

    QuickArchive back(1);
    back.writeU32(0xFFFFFFFF);
    std::istringstream in(file);
    EXPECT_TRUE(back.readFromStream(in));
    EXPECT_EQ(back.blockCount(), 2u);
    EXPECT_EQ(back.readPosition(), 0u);
    EXPECT_EQ(back.writePosition(), 0u);
    std::ostringstream again;
    back.writeToStream(again);
    EXPECT_EQ(again.str(), file);
    // After loading, a write starts at 0 over the blocks just read.
    back.writeU8(0xEE);
    uint8_t first = 0;
    back.readU8(first);
    EXPECT_EQ(first, 0xEE);
}

TEST(QuickArchive, StreamWithMissingBlocksOrNone)
{
    // A count of 2 with one block behind it loads, and the missing block reads as zeros.
    const std::string file = std::string("\x02\x00\x00\x00", 4) + std::string(4096, '\x5A');
    std::istringstream in(file);
    QuickArchive a(1);
    EXPECT_TRUE(a.readFromStream(in));
    EXPECT_EQ(a.blockCount(), 2u);
    QuickArchive r = readingAt(a, 4094);
    uint32_t value = 0xFFFFFFFF, later = 7;
    r.readU32(value), r.readU32(later);
    EXPECT_EQ(value, 0x00005A5Au);
    EXPECT_EQ(later, 0u);

    std::istringstream zero(std::string(4, '\0'));
    EXPECT_FALSE(a.readFromStream(zero));
    EXPECT_EQ(a.blockCount(), 0u);
    std::istringstream nothing("");
    EXPECT_FALSE(a.readFromStream(nothing));
}

// Damaged lengths and counts cost no more memory than the data holds, and the cursor still moves
// as the length says.
TEST(QuickArchive, HostileLengthsDoNotAllocate)
{
    QuickArchive a = ByteBuilder().u32(0xFFFFFFF0).raw("text", 4).archive();
    std::string s;
    a.readString(s);
    EXPECT_EQ(s, "text");
    EXPECT_LT(s.capacity(), 8192u);
    EXPECT_EQ(a.readPosition(), 4u + 0xFFFFFFF0u);

    QuickArchive w = ByteBuilder().u32(0xFFFFFFF0).raw("\xC3\xA9t\xC3\xA9", 5).archive();
    std::u16string ws;
    w.readWString(ws);
    EXPECT_EQ(ws, u"\u00e9t\u00e9");
    EXPECT_EQ(w.readPosition(), 4u + 0xFFFFFFF0u);

    // A string that starts in the data and runs past it keeps what exists.
    std::vector<uint8_t> bytes(4090, 'x');
    QuickArchive tail = ByteBuilder().raw(bytes.data(), bytes.size()).u32(100).raw("ab", 2).archive();
    QuickArchive r = readingAt(tail, 4090);
    r.readString(s);
    EXPECT_EQ(s, "ab");
    EXPECT_EQ(r.readPosition(), 4094u + 100u);

    // A block count of 0xFFFFFFFF in a 20-byte file loads what is there.
    const std::string file = std::string("\xFF\xFF\xFF\xFF", 4) + "sixteen bytes...";
    std::istringstream in(file);
    QuickArchive big(1);
    EXPECT_TRUE(big.readFromStream(in));
    EXPECT_EQ(big.blockCount(), 0xFFFFFFFFu);
    EXPECT_LE(big.dataLeft(), QuickArchive::BlockSize);
    std::string word;
    big.readString(word);  // "sixt" read as a length
    uint8_t far = 1;
    EXPECT_EQ(big.peekByte(uint64_t(1) << 40, far), 1);
    EXPECT_EQ(far, 0);
    EXPECT_FALSE(big.countFits(1000, 8));
    EXPECT_TRUE(patternArchive(1).countFits(4096, 1));
    EXPECT_FALSE(patternArchive(1).countFits(4097, 1));
}
