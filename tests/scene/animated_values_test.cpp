// Key-framed values: keys within the time tolerance, values between keys, the three records and
// what reading leaves of the default key.
#include <gtest/gtest.h>

#include <cmath>

#include "scene/animated_values.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

Transform translation(float x)
{
    Transform t = AnimatedTransform::identity();
    t.offset.x = x;
    return t;
}

ByteBuilder& transformBytes(ByteBuilder& b, const Transform& t)
{
    for (const Vector& v : t.m.v) b.floats({v.x, v.y, v.z});
    return b.floats({t.offset.x, t.offset.y, t.offset.z});
}

}  // namespace

TEST(AnimatedValues, KeysWithinTheToleranceAreOneKey)
{
    AnimatedReal real(true);
    real.setKey(2.0f, 1.0);
    real.setKey(3.0f, 1.0 + 1e-13);
    ASSERT_EQ(real.keyCount(), 1);
    EXPECT_EQ(real.keyTime(0), 1.0);  // the stored time stays
    EXPECT_EQ(real.valueAt(1.0 - 5e-13), 3.0f);

    real.setKey(4.0f, 1.0 + 2e-12);
    EXPECT_EQ(std::tuple(real.keyCount(), real.keyTime(1), real.keyTime(2), real.keyTime(-1)),
              std::tuple(2, 1.0 + 2e-12, 0.0, 0.0));

    real.clear();
    EXPECT_EQ(std::tuple(real.keyCount(), real.keyTime(0), real.valueAt(0.0)), std::tuple(1, 0.0, 0.0f));
}

TEST(AnimatedValues, ValuesBetweenAndBeyondKeys)
{
    AnimatedReal real(true);
    real.setKey(1.0f, 0.0);
    real.setKey(3.0f, 1.0);
    EXPECT_EQ(std::pair(real.valueAt(0.5), real.valueAt(5.0)), std::pair(2.0f, 3.0f));
    real.interpolate = false;
    // Held: before the first key gives the first key.
    EXPECT_EQ(std::tuple(real.valueAt(0.5), real.valueAt(5.0), real.valueAt(-1.0)), std::tuple(1.0f, 3.0f, 1.0f));

    AnimatedInt whole(true);
    whole.setKey(1, 0.0);
    whole.setKey(2, 1.0);
    EXPECT_EQ(whole.valueAt(0.5), 1);  // 1.5 truncated
    whole.setKey(-3, 2.0);
    EXPECT_EQ(whole.valueAt(1.5), 0);  // -0.5 truncated toward zero
    EXPECT_EQ(whole.valueAt(-1.0), std::numeric_limits<int32_t>::min());  // no finite value there

    AnimatedTransform moving;
    moving.clear();
    moving.setKey(translation(4), 2.0);
    EXPECT_EQ(moving.valueAt(1.0), translation(2));
    EXPECT_EQ(std::pair(moving.valueAt(9.0), moving.keyValue(1)), std::pair(translation(4), translation(4)));
    EXPECT_EQ(moving.keyValue(2), AnimatedTransform::identity());
}

TEST(AnimatedValues, ReadingKeepsTheDefaultKeyOfNumbersButNotOfTransforms)
{
    ByteBuilder reals;
    reals.tag(1).i32(2).i32(8).boolean(true).f64(1.0).f32(5).f64(2.0).f32(7);
    AnimatedReal real(false);
    ASSERT_TRUE(load(real, reals));
    EXPECT_TRUE(real.interpolate);
    EXPECT_EQ(std::tuple(real.keyCount(), real.valueAt(0.0), real.valueAt(1.5)), std::tuple(3, 0.0f, 6.0f));

    ByteBuilder ints;
    ints.tag(1).i32(2).i32(8).boolean(false).f64(0.0).i32(9).f64(3.0).i32(4);
    AnimatedInt whole;
    ASSERT_TRUE(load(whole, ints));
    EXPECT_EQ(std::tuple(whole.keyCount(), whole.valueAt(0.0), whole.valueAt(2.0)), std::tuple(2, 9, 9));

    ByteBuilder transforms;
    transforms.tag(1).i32(1).i32(8).f64(1.0);
    transformBytes(transforms, translation(3));
    AnimatedTransform moving;
    ASSERT_TRUE(load(moving, transforms));
    EXPECT_EQ(std::pair(moving.keyCount(), moving.keyTime(0)), std::pair(1, 1.0));

    ASSERT_TRUE(load(moving, ByteBuilder().tag(1).i32(0).i32(8)));
    EXPECT_EQ(moving.keyCount(), 0);
    moving.clear();
    EXPECT_EQ(moving.keyCount(), 1);
}

TEST(AnimatedValues, RecordsWriteBackByteForByteAndRefuseBadHeaders)
{
    ByteBuilder reals;
    reals.tag(1).i32(2).i32(8).boolean(true).f64(0.0).f32(5).f64(2.5).f32(-1);
    AnimatedReal real;
    ASSERT_TRUE(load(real, reals));
    EXPECT_EQ(bytesOf(real), reals.bytes);

    ByteBuilder transforms;
    transforms.tag(1).i32(2).i32(8).f64(0.0);
    transformBytes(transforms, translation(1)).f64(4.0);
    transformBytes(transforms, translation(2));
    AnimatedTransform moving;
    ASSERT_TRUE(load(moving, transforms));
    EXPECT_EQ(bytesOf(moving), transforms.bytes);

    AnimatedTransform copy = moving;
    copy.setKey(translation(2.5f), 4.0);
    EXPECT_FALSE(moving.isEqual(copy));
    copy.setKey(translation(2), 4.0 + 1e-13);
    EXPECT_TRUE(moving.isEqual(copy));
    copy.setKey(translation(2), 5.0);
    EXPECT_FALSE(moving.isEqual(copy));

    const ByteBuilder refused[] = {
        ByteBuilder().tag(2).i32(0).i32(8).boolean(false),              // unknown version
        ByteBuilder().u32(0x10001).i32(0).i32(8).boolean(false),        // low half set
        ByteBuilder().tag(1).i32(1).i32(4).boolean(false).f64(0).f32(1),  // a time is not 8 bytes wide
        ByteBuilder().tag(1).i32(1000000).i32(8).boolean(false).f64(0).f32(1),  // more keys than bytes
    };
    for (const ByteBuilder& bytes : refused) {
        QuickArchive damaged = bytes.archive();
        EXPECT_FALSE(AnimatedReal().readBinary(damaged));
        EXPECT_TRUE(damaged.failure()) << "a refusal names its reason";
    }
    AnimatedReal negative;
    EXPECT_TRUE(load(negative, ByteBuilder().tag(1).i32(-5).i32(8).boolean(true)));
    EXPECT_EQ(negative.keyCount(), 1);
}

TEST(AnimatedValues, DamagedTimesKeepTheKeysOrdered)
{
    ByteBuilder bytes;
    bytes.tag(1).i32(3).i32(8).boolean(true).f64(std::nan("")).f32(1).f64(1.0).f32(2).f64(-INFINITY).f32(3);
    AnimatedReal real;
    ASSERT_TRUE(load(real, bytes));
    EXPECT_EQ(std::pair(real.keyCount(), real.valueAt(1.0)), std::pair(4, 2.0f));
    AnimatedReal again;
    ASSERT_TRUE(load(again, recordOf(real)));
    EXPECT_EQ(again.keyCount(), 4);
}
