// The fresnel texture: its two record versions, its complemented colours and its crossed slot urls.
#include <gtest/gtest.h>

#include <bit>

#include "materials/record_io.h"
#include "texture_test_support.h"
#include "textures/acolor_texture.h"
#include "textures/fresnel_texture.h"

using namespace TalvexCore;
using TalvexTest::ByteBuilder;

namespace {

std::shared_ptr<AColorTexture> constant(float r, float g, float b, float a)
{
    return std::make_shared<AColorTexture>(AColor{r, g, b, a});
}

}  // namespace

TEST(FresnelTexture, DefaultsHoldTheirExactBits)
{
    FresnelTexture f;
    EXPECT_EQ(std::bit_cast<uint32_t>(f.black_color.r), 0x3E828283u);
    EXPECT_EQ(std::bit_cast<uint32_t>(f.black_color.b), 0x3E828283u);
    EXPECT_EQ(std::bit_cast<uint32_t>(f.fresnel_ior), 0x3FC66666u);
    EXPECT_EQ(f.white_color, (Color{1, 1, 1}));
}

TEST(FresnelTexture, NewestRecordWithChildrenReadsBackEqual)
{
    FresnelTexture f;
    f.white_color = {0.1f, 0.2f, 0.3f};
    f.black_color = {0.4f, 0.5f, 0.6f};
    f.fresnel_ior = 2.5f;
    f.refract_ior = 1.25f;
    f.black_color_tex_mult = 0.1f;
    f.white_color_tex_mult = 0.2f;
    f.fresnel_ior_tex_mult = 0.3f;
    f.refract_ior_tex_mult = 0.4f;
    f.white_color_tex = constant(0.5f, 0.5f, 0.5f, 1);
    f.refract_ior_tex = constant(0, 1, 0, 1);
    const auto copy = TalvexTest::writtenAndRead(f);
    ASSERT_TRUE(copy);
    EXPECT_TRUE(copy->isEqual(std::make_shared<FresnelTexture>(f)));
    EXPECT_FALSE(copy->black_color_tex);
    EXPECT_TRUE(copy->white_color_tex);
}

TEST(FresnelTexture, Version1KeepsMultipliersAndHasNoChildren)
{
    ByteBuilder bytes;
    bytes.tag(1).color(0.1f, 0.2f, 0.3f).color(0.7f, 0.8f, 0.9f).f32(1.8f).f32(1.3f)
        .f32(7).f32(7);  // bytes of whatever follows the record, not part of it
    const auto f = TalvexTest::readFrom<FresnelTexture>(bytes);
    ASSERT_TRUE(f);
    EXPECT_EQ(f->white_color, (Color{0.1f, 0.2f, 0.3f}));
    EXPECT_EQ(f->black_color, (Color{0.7f, 0.8f, 0.9f}));
    EXPECT_EQ(f->fresnel_ior, 1.8f);
    EXPECT_EQ(f->refract_ior, 1.3f);
    EXPECT_EQ(f->black_color_tex_mult, 1.0f);
    EXPECT_EQ(f->refract_ior_tex_mult, 1.0f);
    EXPECT_FALSE(f->black_color_tex || f->white_color_tex || f->fresnel_ior_tex || f->refract_ior_tex);
}

TEST(FresnelTexture, RefusesUnknownTagsAndUnknownChildren)
{
    ByteBuilder lowHalf;
    lowHalf.u32(0x20001);
    EXPECT_FALSE(TalvexTest::readFrom<FresnelTexture>(lowHalf));
    ByteBuilder version3;
    version3.tag(3);
    EXPECT_FALSE(TalvexTest::readFrom<FresnelTexture>(version3));

    // A present child whose id names no texture fails the record.
    ByteBuilder unknownChild;
    unknownChild.tag(2).color(1, 1, 1).color(0, 0, 0).floats({1.5f, 1.5f, 1, 1, 1, 1}).boolean(true).u32(13);
    EXPECT_FALSE(TalvexTest::readFrom<FresnelTexture>(unknownChild));
}

TEST(FresnelTexture, XmlAtDefaultsShowsComplementsAndEmptyChildren)
{
    EXPECT_EQ(TalvexTest::xmlOf(FresnelTexture(), u"/glass/reflect_tex"), R"(  <Asset layout="" renderer="nuva" type="texture" url="/glass/reflect_tex/TexFresnel" >
    <plugin>
      <nuvaplugin name="TexFresnel" type="texture">
        <parameters>
          <parameter type="color" name="white_color" handler="default" listType="none" label="white_color">
            <value>
              <r>0</r>
              <g>0</g>
              <b>0</b>
            </value>
          </parameter>
          <parameter type="color" name="black_color" handler="default" listType="none" label="black_color">
            <value>
              <r>0.745098</r>
              <g>0.745098</g>
              <b>0.745098</b>
            </value>
          </parameter>
          <parameter type="float" name="fresnel_ior" handler="default" listType="none" label="fresnel_ior">
            <value>1.55</value>
          </parameter>
          <parameter type="float" name="refract_ior" handler="default" listType="none" label="refract_ior">
            <value>1.55</value>
          </parameter>
          <parameter type="float" name="black_color_tex_mult" handler="default" listType="none" label="black_color_tex_mult">
            <value>1</value>
          </parameter>
          <parameter type="float" name="white_color_tex_mult" handler="default" listType="none" label="white_color_tex_mult">
            <value>1</value>
          </parameter>
          <parameter type="float" name="fresnel_ior_tex_mult" handler="default" listType="none" label="fresnel_ior_tex_mult">
            <value>1</value>
          </parameter>
          <parameter type="float" name="refract_ior_tex_mult" handler="default" listType="none" label="refract_ior_tex_mult">
            <value>1</value>
          </parameter>
          <parameter type="plugin" name="black_color_tex" handler="default" listType="none" label="black_color_tex">
          </parameter>
          <parameter type="plugin" name="white_color_tex" handler="default" listType="none" label="white_color_tex">
          </parameter>
          <parameter type="plugin" name="fresnel_ior_tex" handler="default" listType="none" label="fresnel_ior_tex">
          </parameter>
          <parameter type="plugin" name="refract_ior_tex" handler="default" listType="none" label="refract_ior_tex">
          </parameter>
        </parameters>
      </nuvaplugin>
    </plugin>
  </Asset>
)");
}

TEST(FresnelTexture, ComplementHasNoUpperClamp)
{
    FresnelTexture f;
    f.white_color = {-0.5f, 0.25f, 3.0f};
    const std::string xml = TalvexTest::xmlOf(f);
    EXPECT_NE(xml.find("<r>1.5</r>\n              <g>0.75</g>\n              <b>0</b>"), std::string::npos);
}

TEST(FresnelTexture, FirstSlotLiesUnderReflectionAndSecondUnderRefraction)
{
    FresnelTexture f;
    f.black_color_tex = constant(1, 0, 0, 1);
    f.white_color_tex = constant(0, 0, 1, 1);
    const std::string xml = TalvexTest::xmlOf(f, u"/m");
    // The children's assets stand first, in slot order.
    const auto reflection = xml.find(R"(url="/m/TexFresnel/reflection_tex/TexAColor")");
    const auto refraction = xml.find(R"(url="/m/TexFresnel/refraction_tex/TexAColor")");
    const auto parent = xml.find(R"(url="/m/TexFresnel" )");
    EXPECT_LT(reflection, refraction);
    EXPECT_LT(refraction, parent);
    EXPECT_NE(parent, std::string::npos);
    EXPECT_NE(xml.find(R"(name="black_color_tex" handler="default" listType="none" label="black_color_tex">
            <value>/m/TexFresnel/reflection_tex/TexAColor</value>)"),
              std::string::npos);
    EXPECT_NE(xml.find(R"(name="white_color_tex" handler="default" listType="none" label="white_color_tex">
            <value>/m/TexFresnel/refraction_tex/TexAColor</value>)"),
              std::string::npos);
}
