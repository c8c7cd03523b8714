// The family rules: factory ids, the path-to-texture rule, refused tags and child ids, deep copies,
// comparison, and the newest record of every class read back.
#include <gtest/gtest.h>

#include <vector>

#include "texture_test_support.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/blend_texture.h"
#include "textures/bulge_texture.h"
#include "textures/channel_uvw.h"
#include "textures/checker_texture.h"
#include "textures/cloth_texture.h"
#include "textures/environment_uvw.h"
#include "textures/fresnel_texture.h"
#include "textures/grid_texture.h"
#include "textures/invert_texture.h"
#include "textures/noise_texture.h"
#include "textures/ramp_texture.h"
#include "textures/space_uvw.h"
#include "textures/uvw_texture.h"

using namespace TalvexCore;
using namespace TalvexTest;

TEST(TextureFactory, EachIdGivesItsClassAndNothingElse)
{
    const char16_t* textures[] = {u"TexBitmap", u"TexFresnel", u"TexUVW",   u"TexNoise",  u"TexChecker", u"TexAColor",
                                  u"TexGrid",   u"TexCloth",   u"TexBulge", u"TexInvert", u"TexBlend",   u"TexRamp"};
    for (uint32_t id = 0; id < 12; ++id) {
        ASSERT_TRUE(createTexture(id)) << id;
        EXPECT_EQ(createTexture(id)->typeId(), id);
        EXPECT_EQ(createTexture(id)->pluginType(), textures[id]);
    }
    const char16_t* generators[] = {u"UVWGenPlanarWorld", u"UVWGenObject", u"", u"UVWGenEnvironment", u"UVWGenChannel"};
    for (uint32_t id : {0u, 1u, 3u, 4u}) EXPECT_EQ(createUVW(id)->pluginType(), generators[id]) << id;
    EXPECT_TRUE(createDefaultUVW()->typeId() == 0 && createUVW(4)->typeId() == 4 && createBitmap(0)->typeId() == 0);
    EXPECT_FALSE(createUVW(2) || createUVW(5) || createTexture(13) || createTexture(0xFFFFFFFF) || createBitmap(1));
    // A path gives a bitmap texture with a channel generator and a buffer of the file; no path, nothing.
    EXPECT_FALSE(textureFromFile(u""));
    const auto texture = std::dynamic_pointer_cast<BitmapTexture>(textureFromFile(u"maps/wood.png"));
    ASSERT_TRUE(texture);
    auto buffer = std::make_shared<BitmapBuffer>();
    buffer->file = u"maps/wood.png";
    EXPECT_TRUE(buffer->isEqual(texture->bitmap) && texture->uvwgen->isEqual(std::make_shared<GenChannelUVW>()));
}

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

TEST(TextureRecords, NewestRecordOfEachClassReadsBackAndClonesEqual)
{
    auto channel = generator<GenChannelUVW>();
    channel->wrap_u = 1; channel->wrap_v = 2; channel->uvw_channel = 7;
    auto environment = generator<GenEnvironmentUVW>();
    environment->mapping_type = 3;
    auto buffer = std::make_shared<BitmapBuffer>();
    buffer->file = u"C:/maps/Brick & Stone.png"; buffer->filter_type = 2; buffer->filter_blur = 0.5f; buffer->gamma = 2;
    auto bitmap = std::make_shared<BitmapTexture>();
    bitmap->uvwgen = channel; bitmap->bitmap = buffer; bitmap->tile = false;
    auto fresnel = std::make_shared<FresnelTexture>();
    fresnel->white_color = {0.1f, 0.2f, 0.3f}; fresnel->black_color = {0.4f, 0.5f, 0.6f}; fresnel->fresnel_ior = 2.5f;
    fresnel->refract_ior = 1.25f; fresnel->black_color_tex_mult = 0.1f; fresnel->white_color_tex_mult = 0.2f;
    fresnel->fresnel_ior_tex_mult = 0.3f; fresnel->refract_ior_tex_mult = 0.4f;
    fresnel->white_color_tex = constant(0.5f); fresnel->refract_ior_tex = constant(0);
    auto uvw = std::make_shared<UVWTexture>();
    uvw->uvwgen = environment;
    auto noise = std::make_shared<NoiseTexture>();
    noise->uvwgen = generator<GenPlanarWorldUVW>(); noise->color2_tex = constant(0.4f);
    noise->color1 = {0.1f, 0.2f, 0.3f}; noise->color2 = {0.4f, 0.5f, 0.6f}; noise->persistence = 0.5f;
    noise->amplitude_ratio = 0.6f; noise->frequency_ratio = 3; noise->frequency1 = 4; noise->amplitude1 = 5;
    noise->size = 6; noise->mix_ratio = 0.7f; noise->bias = 0.1f; noise->color1_tex_mult = 0.2f;
    noise->color2_tex_mult = 0.3f; noise->octaves = 6; noise->noiseType = 2; noise->inflection = 1;
    auto checker = std::make_shared<CheckerTexture>();
    checker->uvwgen = generator<GenObjectUVW>(); checker->white_color = constant(0.9f);
    checker->whiteMultiplier = 0.5f; checker->blackMultiplier = 0.25f; checker->tile_u = false;
    auto grid = std::make_shared<GridTexture>();
    grid->uvwgen = channel; grid->line_color = constant(0); grid->fill_color = constant(1);
    grid->lineMultiplier = 0.5f; grid->fillMultiplier = 0.75f; grid->u_width = 0.02f; grid->v_width = 0.03f;
    auto cloth = std::make_shared<ClothTexture>();
    cloth->uvwgen = channel; cloth->gap_color = {0.1f, 0.2f, 0.3f, 0.4f}; cloth->u_color = {0.5f, 0.6f, 0.7f, 0.8f};
    cloth->v_color = {0.9f, 0.8f, 0.7f, 0.6f}; cloth->u_width = 0.5f; cloth->v_width = 0.6f; cloth->tile = false;
    auto bulge = std::make_shared<BulgeTexture>();
    bulge->uvwgen = generator<GenObjectUVW>(); bulge->u_width = 0.3f; bulge->v_width = 0.4f;
    auto invert = std::make_shared<InvertTexture>();
    invert->texture = constant(0.6f); invert->invert_alpha = true;
    auto blend = std::make_shared<BlendTexture>();
    blend->color_a = constant(0.2f); blend->color_b = constant(0.8f);
    blend->color_a_mult = 0.5f; blend->color_b_mult = 2; blend->blend_amount = 0.1f;
    auto ramp = std::make_shared<RampTexture>();
    ramp->uvwgen = channel; ramp->colors = constant(0.3f);
    ramp->positions = 0.25f; ramp->u_wave = 0.1f; ramp->v_wave = 0.2f; ramp->type = 2; ramp->interpolation = 0;

    for (const TexturePtr& source : std::initializer_list<TexturePtr>{
             bitmap, fresnel, uvw, noise, checker, constant(0.5f), grid, cloth, bulge, invert, blend, ramp}) {
        SCOPED_TRACE(source->typeId());
        QuickArchive archive(1);
        ASSERT_TRUE(source->writeBinary(archive));
        const auto copy = createTexture(source->typeId());
        ASSERT_TRUE(copy->readBinary(archive));
        EXPECT_TRUE(copy->isEqual(source) && source->clone()->isEqual(source));
        EXPECT_FALSE(createTexture(source->typeId())->isEqual(source));  // the sample is no default object
    }
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
