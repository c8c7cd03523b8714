// The family rules: factory ids, the path-to-texture rule, name tables, deep copies and comparison.
#include <gtest/gtest.h>

#include "materials/record_io.h"
#include "texture_test_support.h"
#include "textures/acolor_texture.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/blend_texture.h"
#include "textures/channel_uvw.h"
#include "textures/checker_texture.h"
#include "textures/invert_texture.h"
#include "textures/world_object_uvw.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;

TEST(TextureFactory, EachIdGivesItsClassAndPluginType)
{
    const char16_t* plugins[] = {u"TexBitmap", u"TexFresnel", u"TexUVW",    u"TexNoise", u"TexChecker", u"TexAColor",
                                 u"TexGrid",   u"TexCloth",   u"TexBulge",  u"TexInvert", u"TexBlend",  u"TexRamp"};
    for (uint32_t id = 0; id < 12; ++id) {
        const auto texture = createTexture(id);
        ASSERT_TRUE(texture) << id;
        EXPECT_EQ(texture->typeId(), id);
        EXPECT_EQ(texture->pluginType(), plugins[id]);
        EXPECT_EQ(texture->assetType(), u"texture");
    }
    EXPECT_FALSE(createTexture(13));
    EXPECT_FALSE(createTexture(0xFFFFFFFF));
}

TEST(TextureFactory, GeneratorsHaveNoId2AndBitmapsOnlyId0)
{
    EXPECT_EQ(createUVW(0)->pluginType(), u"UVWGenPlanarWorld");
    EXPECT_EQ(createUVW(1)->pluginType(), u"UVWGenObject");
    EXPECT_FALSE(createUVW(2));
    EXPECT_EQ(createUVW(3)->pluginType(), u"UVWGenEnvironment");
    EXPECT_EQ(createUVW(4)->pluginType(), u"UVWGenChannel");
    EXPECT_FALSE(createUVW(5));
    for (uint32_t id = 0; id < 5; ++id)
        if (id != 2) {
            EXPECT_EQ(createUVW(id)->typeId(), id);
        }
    EXPECT_EQ(createDefaultUVW()->typeId(), 0u);
    EXPECT_EQ(createBitmap(0)->pluginType(), u"BitmapBuffer");
    EXPECT_EQ(createBitmap(0)->assetType(), u"bitmap");
    EXPECT_FALSE(createBitmap(1));
}

TEST(TextureFactory, UnknownChildIdFailsRequiredAndOptionalSlots)
{
    ByteBuilder required;
    required.tag(1).u32(13).boolean(false);
    EXPECT_FALSE(TalvexTest::readFrom<InvertTexture>(required));
    ByteBuilder optional;
    optional.tag(2).boolean(true).u32(0xFFFFFFFF).f32(1).boolean(false).f32(0.5f);
    EXPECT_FALSE(TalvexTest::readFrom<BlendTexture>(optional));
}

TEST(TextureFactory, FilePathBecomesBitmapWithChannelGenerator)
{
    EXPECT_FALSE(textureFromFile(u""));
    const auto texture = std::dynamic_pointer_cast<BitmapTexture>(textureFromFile(u"maps/wood.png"));
    ASSERT_TRUE(texture);
    ASSERT_TRUE(texture->uvwgen);
    EXPECT_TRUE(texture->uvwgen->isEqual(std::make_shared<GenChannelUVW>()));
    const auto buffer = std::dynamic_pointer_cast<BitmapBuffer>(texture->bitmap);
    ASSERT_TRUE(buffer);
    EXPECT_EQ(buffer->file, u"maps/wood.png");
    EXPECT_EQ(buffer->filter_type, 1);
    EXPECT_TRUE(texture->tile);
}

TEST(TextureClone, SharesNothingWithItsSource)
{
    auto invert = std::make_shared<InvertTexture>();
    auto checker = std::make_shared<CheckerTexture>();
    invert->texture = checker;
    const auto copy = std::dynamic_pointer_cast<InvertTexture>(invert->clone());
    ASSERT_TRUE(copy);
    EXPECT_NE(copy, invert);
    EXPECT_TRUE(copy->isEqual(invert));

    const auto copiedChecker = std::dynamic_pointer_cast<CheckerTexture>(copy->texture);
    ASSERT_TRUE(copiedChecker);
    EXPECT_NE(copiedChecker, checker);
    EXPECT_NE(copiedChecker->uvwgen, checker->uvwgen);
    EXPECT_NE(copiedChecker->white_color, checker->white_color);

    // A change deep in the source leaves the copy as it was.
    std::static_pointer_cast<AColorTexture>(checker->white_color)->texture = {0.5f, 0.5f, 0.5f, 1};
    std::static_pointer_cast<GenPlanarWorldUVW>(checker->uvwgen)->uvwComponents.x_scale = 4;
    EXPECT_FALSE(copy->isEqual(invert));
    EXPECT_TRUE(std::static_pointer_cast<AColorTexture>(copiedChecker->white_color)->texture == (AColor{1, 1, 1, 1}));
    EXPECT_EQ(std::static_pointer_cast<GenPlanarWorldUVW>(copiedChecker->uvwgen)->uvwComponents.x_scale, 1);
}

TEST(TextureClone, BitmapTextureCopiesGeneratorAndBuffer)
{
    const auto source = textureFromFile(u"a.png");
    const auto copy = std::static_pointer_cast<BitmapTexture>(source->clone());
    const auto& original = static_cast<const BitmapTexture&>(*source);
    EXPECT_NE(copy->uvwgen, original.uvwgen);
    EXPECT_NE(copy->bitmap, original.bitmap);
    EXPECT_TRUE(copy->isEqual(source));
}

TEST(TextureEquality, DifferentClassesNeverEqual)
{
    // A planar world and an object generator hold the same fields, and differ by class alone.
    EXPECT_FALSE(GenPlanarWorldUVW().isEqual(std::make_shared<GenObjectUVW>()));
    EXPECT_TRUE(GenPlanarWorldUVW().isEqual(std::make_shared<GenPlanarWorldUVW>()));
    EXPECT_FALSE(AColorTexture().isEqual(std::make_shared<CheckerTexture>()));
    EXPECT_FALSE(AColorTexture().isEqual(nullptr));
    EXPECT_FALSE(BitmapBuffer().isEqual(nullptr));
}

TEST(TextureEquality, ChildSlotsCompareByPresenceThenValue)
{
    auto withChild = std::make_shared<InvertTexture>();
    withChild->texture = std::make_shared<AColorTexture>();
    auto withoutChild = std::make_shared<InvertTexture>();
    EXPECT_FALSE(withChild->isEqual(withoutChild));
    EXPECT_FALSE(withoutChild->isEqual(withChild));
    EXPECT_TRUE(withoutChild->isEqual(std::make_shared<InvertTexture>()));

    auto otherColour = std::make_shared<InvertTexture>();
    otherColour->texture = std::make_shared<AColorTexture>(AColor{1, 1, 1, 0.5f});
    EXPECT_FALSE(withChild->isEqual(otherColour));
    std::static_pointer_cast<AColorTexture>(otherColour->texture)->texture.a = 1;
    EXPECT_TRUE(withChild->isEqual(otherColour));
}

TEST(TextureRecord, TagWithLowHalfIsRefused)
{
    ByteBuilder bytes;
    bytes.u32(0x10001).floats({0, 0, 0, 0});
    EXPECT_FALSE(TalvexTest::readFrom<AColorTexture>(bytes));
    ByteBuilder good;
    good.tag(1).floats({0.1f, 0.2f, 0.3f, 0.4f});
    const auto colour = TalvexTest::readFrom<AColorTexture>(good);
    ASSERT_TRUE(colour);
    EXPECT_EQ(colour->texture, (AColor{0.1f, 0.2f, 0.3f, 0.4f}));
}
