// make_examples: writes the example library in examples/ through the model's own writers.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <memory>
#include <string>

#include "example_files.h"
#include "legacy_examples.h"
#include "options_examples.h"
#include "sky_examples.h"
#include "wrapper_examples.h"
#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/light_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_single_brdf.h"
#include "materials/mirror_brdf.h"
#include "materials/tal_mat_file.h"
#include "textures/acolor_texture.h"
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

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

std::shared_ptr<MaterialLayeredBRDF> layered(const std::u16string& name, std::initializer_list<BRDFPtr> layers)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = name;
    material->brdfs.assign(layers.begin(), layers.end());
    return material;
}

template <class T>
std::shared_ptr<T> named(const std::u16string& name)
{
    auto brdf = std::make_shared<T>();
    brdf->name = name;
    return brdf;
}

std::shared_ptr<AColorTexture> constant(float r, float g, float b, float a = 1)
{
    auto texture = std::make_shared<AColorTexture>();
    texture->texture = {r, g, b, a};
    return texture;
}

// A bitmap of a file, its coordinates scaled and turned as a user would set them.
TexturePtr bitmap(const std::u16string& file, float scale, float rotation, float gamma = 2.2f)
{
    auto texture = std::dynamic_pointer_cast<BitmapTexture>(textureFromFile(file));
    auto uvw = std::dynamic_pointer_cast<GenChannelUVW>(texture->uvwgen);
    uvw->uvwComponents.x_scale = uvw->uvwComponents.y_scale = scale;
    uvw->uvwComponents.z_rotation = rotation;
    uvw->texComponents.x_offset = 0.25f;
    uvw->updateTransforms();
    std::dynamic_pointer_cast<BitmapBuffer>(texture->bitmap)->gamma = gamma;
    return texture;
}

MaterialPtr woodFloor()
{
    auto diffuse = named<Diffuse_BRDF>(u"Oak");
    diffuse->color = {0.42f, 0.27f, 0.13f};
    diffuse->color_tex = bitmap(u"textures/oak_planks.png", 2, 90);
    diffuse->color_tex_mult = 0.9f;
    auto varnish = named<Phong_BRDF>(u"Varnish");
    varnish->reflectionGlossiness = 0.82f;
    varnish->hilightGlossiness = 0.75f;
    varnish->subdivs = 16;
    varnish->hilightGlossiness_tex = bitmap(u"textures/oak_gloss.png", 2, 90, 1);
    varnish->filter_color = {0.85f, 0.85f, 0.85f};
    return layered(u"Wood_Floor", {diffuse, varnish});
}

MaterialPtr clearGlass()
{
    auto glass = named<Glass_BRDF>(u"Clear");
    glass->fog_color = {0.86f, 0.95f, 0.92f};
    glass->fog_color_mult = 0.1f;
    glass->ior = 1.517f;
    glass->affect_shadows = 1;
    glass->affect_alpha = 1;
    auto noise = std::make_shared<NoiseTexture>();
    noise->uvwgen = std::make_shared<GenPlanarWorldUVW>();
    noise->size = 0.05f;
    noise->octaves = 5;
    noise->color2 = {0.02f, 0.02f, 0.02f};
    glass->ior_texture = noise;
    glass->ior_tex_mult = 0.02f;
    auto coat = named<Mirror_BRDF>(u"Coat");  // keeps its default Fresnel falloff
    return layered(u"Clear_Glass", {coat, glass});
}

MaterialPtr frostedGlass()
{
    auto glass = named<Glass_BRDF>(u"Frost");
    glass->glossiness = 0.6f;
    glass->subdivs = 24;
    glass->translucency_on = 1;
    glass->translucency = {0.9f, 0.9f, 1.0f};
    glass->thickness = 12.5f;
    glass->scatter_coeff = 0.35f;
    glass->scatter_direction = 0.8f;
    auto bulge = std::make_shared<BulgeTexture>();
    bulge->uvwgen = std::make_shared<GenObjectUVW>();
    bulge->u_width = bulge->v_width = 0.02f;
    glass->glossiness_tex = bulge;
    glass->transparency_tex = std::make_shared<FresnelTexture>();
    return layered(u"Frosted_Glass", {glass});
}

MaterialPtr chrome()
{
    auto mirror = named<Mirror_BRDF>(u"Chrome");
    auto fresnel = std::make_shared<FresnelTexture>();
    fresnel->fresnel_ior = 3.2f;
    fresnel->black_color_tex = constant(0.1f, 0.1f, 0.12f);
    mirror->transparency_tex = fresnel;
    mirror->filter_color = {0.95f, 0.95f, 0.97f};
    return layered(u"Chrome", {mirror});
}

MaterialPtr brushedSteel()
{
    auto base = named<Diffuse_BRDF>(u"Steel_Base");
    base->color = {0.2f, 0.2f, 0.22f};
    auto sheen = named<Blinn_BRDF>(u"Brushed");
    sheen->anisotropy = 0.6f;
    sheen->anisotropy_rotation = 90;
    sheen->reflectionGlossiness = 0.7f;
    sheen->back_side = 1;
    auto ramp = std::make_shared<RampTexture>();
    ramp->uvwgen = std::make_shared<GenChannelUVW>();
    auto grid = std::make_shared<GridTexture>();
    grid->uvwgen = std::make_shared<GenChannelUVW>();
    grid->line_color = constant(0.9f, 0.9f, 0.9f);
    grid->fill_color = constant(0.6f, 0.6f, 0.6f);
    grid->u_width = 0.01f;
    ramp->colors = grid;
    ramp->u_wave = 0.3f;
    ramp->type = 1;
    sheen->reflectionGlossiness_tex = ramp;
    return layered(u"Brushed_Steel", {base, sheen});
}

MaterialPtr copper()
{
    auto metal = named<Phong_BRDF>(u"Copper");
    metal->color = {0.95f, 0.64f, 0.54f};
    metal->filter_color = {0.3f, 0.3f, 0.3f};
    auto blend = std::make_shared<BlendTexture>();
    blend->color_a = constant(0.95f, 0.64f, 0.54f);
    auto tarnish = std::make_shared<NoiseTexture>();
    tarnish->uvwgen = std::make_shared<GenChannelUVW>();
    tarnish->color1 = {0.25f, 0.45f, 0.35f};
    tarnish->noiseType = 2;
    blend->color_b = tarnish;
    blend->color_b_mult = 0.5f;
    blend->blend_amount = 0.25f;
    metal->color_tex = blend;
    return layered(u"Copper", {metal});
}

MaterialPtr lampShade()
{
    auto glow = named<Light_BRDF>(u"Glow");
    glow->color = {1.0f, 0.85f, 0.6f};
    glow->intensity = 2.5f;
    glow->color_tex = std::make_shared<CheckerTexture>();
    auto fabric = named<Diffuse_BRDF>(u"Fabric");
    fabric->color = {0.9f, 0.88f, 0.8f};
    auto cloth = std::make_shared<ClothTexture>();
    cloth->uvwgen = std::make_shared<GenChannelUVW>();
    cloth->u_width = cloth->v_width = 0.4f;
    cloth->tile = false;
    auto invert = std::make_shared<InvertTexture>();
    invert->texture = cloth;
    invert->invert_alpha = true;
    fabric->transparency_tex = invert;
    fabric->transparency = {0.3f, 0.3f, 0.3f};
    fabric->use_color_tex_alpha_as_transparency = true;
    return layered(u"Lamp_Shade", {glow, fabric});
}

MaterialPtr neonSign()
{
    auto tube = named<Light_BRDF>(u"Tube");
    tube->color = {1.0f, 0.1f, 0.6f};
    tube->intensity = 25;
    tube->doubleSided = 0;
    auto sky = std::make_shared<UVWTexture>();
    auto environment = std::make_shared<GenEnvironmentUVW>();
    environment->mapping_type = 3;
    environment->uvwComponents.z_rotation = 45;
    environment->updateTransforms();
    sky->uvwgen = environment;
    tube->transparency_tex = sky;
    return layered(u"Neon_Sign & Co <Bar>", {tube});
}

MaterialPtr singleLayer()
{
    auto material = std::make_shared<MaterialSingleBRDF>();
    material->name = u"Matte_Single";
    material->brdf = named<Diffuse_BRDF>(u"Matte");
    return material;
}

void writeText(const fs::path& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

}  // namespace

int main(int argc, char** argv)
{
    const fs::path dir = argc > 1 ? fs::path(argv[1]) : fs::path("examples");
    fs::create_directories(dir);
    bool ok = true;
    ok &= MakeExamples::saveMaterials(dir / "wood_floor.talmat", {woodFloor()});
    ok &= MakeExamples::saveMaterials(dir / "studio_glass.talmat", {clearGlass(), frostedGlass()});
    ok &= MakeExamples::saveMaterials(dir / "metals.numat", {chrome(), brushedSteel(), copper()});
    ok &= MakeExamples::saveMaterials(dir / "emitters.talmat", {lampShade(), neonSign()});
    ok &= MakeExamples::saveMaterials(dir / "single_layer.talmat", {singleLayer(), woodFloor()});
    MakeExamples::writeOldRecordsFile(dir / "old_records.talmat");
    MakeExamples::writeOldContainerFiles(dir);
    ok &= MakeExamples::writeSharedSunFile(dir / "sky_shared_sun.talmat");
    ok &= MakeExamples::writeDocumentSunFile(dir / "sky_document_sun.talmat");
    ok &= MakeExamples::writeSkyVersionsFile(dir / "sky_versions.talmat");
    ok &= MakeExamples::writeSkyWrappersFile(dir / "sky_wrappers.talmat");
    ok &= MakeExamples::writeSkyEnvironmentFile(dir / "sky_environment.talopt");
    ok &= MakeExamples::writeWrapperChainsFile(dir / "wrapper_chains.talmat");
    ok &= MakeExamples::writeReferencesFile(dir / "references.talmat");
    ok &= MakeExamples::writeOwnLayoutsFile(dir / "own_layouts.numat");
    MakeExamples::writeOldWrapperRecordsFile(dir / "old_wrappers.talmat");
    writeText(dir / "hand_written.talmat",
              "<talmat>\r\n  <Assets>\r\n    <!-- written by hand: passes through as text -->\r\n"
              "  </Assets>\r\n</talmat>\r\n");
    writeText(dir / "render_settings.talopt",
              "<talopt>\n  <!-- a render-options document kept as text: passes through -->\n</talopt>\n");
    ok &= MakeExamples::writeOptionsExamples(dir);
    // A second folder gets an options file of every version, the seeds of the options fuzz target.
    if (argc > 2) ok &= MakeExamples::writeOptionsOfEveryVersion(argv[2]);
    if (!ok) std::fprintf(stderr, "make_examples: an example failed to save\n");
    return ok ? 0 : 1;
}
