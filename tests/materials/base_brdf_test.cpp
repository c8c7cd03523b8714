// The BRDF layers as a family: base record, refusals, the newest record of every class, clones,
// equality, and the oddities of their XML.
#include <gtest/gtest.h>

#include <algorithm>

#include "materials/material_test_support.h"

namespace TalvexTest {
namespace {

BRDFPtr createdFrom(uint32_t id) { return loadAs<Base_BRDF>(id, newestRecord(id)); }

// The newest record of every class read from hand-made bytes writes those very bytes again. A clone
// writes them too, equals the source, and shares none of its children. Every child and every value
// word ahead of the first child take part in equality, the auxiliary values too. A first child of a
// texture type that the factory does not know fails the load.
TEST(BRDFRecord, NewestRecordOfEveryClassReadsWritesAndClones)
{
    for (uint32_t id : {1u, 2u, 4u, 8u, 16u, 32u}) {
        SCOPED_TRACE(id);
        const ByteBuilder bytes = newestRecord(id);
        const BRDFPtr layer = createdFrom(id);
        EXPECT_EQ(bytesOf(*layer), bytes.bytes);
        const BRDFPtr copy = layer->clone();
        EXPECT_EQ(bytesOf(*copy), bytes.bytes);
        EXPECT_TRUE(copy->isEqual(layer));
        EXPECT_TRUE(layer->isEqual(copy));
        const auto mine = childrenOf(layer), theirs = childrenOf(copy);
        for (std::size_t i = 0; i < mine.size(); ++i) {
            ASSERT_TRUE(mine[i]) << i;
            ASSERT_TRUE(mine[i] != theirs[i]) << i;
            std::static_pointer_cast<AColorTexture>(mine[i])->texture.r += 1;
            EXPECT_FALSE(copy->isEqual(layer)) << "every child takes part in equality: " << i;
            std::static_pointer_cast<AColorTexture>(mine[i])->texture.r -= 1;
        }
        const uint8_t firstChild[] = {1, 5, 0, 0, 0, 0, 0, 1, 0};
        const auto at = std::search(bytes.bytes.begin(), bytes.bytes.end(), firstChild, firstChild + 9);
        const auto first = static_cast<std::size_t>(at - bytes.bytes.begin());
        ASSERT_LT(first, bytes.bytes.size());
        for (std::size_t word = 4; word < first; word += 4) {
            ByteBuilder changed = bytes;
            changed.bytes[word] ^= 1;
            EXPECT_FALSE(loadAs<Base_BRDF>(id, changed)->isEqual(layer)) << "word at " << word;
        }
        ByteBuilder unknown = bytes;
        unknown.bytes[first + 1] = 13;
        QuickArchive in = unknown.archive();
        EXPECT_FALSE(createBRDF(id)->readBinary(in));
    }
}

// The name and the layer flags take no part, the last flag of the diffuse record does; so does the
// type id, and the twins of equal values differ.
TEST(BRDFRecord, EqualityComparesValuesAndTheClass)
{
    auto a = createBRDF(2), b = createBRDF(2);
    b->name = u"Other", b->layer_flag_1 = false;
    EXPECT_TRUE(a->isEqual(b));
    std::static_pointer_cast<Diffuse_BRDF>(b)->use_color_tex_alpha_as_transparency = true;
    EXPECT_FALSE(a->isEqual(b));
    EXPECT_FALSE(a->isEqual(nullptr) || a->isEqual(createBRDF(32)) || createBRDF(8)->isEqual(createBRDF(4)));
}

// A version 3 diffuse record ends with the base record, so each base version can be read through
// it. Every stored flag is the opposite of its default, so what a version lacks shows. Every
// version strips the name of its control characters, and of nothing else.
TEST(BRDFBaseRecord, EachVersionAddsOneFlagAndEveryVersionStripsTheName)
{
    for (uint32_t version : {1u, 2u, 3u, 4u}) {
        SCOPED_TRACE(version);
        ByteBuilder b;
        b.tag(3).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false).boolean(false);
        b.tag(version).str("\tRed\n Lay\x7f" "er\xc2\x85\x1f \xc3\xa9\xe2\x82\xac\r");  // U+0085 among the controls
        for (uint32_t flag = 1; flag < version; ++flag) b.boolean(flag != 1);
        auto layer = loadAs<Diffuse_BRDF>(2, b);
        EXPECT_EQ(layer->name, u"Red Layer \u00e9\u20AC");
        EXPECT_EQ(std::tuple(layer->layer_flag_1, layer->layer_flag_2, layer->layer_flag_3),
                  std::tuple(version < 2, version >= 3, version >= 4));
    }
}

// Behind a refused base record the diffuse layer still reads its last flag; the light layer stops.
TEST(BRDFBaseRecord, RefusedBaseRecordFailsTheLoad)
{
    bool ok = true;
    ByteBuilder diffuse = ByteBuilder().tag(4).color(1, 1, 1).color(0, 0, 0).floats({1, 1}).boolean(false);
    diffuse.boolean(false).u32(0x50000).boolean(true);
    EXPECT_TRUE(loaded<Diffuse_BRDF>(diffuse, ok)->use_color_tex_alpha_as_transparency && !ok);
    ByteBuilder light = ByteBuilder().tag(5).color(1, 1, 1).color(0, 0, 0).floats({1, 1, 1, 1}).boolean(false);
    EXPECT_TRUE(loaded<Light_BRDF>(light.boolean(false).u32(0x40001).u32(0), ok)->doubleSided == 1 && !ok);
}

// A refused tag leaves every class at its defaults, also a layer that held other values.
TEST(BRDFRecord, RefusedTagLeavesTheLayerAtItsDefaults)
{
    const std::pair<uint32_t, uint32_t> firstUnknownVersion[] = {{1, 7}, {2, 5}, {4, 7}, {8, 7}, {16, 6}, {32, 6}};
    for (const auto& [id, unknown] : firstUnknownVersion) {
        for (uint32_t tag : {0x40001u, 0u, unknown << 16}) {
            SCOPED_TRACE(testing::Message() << id << " tag " << tag);
            BRDFPtr layer = createBRDF(id);
            layer->name = u"Earlier", layer->layer_flag_2 = true;
            QuickArchive in = ByteBuilder().u32(tag).u32(0).archive();
            EXPECT_FALSE(layer->readBinary(in));
            EXPECT_EQ(bytesOf(*layer), bytesOf(*createBRDF(id)));
            EXPECT_EQ(in.readPosition(), 4u) << "nothing is read beyond the tag";
        }
    }
}

// The example library's documents show the layers' XML; these are the values they do not reach: a
// doubleSided of 7 is true, and the mirror's transparency, the complement of its filter colour, is
// clamped at 0.
TEST(BRDFXml, ValuesTheExamplesDoNotReach)
{
    EXPECT_TRUE(has(xmlOf(*createdFrom(32), u"/M"), "label=\"doubleSided\">\n            <value>1</value>"));
    EXPECT_TRUE(has(xmlOf(*createdFrom(16), u""),
                    "label=\"transparency\">\n            <value>\n              <r>0</r>\n"
                    "              <g>0.75</g>\n              <b>0</b>\n"));
}

}  // namespace
}  // namespace TalvexTest
