// The family rules: refused tags and child ids, deep copies and comparison. The factories' ids
// stand in the newest records' tests, their plug-in names in the example library's documents.
#include <gtest/gtest.h>

#include <vector>

#include "texture_test_support.h"
#include "textures/bitmap_texture.h"
#include "textures/blend_texture.h"
#include "textures/checker_texture.h"
#include "textures/invert_texture.h"
#include "textures/space_uvw.h"

using namespace TalvexCore;
using namespace TalvexTest;

// A tag with a low half or of an unknown version stops every class at the tag; an unknown child
// id fails the required form and, once present, the optional form.
TEST(TextureRecords, UnknownTagsAndChildIdsAreRefused)
{
    std::vector<std::shared_ptr<TalvexSerializable>> objects{createBitmap(0), createUVW(0), createUVW(1),
                                                             createUVW(3), createUVW(4)};
    for (uint32_t id = 0; id < 12; ++id) objects.push_back(createTexture(id));
    for (std::size_t i = 0; i < objects.size(); ++i)
        for (uint32_t tag : {0x10001u, 0x20001u, 0u, 0x30000u}) {
            ByteBuilder bytes;
            auto archive = bytes.u32(tag).floats({0, 0, 0, 0}).archive();
            EXPECT_FALSE(objects[i]->readBinary(archive)) << "object " << i << " tag " << tag;
            EXPECT_EQ(archive.readPosition(), 4u) << "object " << i << " tag " << tag;
        }
    ByteBuilder required, optional;
    EXPECT_FALSE(readFrom<InvertTexture>(required.tag(1).u32(13).boolean(false)));
    EXPECT_FALSE(readFrom<BlendTexture>(optional.tag(2).boolean(true).u32(0xFFFFFFFF).f32(1).boolean(false).f32(0.5f)));
}

// A copy shares nothing with its source, down to the children's children.
TEST(TextureClone, SharesNothingWithItsSource)
{
    auto invert = std::make_shared<InvertTexture>();
    auto checker = std::make_shared<CheckerTexture>();
    invert->texture = checker;
    const auto copy = invert->clone();
    std::static_pointer_cast<AColorTexture>(checker->white_color)->texture = {0.5f, 0.5f, 0.5f, 1};
    std::static_pointer_cast<GenPlanarWorldUVW>(checker->uvwgen)->uvwComponents.x_scale = 4;
    EXPECT_TRUE(std::static_pointer_cast<InvertTexture>(copy)->texture->isEqual(std::make_shared<CheckerTexture>()));
    const auto bitmap = std::static_pointer_cast<BitmapTexture>(textureFromFile(u"a.png"));
    const auto bitmapCopy = std::static_pointer_cast<BitmapTexture>(bitmap->clone());
    EXPECT_TRUE(bitmapCopy->uvwgen != bitmap->uvwgen && bitmapCopy->bitmap != bitmap->bitmap);
}

// Objects of different classes are never equal, also when all their fields agree; then children
// compare by presence, then by value.
TEST(TextureEquality, ClassThenChildPresenceThenValue)
{
    EXPECT_FALSE(GenPlanarWorldUVW().isEqual(std::make_shared<GenObjectUVW>()));
    EXPECT_FALSE(AColorTexture().isEqual(std::make_shared<CheckerTexture>()) || AColorTexture().isEqual(nullptr));
    auto withChild = std::make_shared<InvertTexture>(), withoutChild = std::make_shared<InvertTexture>();
    withChild->texture = constant(1);
    EXPECT_FALSE(withChild->isEqual(withoutChild) || withoutChild->isEqual(withChild));
    withoutChild->texture = std::make_shared<AColorTexture>(AColor{1, 1, 1, 0.5f});
    EXPECT_FALSE(withChild->isEqual(withoutChild));
}
