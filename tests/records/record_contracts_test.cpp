// The record conventions: the version gate, child slots and how deep they nest, the counted list,
// TransformComponents and the stored factors.
#include <gtest/gtest.h>

#include <bit>
#include <tuple>
#include <vector>

#include "records/record_io.h"
#include "records/shared_constants.h"
#include "records/transform_components.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace ProbeFamily {

// A tiny family for the child helpers: version 1 holds a value and an optional child.
class Probe : public TalvexSerializable {
public:
    uint32_t value = 0;
    std::shared_ptr<Probe> child;
    bool failWrite = false;

    uint32_t typeId() const { return 7; }
    std::u16string pluginType() const { return u"Probe"; }
    bool writeBinary(QuickArchive& out) const override
    {
        if (failWrite) return false;
        writeVersion(out, 1);
        out.writeU32(value);
        return writeChild(out, child);
    }
    bool readBinary(QuickArchive& in) override
    {
        if (!readVersion(in, {1})) return false;
        in.readU32(value);
        return readChild(in, child);
    }
};

void makeFromTypeId(std::shared_ptr<Probe>& out, uint32_t id) { out = id == 7 ? std::make_shared<Probe>() : nullptr; }

}  // namespace ProbeFamily

using ProbeFamily::Probe;

// A known version with a low half of zero passes; the tag alone is read either way.
TEST(RecordVersion, AcceptsOnlyKnownVersionsWithAZeroLowHalf)
{
    const std::pair<uint32_t, uint32_t> cases[] = {{0x10000, 1}, {0x30000, 3}, {0x20000, 0}, {0x30001, 0},
                                                   {0x1FFFF, 0}, {0, 0},       {0x40000, 0}};
    for (const auto& [tag, version] : cases) {
        QuickArchive in = ByteBuilder().u32(tag).archive();
        EXPECT_EQ(readVersion(in, {1, 3}).value_or(0), version) << std::hex << tag;
        EXPECT_EQ(in.readPosition(), 4u);
    }
    QuickArchive empty(nullptr, 0);
    EXPECT_FALSE(readVersion(empty, {1})) << "a record cut before its tag is refused";
}

// A required child has no presence byte, an absent optional one takes exactly its presence byte, and
// any non-zero presence byte counts as present.
TEST(RecordChildren, OptionalAndRequiredForms)
{
    auto parent = std::make_shared<Probe>();
    parent->child = std::make_shared<Probe>();
    parent->child->value = 5;
    QuickArchive out(1);
    ASSERT_TRUE(writeRequiredChild(out, parent));
    EXPECT_EQ(writtenBytes(out), ByteBuilder().u32(7).tag(1).u32(0).u8(1).u32(7).tag(1).u32(5).u8(0).bytes);
    QuickArchive flagTwo = ByteBuilder().u32(7).tag(1).u32(1).u8(2).u32(7).tag(1).u32(9).u8(0).archive();
    std::shared_ptr<Probe> back;
    ASSERT_TRUE(readRequiredChild(flagTwo, back) && back->child);
    EXPECT_TRUE(back->child->value == 9 && !back->child->child);

    // An unknown type id or a child's refused tag fails the read; an empty required child or a child
    // that fails fails the write.
    QuickArchive unknownId = ByteBuilder().tag(1).u32(1).u8(1).u32(8).tag(1).u32(9).u8(0).archive();
    EXPECT_FALSE(Probe().readBinary(unknownId));
    QuickArchive badTag = ByteBuilder().tag(1).u32(1).u8(1).u32(7).tag(2).archive();
    EXPECT_FALSE(Probe().readBinary(badTag));
    EXPECT_FALSE(writeRequiredChild(out, std::shared_ptr<Probe>()));
    parent->child->failWrite = true;
    EXPECT_FALSE(parent->writeBinary(out));

    // Each refusal is noted where it happened, with the objects it lies in, innermost first.
    ASSERT_TRUE(unknownId.failure() && badTag.failure());
    EXPECT_EQ(describe(*unknownId.failure()), "at offset 9: unknown type id 8");
    EXPECT_EQ(describe(*badTag.failure()),
              "in Probe at offset 13: version tag 0x00020000 is not one of this record's (0x00010000)");
    QuickArchive nested = ByteBuilder().u32(7).tag(1).u32(0).u8(1).u32(7).tag(1).u32(0).u8(1).u32(9).archive();
    EXPECT_FALSE(readRequiredChild(nested, back));
    EXPECT_EQ(describe(*nested.failure()), "in Probe > Probe at offset 26: unknown type id 9");
    QuickArchive longList = ByteBuilder().u32(1000).u32(0).archive();  // the rest of its block counts too
    uint64_t count = 0;
    EXPECT_FALSE(readListCount(longList, count, 8));
    EXPECT_EQ(describe(*longList.failure()), "at offset 0: a count of 1000 that the 4092 bytes left cannot hold");
    QuickArchive fine = ByteBuilder().u32(7).tag(1).u32(1).u8(0).archive();
    EXPECT_TRUE(readRequiredChild(fine, back) && !fine.failure()) << "nothing is noted while a load goes well";
}

// A chain of children nested deeper than any real file is refused instead of exhausting the stack.
TEST(RecordChildren, NestingDepthIsBounded)
{
    auto chain = [](int depth) {
        ByteBuilder b;
        for (int i = 0; i < depth; ++i) b.u32(7).tag(1).u32(static_cast<uint32_t>(i)).u8(i + 1 < depth ? 1 : 0);
        return b.archive();
    };
    // The depth count unwinds after a refusal, so the last chain reads again.
    const std::pair<int, bool> cases[] = {{QuickArchive::MaxNesting, true}, {QuickArchive::MaxNesting + 1, false},
                                          {100000, false}, {3, true}};
    for (const auto& [depth, readable] : cases) {
        std::shared_ptr<Probe> root;
        QuickArchive in = chain(depth);
        EXPECT_EQ(readRequiredChild(in, root), readable) << depth;
        EXPECT_TRUE(readable || in.failure()->reason.find("nested deeper than 100 levels") != std::string::npos);
    }
    // Whatever depth is refused on reading is refused on writing, so that no saved file fails to load.
    for (const auto& [depth, writable] : {std::pair{QuickArchive::MaxNesting, true},
                                          std::pair{QuickArchive::MaxNesting + 1, false}}) {
        auto root = std::make_shared<Probe>();
        auto node = root;
        for (int i = 1; i < depth; ++i) node = node->child = std::make_shared<Probe>();
        QuickArchive out(1);
        EXPECT_EQ(writeRequiredChild(out, root), writable) << depth;
    }
}

// A list reads its elements in order and stops at the first that fails; a count its bytes cannot
// hold fails before any element is read, however large.
TEST(RecordCountedList, ReadsInOrderStopsAtAFailureAndRefusesCountsPastTheData)
{
    auto readValues = [](const ByteBuilder& bytes, std::vector<uint32_t>& values) {
        QuickArchive in = bytes.archive();
        return readCountedList(in, 4, [&] {
            values.push_back(0);
            in.readU32(values.back());
            return values.back() != 99;
        });
    };
    // The count, whether the list reads, and the values read.
    const std::tuple<uint32_t, bool, std::vector<uint32_t>> cases[] = {
        {3, true, {5, 6, 7}}, {3, false, {5, 99}}, {1u << 20, false, {}}, {0xFFFFFFFFu, false, {}}};
    for (const auto& [count, reads, read] : cases) {
        std::vector<uint32_t> values;
        EXPECT_EQ(readValues(ByteBuilder().u32(count).u32(5).u32(reads ? 6 : 99).u32(7), values), reads) << count;
        EXPECT_EQ(values, read) << count;
    }

    QuickArchive out(1);
    const std::vector<uint32_t> written{1, 2, 3};
    int calls = 0;
    EXPECT_FALSE(writeCountedList(out, written, [&](uint32_t v) { ++calls; out.writeU32(v); return v != 2; }));
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(writtenBytes(out), ByteBuilder().u32(3).u32(1).u32(2).bytes);
}

// The factors are the floats files and cameras hold, bit for bit; the nearest float to 180 over pi
// is one unit above the stored one.
TEST(SharedConstants, BitsOfTheStoredValues)
{
    EXPECT_EQ(std::bit_cast<uint32_t>(degreesPerRadian), 0x42652EE0u);
    EXPECT_EQ(std::bit_cast<uint32_t>(radiansPerDegree), 0x3C8EFA35u);
}

// Each of the twelve words of the record lands in its own field, and each field takes part in
// equality; a denormal differs from 0 too.
TEST(TransformComponents, RecordWordsFieldsEqualityAndRefusedTags)
{
    TransformComponents c;
    c.x_rotation = 10, c.y_rotation = -20, c.z_rotation = 370, c.x_scale = 2, c.y_scale = 0.5f, c.z_scale = -1;
    c.x_offset = 1, c.y_offset = 2, c.z_offset = 3, c.x_mirror = 1, c.y_mirror = 0, c.z_mirror = -1;
    const auto bytes = ByteBuilder().tag(1).floats({10, -20, 370, 2, 0.5f, -1, 1, 2, 3}).i32(1).i32(0).i32(-1);
    EXPECT_EQ(bytesOf(c), bytes.bytes);
    EXPECT_TRUE(*readFrom<TransformComponents>(bytes) == c);
    auto withWordSet = [](int word) {
        ByteBuilder b = ByteBuilder().tag(1);
        for (int i = 0; i < 12; ++i) b.u32(i == word ? 1 : 0);
        return *readFrom<TransformComponents>(b);
    };
    for (int word = 0; word < 12; ++word) EXPECT_FALSE(withWordSet(-1) == withWordSet(word)) << word;

    // A wrong tag leaves the defaults, scale 1 among them.
    for (uint32_t tag : {0x20000u, 0x10001u, 0u}) {
        c.x_scale = 7;
        EXPECT_FALSE(load(c, ByteBuilder().u32(tag).floats({1, 2, 3, 4, 5, 6, 7, 8, 9}).i32(1).i32(1).i32(1))) << std::hex << tag;
        EXPECT_TRUE(c == TransformComponents() && c.y_scale == 1.0f);
    }
}

// The matrix is Rx·Dx·Ry·Dy·Rz·Dz, rotation and scale interleaved, not rotation times scale; a
// mirrored axis flips the sign of its scale.
TEST(TransformComponents, MatrixInterleavesRotationAndScale)
{
    TransformComponents c;
    c.x_rotation = 20, c.y_rotation = 35, c.z_rotation = 50, c.x_scale = 2, c.y_scale = 3, c.z_scale = 5;
    c.x_offset = -4, c.y_offset = 0.5f, c.z_offset = 9;
    const Transform t = c.toTransform();
    for (const auto& [got, expected] : {std::pair{t.m.v[0].x, 1.05308f}, {t.m.v[0].y, 2.28564f}, {t.m.v[0].z, 0.43955f}})
        EXPECT_NEAR(got, expected, 1e-5);
    EXPECT_EQ(t.offset, (Vector{-4, 0.5f, 9}));

    TransformComponents plain;
    plain.x_scale = 2, plain.y_scale = 3, plain.z_scale = 5, plain.y_mirror = 1;
    EXPECT_EQ(plain.toMatrix(), (Matrix{{Vector{2, 0, 0}, Vector{0, -3, 0}, Vector{0, 0, 5}}}));
}
