#include "wrapper_examples.h"

#include "example_files.h"

#include <fstream>
#include <initializer_list>
#include <memory>
#include <string>

#include "archive/quick_archive.h"
#include "materials/diffuse_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/material_2sided.h"
#include "materials/material_alpha_contribution.h"
#include "materials/material_angle_blend.h"
#include "materials/material_bump.h"
#include "materials/material_displaced.h"
#include "materials/material_instance.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_linked.h"
#include "materials/material_multi.h"
#include "materials/material_object_exclusion.h"
#include "materials/material_override_environment.h"
#include "materials/material_reference.h"
#include "materials/material_skp2sided.h"
#include "materials/material_toon.h"
#include "materials/mirror_brdf.h"
#include "materials/scene_materials.h"
#include "materials/tal_mat_file.h"
#include "record_bytes.h"
#include "textures/acolor_texture.h"
#include "textures/checker_texture.h"
#include "textures/noise_texture.h"
#include "textures/channel_uvw.h"

namespace MakeExamples {

namespace {

using namespace TalvexCore;

template <class T>
std::shared_ptr<T> named(const std::u16string& name)
{
    auto object = std::make_shared<T>();
    object->name = name;
    return object;
}

// A layered material of a diffuse layer of a colour and, when given, a glossy coat.
std::shared_ptr<MaterialLayeredBRDF> paint(const std::u16string& name, Color color, bool coat = false)
{
    auto material = named<MaterialLayeredBRDF>(name);
    auto base = named<Diffuse_BRDF>(u"Base");
    base->color = color;
    material->brdfs = {base};
    if (coat) {
        auto gloss = named<Phong_BRDF>(u"Coat");
        gloss->reflectionGlossiness = 0.9f;
        material->brdfs.push_back(gloss);
    }
    return material;
}

TexturePtr constant(float r, float g, float b)
{
    auto texture = std::make_shared<AColorTexture>();
    texture->texture = {r, g, b, 1};
    return texture;
}

TexturePtr noise(float size)
{
    auto texture = std::make_shared<NoiseTexture>();
    texture->uvwgen = std::make_shared<GenChannelUVW>();
    texture->size = size;
    return texture;
}

// Five wrappers around a coated paint: bump, displacement, alpha, exclusion, environment override.
MaterialPtr weatheredHull()
{
    auto env = named<MaterialOverrideEnvironment>(u"Hull_Env");
    env->base_mtl = paint(u"Hull_Paint", {0.2f, 0.25f, 0.3f}, true);
    env->reflect_tex = constant(0.6f, 0.7f, 0.9f);
    env->gi_color = {0.1f, 0.1f, 0.12f};
    env->override_reflect = true;
    auto exclusion = named<MaterialObjectExclusion>(u"Hull_Exclusion");
    exclusion->base_mtl = env;
    exclusion->mode = 1;
    exclusion->objects = {u"Waterline", u"Deck Rail"};
    auto alpha = named<MaterialAlphaContribution>(u"Hull_Alpha");
    alpha->base_mtl = exclusion;
    alpha->alpha = 0.8f;
    auto displaced = named<MaterialDisplaced>(u"Hull_Displaced");
    displaced->base_mtl = alpha;
    displaced->displace_tex = noise(0.5f);
    displaced->displace_shift = -0.1f;
    displaced->displace_max_subdivs = 64;
    auto bump = named<MaterialBump>(u"Weathered_Hull");
    bump->base_mtl = displaced;
    bump->bump_tex = noise(0.05f);
    bump->bump_tex_mult = 0.3f;
    return bump;
}

// Two bumps and a displacement around a two-sided material: the outer bump and the front side count.
MaterialPtr paperLantern()
{
    auto sided = named<Material2Sided>(u"Lantern_Sides");
    sided->front = paint(u"Lantern_Outside", {0.95f, 0.9f, 0.7f});
    sided->back = paint(u"Lantern_Inside", {1, 0.6f, 0.2f});
    sided->translucency = {0.5f, 0.4f, 0.2f};
    auto inner = named<MaterialBump>(u"Lantern_Fibres");
    inner->base_mtl = sided;
    inner->bump_tex_mult = 4;
    auto displaced = named<MaterialDisplaced>(u"Lantern_Ribs");
    displaced->base_mtl = inner;
    auto outer = named<MaterialBump>(u"Paper_Lantern");
    outer->base_mtl = displaced;
    outer->bump_tex = std::make_shared<CheckerTexture>();
    return outer;
}

}  // namespace

bool writeWrapperChainsFile(const std::filesystem::path& path)
{
    return saveMaterials(path, {weatheredHull(), paperLantern()});
}

bool writeReferencesFile(const std::filesystem::path& path)
{
    // A reference is saved with a copy of its target only while the scene holds the target.
    auto brass = paint(u"Brass", {0.8f, 0.6f, 0.2f}, true);
    brass->uuid = u"6f1c2a7e-3b1d-4c55-9a0e-1d2f3a4b5c6d";
    sceneMaterials()->addMaterial(brass);
    auto toBrass = named<MaterialReference>(u"Brass_Reference");
    toBrass->target_uuid = brass->uuid;
    auto toNothing = named<MaterialReference>(u"Lost_Reference");
    toNothing->target_uuid = u"00000000-0000-4000-8000-000000000000";
    auto wrapped = named<MaterialBump>(u"Bumped_Brass");
    wrapped->base_mtl = sceneMaterials()->makeReference(u"Brass");
    wrapped->bump_tex_mult = 0.2f;

    auto multi = named<MaterialMulti>(u"Multi_Tiles");
    multi->materials = {paint(u"Tile_Red", {0.7f, 0.1f, 0.1f}), paint(u"Tile_White", {0.9f, 0.9f, 0.9f})};
    auto instance = named<MaterialInstance>(u"Tile_Instance");
    instance->instance_target = multi;
    auto linked = named<MaterialLinked>(u"Linked_Walnut");
    linked->linked_mtl = paint(u"Walnut", {0.35f, 0.2f, 0.1f});
    linked->link_id.kind = 0;
    linked->link_id.setText(u"library/woods/walnut");

    const bool ok = saveMaterials(path, {toBrass, toNothing, wrapped, multi, instance, linked});
    sceneMaterials()->removeMaterial(u"Brass");
    return ok;
}

bool writeOwnLayoutsFile(const std::filesystem::path& path)
{
    auto blend = named<MaterialAngleBlend>(u"Sheen_Blend");
    blend->mtl_one = paint(u"Sheen_Face", {0.3f, 0.1f, 0.4f});
    blend->mtl_two = paint(u"Sheen_Edge", {0.8f, 0.7f, 0.9f}, true);
    blend->start_angle = 60;

    auto halfBlend = named<MaterialAngleBlend>(u"Half_Blend");
    halfBlend->mtl_one = paint(u"Half_Face", {0.5f, 0.5f, 0.5f});

    auto leaf = named<Material2Sided>(u"Leaf");
    leaf->front = paint(u"Leaf_Top", {0.2f, 0.5f, 0.1f});
    auto underside = named<MaterialBump>(u"Leaf_Underside");
    underside->base_mtl = paint(u"Leaf_Bottom", {0.4f, 0.6f, 0.3f});
    leaf->back = underside;
    leaf->translucency = {0.3f, 0.6f, 0.1f};
    leaf->transparency_tex = constant(0.1f, 0.1f, 0.1f);
    leaf->force_1sided = true;

    auto sign = named<MaterialSkp2Sided>(u"Sign");
    sign->front = paint(u"Sign_Front", {0.9f, 0.1f, 0.1f});
    sign->back = paint(u"Sign_Back", {0.6f, 0.6f, 0.6f});

    auto toon = named<MaterialToon>(u"Ink_Outline");
    toon->base_mtl = paint(u"Ink_Fill", {1, 0.85f, 0.3f});
    toon->color = {0.05f, 0.05f, 0.1f};
    toon->width = 2.5f;
    toon->width_tex = noise(0.2f);
    toon->opacity_tex = constant(1, 1, 1);
    toon->line_units = 0;
    toon->do_silhouette_mult = true;

    auto studio = named<MaterialOverrideEnvironment>(u"Studio_Env");
    studio->base_mtl = paint(u"Studio_Chrome", {0.9f, 0.9f, 0.9f}, true);
    studio->gi_tex = constant(0.2f, 0.2f, 0.25f);
    studio->bg_tex = constant(0, 0, 0);
    studio->bg_tex_mult = 0.5f;

    return saveMaterials(path, {blend, halfBlend, leaf, sign, toon, studio});
}

namespace {

RecordBytes base(const std::string& name)
{
    RecordBytes r;
    r.tag(2).text(name).text("");
    return r;
}

// A layered material with one diffuse layer of the newest records, as a bare material.
RecordBytes layeredEntry(const std::string& name, float red)
{
    RecordBytes r;
    r.u32(1).tag(4).u32(1).u32(2);
    r.tag(4).floats({red, 0.5f, 0.5f}).floats({0, 0, 0}).f32(1).f32(1).absent().absent();
    r.tag(4).text("Base").u8(1).u8(0).u8(0).u8(0);
    r.u32(1).u32(0).u32(1).u32(1).append(base(name)).u32(0);
    return r;
}

RecordBytes layeredSlot(const std::string& name, float red)
{
    RecordBytes r;
    r.u8(1).append(layeredEntry(name, red));
    return r;
}

}  // namespace

void writeOldWrapperRecordsFile(const std::filesystem::path& path)
{
    RecordBytes stream;
    // The oldest bump: a bare name, a file path for its texture, then the multiplier.
    stream.u32(3).tag(1).text("Old_Bump").text("maps\\dents.png").f32(0.4f).append(layeredEntry("Old_Bump_Core", 0.2f));
    // The second bump: a bare name, the multiplier, a texture slot.
    stream.u32(3).tag(2).text("Old_Bump_2").f32(0.6f).u8(1).u32(5).tag(1).floats({0.5f, 0.5f, 0.5f, 1});
    stream.append(layeredEntry("Old_Bump_2_Core", 0.3f));
    // The first two-sided record ends behind force_1sided, with no name of its own stored.
    stream.u32(5).tag(1).append(layeredSlot("Old_Front", 0.4f)).append(layeredSlot("Old_Back", 0.5f)).absent();
    stream.floats({0.2f, 0.2f, 0.2f}).f32(1).u8(1);
    // The first exclusion record: mode, material and objects, no base record.
    stream.u32(10).tag(1).u32(1).append(layeredSlot("Old_Excluded", 0.6f)).u32(1).text("Old_Chair");
    // The first toon record ends behind its base record.
    stream.u32(14).tag(1).append(layeredSlot("Old_Toon_Fill", 0.7f)).f32(2).f32(1).absent().f32(1).f32(1).absent();
    stream.f32(0).f32(1).absent().floats({0, 0, 0}).f32(1).absent().floats({0.9f, 0.02f, 0.7f, 1}).u8(1).u8(0);
    stream.append(base("Old_Toon"));
    // The first displaced record ends behind its texture multiplier.
    stream.u32(9).tag(1).append(base("Old_Displaced")).append(layeredSlot("Old_Displaced_Core", 0.8f)).absent();
    stream.f32(2);
    // The first multi-material ends in a bare name; the first reference holds no copy.
    stream.u32(2).tag(1).u32(1).append(layeredEntry("Old_Tile", 0.9f)).text("Old_Multi");
    stream.u32(13).tag(1).append(base("Old_Reference")).text("9a1b2c3d-0000-4000-8000-000000000001");

    QuickArchive archive(stream.bytes.data(), stream.bytes.size());
    std::ofstream out(path, std::ios::binary);
    const uint32_t header[2] = {0x30000, 8};
    out.write(reinterpret_cast<const char*>(header), sizeof header);
    archive.writeToStream(out);
}

}  // namespace MakeExamples
