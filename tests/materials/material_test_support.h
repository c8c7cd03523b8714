// Helpers of the material tests: layer and material records built by hand, materials loaded from
// them through the factories, XML text, the textures in a layer's slots, and a clean scene set.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "materials/base_brdf.h"
#include "materials/base_material.h"
#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/light_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_layouts.h"
#include "materials/mirror_brdf.h"
#include "materials/scene_materials.h"
#include "support/byte_builder.h"
#include "support/xml_of.h"
#include "textures/acolor_texture.h"
#include "textures/bitmap_buffer.h"
#include "textures/bitmap_texture.h"
#include "textures/fresnel_texture.h"
#include "xml/asset_xml_writer.h"

namespace TalvexTest {

using namespace TalvexCore;

// New materials and clones take their names from the process-wide set, so each test begins with it
// empty, and with a set of its own.
class SceneCleared : public ::testing::Test {
protected:
    void SetUp() override { sceneMaterials()->clear(); }
    void TearDown() override { sceneMaterials()->clear(); }
    SceneMaterials scene;
};

// The base record as the newest version writes it, its flags off their defaults.
inline ByteBuilder baseRecord(const std::string& name)
{
    return ByteBuilder().tag(4).str(name).boolean(false).boolean(true).boolean(true);
}

// A present child slot holding a constant colour texture.
inline ByteBuilder child(float r, float g, float b)
{
    return ByteBuilder().boolean(true).u32(5).tag(1).floats({r, g, b, 1});
}

// The newest record of each class, every value off its default and a texture in every slot.
inline ByteBuilder newestRecord(uint32_t id)
{
    ByteBuilder b;
    switch (id) {
    case 1:
        return b.tag(6).color(0.9f, 0.95f, 1).color(0.5f, 0.6f, 0.7f).floats({1.33f, 7.25f, 0.02f, 0.5f, 0.8f})
            .u32(42).u32(16).u32(1).u32(2).floats({3, 0.5f, 0.75f}).u32(3).floats({20, 0.125f, -0.5f, 1.5f})
            .color(0.1f, 0.2f, 0.3f).append(child(1, 0, 0)).append(child(0, 1, 0)).append(child(0, 0, 1))
            .append(child(1, 1, 0)).color(0.2f, 0.3f, 0.4f).f32(0.25f).append(child(0, 1, 1)).append(baseRecord("Ice"));
    case 2:
        return b.tag(4).color(0.8f, 0.1f, 0.1f).color(0.25f, 0.5f, 0.75f).floats({0.75f, 2}).append(child(1, 0, 0))
            .append(child(0, 1, 0)).append(baseRecord("Red \xc3\xa9mail")).boolean(true);
    case 4:
    case 8:
        return b.tag(6).color(0.6f, 0.5f, 0.4f).color(0.75f, 1.25f, 0.5f).floats({0.6f, 0.7f, 0.02f}).u32(24).u32(2)
            .u32(11).floats({2, 0.25f, 0.5f, 0.125f}).append(child(1, 0, 0)).append(child(0, 1, 0))
            .append(child(0, 0, 1)).append(child(1, 1, 0)).floats({0.3f, 45}).append(baseRecord("Lacquer"));
    case 16:
        return b.tag(5).color(0.7f, 0.8f, 0.9f).color(1.5f, 0.25f, 1).floats({0.5f, 0.05f}).u32(9).f32(2)
            .append(child(1, 0, 0)).append(child(0, 1, 0)).append(baseRecord("Chrome"));
    default:
        return b.tag(5).color(1, 0.9f, 0.5f).color(0.1f, 0.2f, 0.3f).floats({12, 3, 0.25f, 0.5f}).append(child(1, 0, 0))
            .append(child(0, 1, 0)).append(baseRecord("Glow")).u32(7);
    }
}

// A layer as a material's record holds it: its type id, then its newest record.
inline ByteBuilder layerEntry(uint32_t id) { return ByteBuilder().u32(id).append(newestRecord(id)); }

// The child slots of a layer, in the order of its record.
inline std::vector<TexturePtr> childrenOf(const BRDFPtr& l)
{
    if (auto g = std::dynamic_pointer_cast<Glass_BRDF>(l))
        return {g->color_tex, g->glossiness_tex, g->ior_texture, g->translucency_tex, g->transparency_tex};
    if (auto d = std::dynamic_pointer_cast<Diffuse_BRDF>(l)) return {d->color_tex, d->transparency_tex};
    if (auto p = std::dynamic_pointer_cast<Glossy_BRDF>(l))
        return {p->color_tex, p->hilightGlossiness_tex, p->reflectionGlossiness_tex, p->transparency_tex};
    if (auto m = std::dynamic_pointer_cast<Mirror_BRDF>(l)) return {m->transparency_tex, m->color_tex};
    auto light = std::dynamic_pointer_cast<Light_BRDF>(l);
    return {light->color_tex, light->transparency_tex};
}

// Loads bytes into a new object of a class; the result of readBinary goes to `ok`.
template <class T>
std::shared_ptr<T> loaded(const ByteBuilder& bytes, bool& ok)
{
    auto object = std::make_shared<T>();
    ok = load(*object, bytes);
    return object;
}

// Loads bytes into a new layer or material of the type id, which must take them.
template <class T>
std::shared_ptr<T> loadAs(uint32_t id, const ByteBuilder& bytes)
{
    std::shared_ptr<T> object;
    if constexpr (std::is_base_of_v<BaseMaterial, T>) object = std::dynamic_pointer_cast<T>(createMaterial(id));
    else object = std::dynamic_pointer_cast<T>(createBRDF(id));
    EXPECT_TRUE(load(*object, bytes));
    return object;
}

// Positions of the pieces in the text; each must follow the one before it.
inline void expectInOrder(const std::string& text, std::initializer_list<std::string> pieces)
{
    std::size_t at = 0;
    for (const std::string& piece : pieces) {
        const auto next = text.find(piece, at);
        EXPECT_NE(next, std::string::npos) << "missing or out of order: " << piece;
        if (next == std::string::npos) return;
        at = next + piece.size();
    }
}

// The assets a material file shows for the material.
inline std::string assetsOf(const MaterialPtr& material)
{
    return textOf([&](AssetXmlWriter& writer) { writeMaterialAssets(writer, material); });
}

// What an old record's file name became, the constant colour or the Fresnel index in a slot; "-", -1
// when the slot holds no such texture.
inline std::string bitmapFile(const TexturePtr& texture)
{
    auto bitmap = std::dynamic_pointer_cast<BitmapTexture>(texture);
    auto buffer = bitmap ? std::dynamic_pointer_cast<BitmapBuffer>(bitmap->bitmap) : nullptr;
    return buffer ? wideToNarrow(buffer->file) : "-";
}

inline AColor acolorOf(const TexturePtr& texture)
{
    auto constant = std::dynamic_pointer_cast<AColorTexture>(texture);
    return constant ? constant->texture : AColor{-1, -1, -1, -1};
}

inline float fresnelIor(const TexturePtr& texture)
{
    auto fresnel = std::dynamic_pointer_cast<FresnelTexture>(texture);
    return fresnel ? fresnel->fresnel_ior : -1;
}

// The newest base material record.
inline ByteBuilder materialBase(const std::string& name, const std::string& uuid = "")
{
    return ByteBuilder().tag(2).str(name).str(uuid);
}

// A layered material with no layers, as a bare material: its type id, then its newest record.
inline ByteBuilder layeredEntry(const std::string& name)
{
    return ByteBuilder().u32(1).tag(4).u32(0).u32(1).u32(0).u32(1).u32(1).append(materialBase(name)).u32(0);
}

// A present material slot holding a layered material with no layers.
inline ByteBuilder layeredSlot(const std::string& name) { return ByteBuilder().boolean(true).append(layeredEntry(name)); }

// A layered material with one diffuse layer of the given name.
inline std::shared_ptr<MaterialLayeredBRDF> layeredWith(const std::u16string& name, const std::u16string& layer)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = name;
    material->brdfs = {createBRDF(2)};
    material->brdfs[0]->name = layer;
    return material;
}

}  // namespace TalvexTest
