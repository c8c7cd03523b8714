// The newest record of every texture, UVW generator and bitmap, built by hand from its table: the
// object writes exactly these bytes and reads them back into itself, so a field-order fault made
// alike in writing and reading shows. Every stored value differs from its neighbours and its default.
#include <gtest/gtest.h>

#include <memory>
#include <string>
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

namespace {

// Values counting up from `first`, and their bytes.
Matrix countingMatrix(float first)
{
    return {{Vector{first, first + 1, first + 2}, Vector{first + 3, first + 4, first + 5},
             Vector{first + 6, first + 7, first + 8}}};
}
Transform countingTransform(float first) { return {countingMatrix(first), {first + 9, first + 10, first + 11}}; }
ByteBuilder& counting(ByteBuilder& b, float first, int n)
{
    for (int i = 0; i < n; ++i) b.f32(first + static_cast<float>(i));
    return b;
}

TransformComponents countingComponents(float first)
{
    TransformComponents c;
    c.x_rotation = first, c.y_rotation = first + 1, c.z_rotation = first + 2;
    c.x_scale = first + 3, c.y_scale = first + 4, c.z_scale = first + 5;
    c.x_offset = first + 6, c.y_offset = first + 7, c.z_offset = first + 8;
    c.x_mirror = 1, c.y_mirror = 2, c.z_mirror = 3;
    return c;
}
ByteBuilder& componentBytes(ByteBuilder& b, float first) { return counting(b.tag(1), first, 9).i32(1).i32(2).i32(3); }

template <class Root>
struct Sample {
    std::shared_ptr<Root> object;
    ByteBuilder bytes;  // the record, without a type id in front
};

template <class Root>
void expectHandMadeBytes(const std::vector<Sample<Root>>& samples)
{
    for (const Sample<Root>& sample : samples) {
        SCOPED_TRACE(wideToNarrow(sample.object->pluginType()));
        EXPECT_EQ(bytesOf(*sample.object), sample.bytes.bytes);
        std::shared_ptr<Root> read, fresh;  // made by the family's factory, as a parent's record makes them
        makeFromTypeId(read, sample.object->typeId());
        makeFromTypeId(fresh, sample.object->typeId());
        ASSERT_TRUE(loadAll(*read, sample.bytes));
        EXPECT_TRUE(read->isEqual(sample.object));
        EXPECT_TRUE(sample.object->clone()->isEqual(sample.object));
        EXPECT_FALSE(fresh->isEqual(sample.object)) << "the sample is no default";
    }
}

template <class T>
std::shared_ptr<T> spaceGenerator(float first)
{
    auto uvw = std::make_shared<T>();
    uvw->uvwMatrix = countingTransform(first);
    uvw->uvwComponents = countingComponents(first + 12);
    return uvw;
}
ByteBuilder spaceGeneratorBytes(float first)
{
    ByteBuilder b;
    return componentBytes(counting(b.tag(1), first, 12), first + 12);
}

std::shared_ptr<GenChannelUVW> channelGenerator()
{
    auto uvw = std::make_shared<GenChannelUVW>();
    uvw->uvwMatrix = countingTransform(1);
    uvw->texMatrix = countingTransform(20);
    uvw->wrap_u = 41, uvw->wrap_v = 42, uvw->uvw_channel = 43;
    uvw->uvwComponents = countingComponents(50);
    uvw->texComponents = countingComponents(70);
    return uvw;
}
ByteBuilder channelGeneratorBytes()
{
    ByteBuilder b;
    counting(counting(b.tag(2), 1, 12), 20, 12).i32(41).i32(42).i32(43);
    return componentBytes(componentBytes(b, 50), 70);
}

std::shared_ptr<BitmapBuffer> buffer()
{
    auto bitmap = std::make_shared<BitmapBuffer>();
    bitmap->file = u"C:/maps/Brick \u00e9 Stone.png", bitmap->filter_type = 2, bitmap->filter_blur = 0.5f;
    bitmap->gamma = 2.25f;
    return bitmap;
}
ByteBuilder bufferBytes() { return ByteBuilder().tag(1).i32(2).f32(0.5f).f32(2.25f).str("C:/maps/Brick \xc3\xa9 Stone.png"); }

// A required child as it stands in a record: its type id, then its record.
ByteBuilder& planarChild(ByteBuilder& b, float first) { return b.u32(0).append(spaceGeneratorBytes(first)); }

}  // namespace

TEST(NewestRecords, GeneratorsAndTheBitmapAreTheirHandMadeBytes)
{
    ByteBuilder environmentBytes;
    counting(environmentBytes.tag(2), 1, 9).i32(3);
    componentBytes(environmentBytes, 20);
    auto environment = std::make_shared<GenEnvironmentUVW>();
    environment->uvwMatrix = countingMatrix(1), environment->mapping_type = 3;
    environment->uvwComponents = countingComponents(20);

    expectHandMadeBytes<BaseUVW>({
        {channelGenerator(), channelGeneratorBytes()},
        {environment, environmentBytes},
        {spaceGenerator<GenPlanarWorldUVW>(1), spaceGeneratorBytes(1)},
        {spaceGenerator<GenObjectUVW>(30), spaceGeneratorBytes(30)},
    });
    expectHandMadeBytes<BaseBitmap>({{buffer(), bufferBytes()}});
}

TEST(NewestRecords, TexturesAreTheirHandMadeBytes)
{
    std::vector<Sample<BaseTexture>> samples;
    auto add = [&samples](TexturePtr object, ByteBuilder bytes) { samples.push_back({std::move(object), std::move(bytes)}); };

    // Both type ids stand ahead of both records.
    auto bitmap = std::make_shared<BitmapTexture>();
    bitmap->uvwgen = channelGenerator(), bitmap->bitmap = buffer(), bitmap->tile = false;
    add(bitmap, ByteBuilder().tag(1).u32(4).u32(0).append(channelGeneratorBytes()).append(bufferBytes()).boolean(false));

    auto fresnel = std::make_shared<FresnelTexture>();
    fresnel->white_color = {0.1f, 0.2f, 0.3f}, fresnel->black_color = {0.4f, 0.5f, 0.6f};
    fresnel->fresnel_ior = 2.5f, fresnel->refract_ior = 1.25f, fresnel->black_color_tex_mult = 0.11f;
    fresnel->white_color_tex_mult = 0.12f, fresnel->fresnel_ior_tex_mult = 0.13f, fresnel->refract_ior_tex_mult = 0.14f;
    fresnel->white_color_tex = constant(0.5f), fresnel->refract_ior_tex = constant(0.7f);
    ByteBuilder fresnelBytes;
    fresnelBytes.tag(2).color(0.1f, 0.2f, 0.3f).color(0.4f, 0.5f, 0.6f).floats({2.5f, 1.25f, 0.11f, 0.12f, 0.13f, 0.14f});
    constantChild(fresnelBytes.boolean(false).boolean(true), 0.5f);
    constantChild(fresnelBytes.boolean(false).boolean(true), 0.7f);
    add(fresnel, fresnelBytes);

    auto uvw = std::make_shared<UVWTexture>();
    uvw->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1);
    ByteBuilder uvwBytes;
    add(uvw, planarChild(uvwBytes.tag(1), 1));

    auto noise = std::make_shared<NoiseTexture>();
    noise->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1), noise->color2_tex = constant(0.4f);
    noise->color1 = {0.1f, 0.2f, 0.3f}, noise->color2 = {0.4f, 0.5f, 0.6f};
    noise->persistence = 11, noise->amplitude_ratio = 12, noise->frequency_ratio = 13, noise->frequency1 = 14;
    noise->amplitude1 = 15, noise->size = 16, noise->mix_ratio = 17, noise->bias = 18, noise->color1_tex_mult = 19;
    noise->color2_tex_mult = 20, noise->octaves = 6, noise->noiseType = 2, noise->inflection = 1;
    ByteBuilder noiseBytes;
    planarChild(noiseBytes.tag(1), 1).boolean(false).boolean(true);
    constantChild(noiseBytes, 0.4f).color(0.1f, 0.2f, 0.3f).color(0.4f, 0.5f, 0.6f);
    counting(noiseBytes, 11, 10).i32(6).i32(2).i32(1);
    add(noise, noiseBytes);

    auto checker = std::make_shared<CheckerTexture>();
    checker->uvwgen = spaceGenerator<GenObjectUVW>(1), checker->white_color = constant(0.9f);
    checker->black_color = constant(0.2f), checker->tile_u = false, checker->whiteMultiplier = 0.5f;
    checker->blackMultiplier = 0.25f;
    ByteBuilder checkerBytes;
    checkerBytes.tag(2).u32(1).append(spaceGeneratorBytes(1));
    constantChild(constantChild(checkerBytes, 0.9f), 0.2f).boolean(false).boolean(true).floats({0.5f, 0.25f});
    add(checker, checkerBytes);

    add(constant(0.5f), ByteBuilder().tag(1).floats({0.5f, 0.5f, 0.5f, 1}));

    auto grid = std::make_shared<GridTexture>();
    grid->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1), grid->line_color = constant(0.1f);
    grid->fill_color = constant(0.2f), grid->lineMultiplier = 0.5f, grid->fillMultiplier = 0.75f;
    grid->u_width = 0.02f, grid->v_width = 0.03f;
    ByteBuilder gridBytes;
    constantChild(constantChild(planarChild(gridBytes.tag(2), 1), 0.1f), 0.2f).floats({0.5f, 0.75f, 0.02f, 0.03f});
    add(grid, gridBytes);

    auto cloth = std::make_shared<ClothTexture>();
    cloth->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1), cloth->gap_color = {0.1f, 0.2f, 0.3f, 0.4f};
    cloth->u_color = {0.5f, 0.6f, 0.7f, 0.8f}, cloth->v_color = {0.9f, 0.8f, 0.7f, 0.6f};
    cloth->u_width = 0.25f, cloth->v_width = 0.35f, cloth->tile = false;
    ByteBuilder clothBytes;
    planarChild(clothBytes.tag(2), 1).floats({0.1f, 0.2f, 0.3f, 0.4f, 0.5f, 0.6f, 0.7f, 0.8f, 0.9f, 0.8f, 0.7f, 0.6f});
    add(cloth, clothBytes.floats({0.25f, 0.35f}).boolean(false));

    auto bulge = std::make_shared<BulgeTexture>();
    bulge->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1), bulge->u_width = 0.3f, bulge->v_width = 0.4f;
    ByteBuilder bulgeBytes;
    add(bulge, planarChild(bulgeBytes.tag(1), 1).floats({0.3f, 0.4f}));

    auto invert = std::make_shared<InvertTexture>();
    invert->texture = constant(0.6f), invert->invert_alpha = true;
    ByteBuilder invertBytes;
    add(invert, constantChild(invertBytes.tag(1), 0.6f).boolean(true));

    // A multiplier stands inside its child's presence: an absent child stores none.
    auto blend = std::make_shared<BlendTexture>();
    blend->color_a = constant(0.2f), blend->color_a_mult = 0.5f, blend->blend_amount = 0.1f;
    ByteBuilder blendBytes;
    add(blend, constantChild(blendBytes.tag(2).boolean(true), 0.2f).f32(0.5f).boolean(false).f32(0.1f));

    auto ramp = std::make_shared<RampTexture>();
    ramp->uvwgen = spaceGenerator<GenPlanarWorldUVW>(1), ramp->colors = constant(0.3f), ramp->positions = 0.25f;
    ramp->u_wave = 0.1f, ramp->v_wave = 0.2f, ramp->type = 2, ramp->interpolation = 3;
    ByteBuilder rampBytes;
    constantChild(planarChild(rampBytes.tag(1), 1), 0.3f).floats({0.25f, 0.1f, 0.2f}).i32(2).i32(3);
    add(ramp, rampBytes);

    ASSERT_EQ(samples.size(), 12u) << "one sample per class but the sky";
    expectHandMadeBytes(samples);
}
