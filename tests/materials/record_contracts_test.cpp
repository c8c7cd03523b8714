// The record conventions: the version gate, child slots, names, and TransformComponents.
#include <gtest/gtest.h>

#include <cmath>

#include "materials/record_io.h"
#include "materials/shared_constants.h"
#include "materials/transform_components.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;
using TalvexTest::writtenBytes;

namespace ProbeFamily {

// A tiny family for the child helpers: version 1 holds a value and an optional child.
class Probe : public TalvexSerializable {
public:
    uint32_t value = 0;
    std::shared_ptr<Probe> child;
    bool failWrite = false;

    uint32_t typeId() const { return 7; }
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
    std::shared_ptr<Probe> clone() const
    {
        auto copy = std::make_shared<Probe>(*this);
        copy->child = cloneChild(child);
        return copy;
    }
    bool isEqual(const std::shared_ptr<Probe>& other) const
    {
        return other && value == other->value && childEqual(child, other->child);
    }
};

void makeFromTypeId(std::shared_ptr<Probe>& out, uint32_t id)
{
    out = id == 7 ? std::make_shared<Probe>() : nullptr;
}

}  // namespace ProbeFamily

using ProbeFamily::Probe;

TEST(RecordVersion, AcceptsOnlyKnownVersionsWithAZeroLowHalf)
{
    struct Case {
        uint32_t tag;
        std::optional<uint32_t> version;
    };
    const Case cases[] = {
        {0x10000, 1}, {0x30000, 3}, {0x20000, std::nullopt}, {0x30001, std::nullopt},
        {0x1FFFF, std::nullopt}, {0, std::nullopt}, {0x40000, std::nullopt},
    };
    for (const Case& c : cases) {
        QuickArchive in = ByteBuilder().u32(c.tag).archive();
        EXPECT_EQ(readVersion(in, {1, 3}), c.version) << std::hex << c.tag;
        EXPECT_EQ(in.readPosition(), 4u);
    }
    QuickArchive empty(nullptr, 0);
    EXPECT_EQ(readVersion(empty, {1}), std::nullopt);  // a record cut before its tag is refused
    QuickArchive out(1);
    writeVersion(out, 6);
    EXPECT_EQ(writtenBytes(out), (std::vector<uint8_t>{0, 0, 6, 0}));
    EXPECT_EQ(versionOf(0x60000), 6u);
    EXPECT_EQ(tagOf(6), 0x60000u);
}

TEST(RecordChildren, OptionalAndRequiredForms)
{
    Probe leaf;
    leaf.value = 5;
    QuickArchive out(1);
    ASSERT_TRUE(leaf.writeBinary(out));
    // An absent optional child takes exactly its presence byte.
    EXPECT_EQ(writtenBytes(out), ByteBuilder().tag(1).u32(5).u8(0).bytes);

    auto parent = std::make_shared<Probe>();
    parent->child = std::make_shared<Probe>(leaf);
    QuickArchive both(1);
    ASSERT_TRUE(writeRequiredChild(both, parent));
    EXPECT_EQ(writtenBytes(both), ByteBuilder().u32(7).tag(1).u32(0).u8(1).u32(7).tag(1).u32(5).u8(0).bytes);

    std::shared_ptr<Probe> back;
    QuickArchive in(both);
    ASSERT_TRUE(readRequiredChild(in, back));
    EXPECT_TRUE(back->isEqual(parent));

    // Any non-zero presence byte counts as present.
    QuickArchive flagTwo = ByteBuilder().tag(1).u32(1).u8(2).u32(7).tag(1).u32(9).u8(0).archive();
    Probe p;
    ASSERT_TRUE(p.readBinary(flagTwo));
    ASSERT_TRUE(p.child);
    EXPECT_EQ(p.child->value, 9u);

    // Refusals: an unknown type id, a child's refused tag, an empty required child on writing.
    QuickArchive unknownId = ByteBuilder().tag(1).u32(1).u8(1).u32(8).tag(1).u32(9).u8(0).archive();
    EXPECT_FALSE(Probe().readBinary(unknownId));
    QuickArchive badTag = ByteBuilder().tag(1).u32(1).u8(1).u32(7).tag(2).archive();
    EXPECT_FALSE(Probe().readBinary(badTag));
    QuickArchive scratch(1);
    EXPECT_FALSE(writeRequiredChild(scratch, std::shared_ptr<Probe>()));
    EXPECT_TRUE(writeChild(scratch, std::shared_ptr<Probe>()));
    parent->child->failWrite = true;
    EXPECT_FALSE(parent->writeBinary(scratch));
}

TEST(RecordChildren, CloneAndCompareSlots)
{
    auto a = std::make_shared<Probe>();
    a->child = std::make_shared<Probe>();
    a->child->value = 3;
    const auto copy = cloneChild(a);
    ASSERT_TRUE(copy && copy->child);
    EXPECT_NE(copy->child, a->child);  // deep: no child is shared
    EXPECT_TRUE(childEqual(a, copy));
    copy->child->value = 4;
    EXPECT_FALSE(childEqual(a, copy));
    EXPECT_EQ(cloneChild(std::shared_ptr<Probe>()), nullptr);
    EXPECT_TRUE(childEqual(std::shared_ptr<Probe>(), std::shared_ptr<Probe>()));
    EXPECT_FALSE(childEqual(a, std::shared_ptr<Probe>()));
    EXPECT_FALSE(childEqual(std::shared_ptr<Probe>(), a));
}

// A chain of children nested deeper than any real file is refused instead of exhausting the stack.
TEST(RecordChildren, NestingDepthIsBounded)
{
    auto chain = [](int depth) {
        ByteBuilder b;
        for (int i = 0; i < depth; ++i) b.u32(7).tag(1).u32(static_cast<uint32_t>(i)).u8(i + 1 < depth ? 1 : 0);
        return b.archive();
    };
    std::shared_ptr<Probe> root;
    QuickArchive shallow = chain(QuickArchive::MaxNesting);
    EXPECT_TRUE(readRequiredChild(shallow, root));
    QuickArchive deep = chain(QuickArchive::MaxNesting + 1);
    EXPECT_FALSE(readRequiredChild(deep, root));
    QuickArchive hostile = chain(100000);
    EXPECT_FALSE(readRequiredChild(hostile, root));
    QuickArchive again = chain(3);  // the depth count unwinds after a refusal
    EXPECT_TRUE(readRequiredChild(again, root));
}

TEST(RecordNames, ControlCharactersAreStripped)
{
    std::u16string name = u"\tOak\n \u0085wood\x7F\x1F\u00e9\u20AC\r";
    stripControlCharacters(name);
    EXPECT_EQ(name, u"Oak wood\u00e9\u20AC");
    std::u16string clean = u"Plain name";
    stripControlCharacters(clean);
    EXPECT_EQ(clean, u"Plain name");
}

TEST(TransformComponents, RecordRoundTripsAndHandMadeBytesLoad)
{
    TransformComponents c;
    c.x_rotation = 10, c.y_rotation = -20, c.z_rotation = 370;
    c.x_scale = 2, c.y_scale = 0.5f, c.z_scale = -1;
    c.x_offset = 1, c.y_offset = 2, c.z_offset = 3;
    c.x_mirror = 1, c.y_mirror = 0, c.z_mirror = -1;
    QuickArchive out(1);
    ASSERT_TRUE(c.writeBinary(out));
    const auto expected = ByteBuilder().tag(1).floats({10, -20, 370, 2, 0.5f, -1, 1, 2, 3}).i32(1).i32(0).i32(-1);
    EXPECT_EQ(writtenBytes(out), expected.bytes);

    TransformComponents back;
    QuickArchive in = expected.archive();
    ASSERT_TRUE(back.readBinary(in));
    EXPECT_TRUE(back == c);
}

TEST(TransformComponents, WrongTagLeavesTheDefaults)
{
    for (uint32_t tag : {0x20000u, 0x10001u, 0u}) {
        TransformComponents c;
        c.x_scale = c.y_scale = c.z_scale = 7;
        c.x_mirror = 1;
        QuickArchive in = ByteBuilder().u32(tag).floats({1, 2, 3, 4, 5, 6, 7, 8, 9}).i32(1).i32(1).i32(1).archive();
        EXPECT_FALSE(c.readBinary(in)) << std::hex << tag;
        EXPECT_TRUE(c == TransformComponents());
        EXPECT_EQ(c.y_scale, 1.0f);
    }
}

// Each of the twelve words of the record takes part in equality; a denormal differs from 0 too.
TEST(TransformComponents, EqualityComparesEveryField)
{
    auto loadWithWordSet = [](int word) {
        ByteBuilder b;
        b.tag(1);
        for (int i = 0; i < 12; ++i) b.u32(i == word ? 1 : 0);
        TransformComponents c;
        QuickArchive in = b.archive();
        EXPECT_TRUE(c.readBinary(in));
        return c;
    };
    const TransformComponents zeros = loadWithWordSet(-1);
    EXPECT_TRUE(zeros == loadWithWordSet(-1));
    for (int word = 0; word < 12; ++word) EXPECT_FALSE(zeros == loadWithWordSet(word)) << word;
}

// The matrix is Rx·Dx·Ry·Dy·Rz·Dz, rotation and scale interleaved, not rotation times scale.
TEST(TransformComponents, MatrixInterleavesRotationAndScale)
{
    TransformComponents c;
    c.x_rotation = 20, c.y_rotation = 35, c.z_rotation = 50;
    c.x_scale = 2, c.y_scale = 3, c.z_scale = 5;
    c.x_offset = -4, c.y_offset = 0.5f, c.z_offset = 9;
    const Transform t = c.toTransform();
    EXPECT_NEAR(t.m.v[0].x, 1.05308f, 1e-5);
    EXPECT_NEAR(t.m.v[0].y, 2.28564f, 1e-5);
    EXPECT_NEAR(t.m.v[0].z, 0.43955f, 1e-5);
    EXPECT_EQ(t.offset, (Vector{-4, 0.5f, 9}));
    EXPECT_EQ(t.m, c.toMatrix());

    // Without rotation the matrix is the scale, with a mirrored axis's sign flipped.
    TransformComponents plain;
    plain.x_scale = 2, plain.y_scale = 3, plain.z_scale = 5, plain.y_mirror = 1;
    EXPECT_EQ(plain.toMatrix(), (Matrix{{Vector{2, 0, 0}, Vector{0, -3, 0}, Vector{0, 0, 5}}}));
    EXPECT_EQ(TransformComponents().toTransform(), identityTransform);

    // A quarter turn about z takes the x axis to y: the columns are the images of the axes.
    TransformComponents turn;
    turn.z_rotation = 90;
    const Matrix m = turn.toMatrix();
    EXPECT_NEAR(m.v[0].x, 0, 1e-6);
    EXPECT_NEAR(m.v[0].y, 1, 1e-6);
    EXPECT_NEAR(m.v[1].x, -1, 1e-6);
}
