#include "sky_examples.h"

#include <fstream>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "archive/quick_archive.h"
#include "materials/diffuse_brdf.h"
#include "materials/light_brdf.h"
#include "materials/material_bump.h"
#include "materials/material_layered_brdf.h"
#include "materials/material_override_environment.h"
#include "record_bytes.h"
#include "scene/sun_light.h"
#include "textures/acolor_texture.h"
#include "textures/blend_texture.h"
#include "textures/sky_texture.h"

namespace MakeExamples {

namespace {

using namespace TalvexCore;

template <class T>
std::shared_ptr<T> layer(const std::u16string& name, TexturePtr colorTexture)
{
    auto brdf = std::make_shared<T>();
    brdf->name = name;
    brdf->color_tex = std::move(colorTexture);
    return brdf;
}

MaterialPtr layered(const std::u16string& name, std::initializer_list<BRDFPtr> layers)
{
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = name;
    material->brdfs.assign(layers.begin(), layers.end());
    return material;
}

// The materials' stream as the newest container holds it, each behind its type id.
std::string materialStream(std::initializer_list<MaterialPtr> materials, bool& ok)
{
    QuickArchive archive(1);
    for (const MaterialPtr& material : materials) {
        archive.writeU32(material->typeId());
        ok &= material->writeBinary(archive);
    }
    std::string stream(archive.writePosition(), '\0');
    archive.readRaw(stream.data(), stream.size());
    return stream;
}

bool writeMaterialFile(const std::filesystem::path& path, uint32_t count, const std::string& stream)
{
    const QuickArchive archive(stream.data(), stream.size());
    std::ofstream out(path, std::ios::binary);
    const uint32_t header[2] = {0x30000, count};
    out.write(reinterpret_cast<const char*>(header), sizeof header);
    return archive.writeToStream(out) && out.good();
}

bool save(const std::filesystem::path& path, std::initializer_list<MaterialPtr> materials)
{
    bool ok = true;
    const std::string stream = materialStream(materials, ok);
    return ok && writeMaterialFile(path, static_cast<uint32_t>(materials.size()), stream);
}

// The run a sun and a sky share, from up_vector to shadows.
RecordBytes sunParameters(float turbidity, float ozone)
{
    RecordBytes r;
    r.floats({0, 0.2f, 1, 0.001f, turbidity, 2, 1.5f, 1, 50, 150, ozone}).i32(500).i32(1000).i32(8).u8(1);
    return r;
}

RecordBytes turned(float z)
{
    RecordBytes r;
    r.floats({1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, z});
    return r;
}

// A sun of the third version: one transform, and `enabled` and `invisible` at the end.
RecordBytes sunV3(const std::string& id, const std::string& name)
{
    RecordBytes r;
    r.tag(3).append(turned(100)).append(sunParameters(4, 0.3f)).text(id).text(name).u8(1).u8(0);
    return r;
}

// A sun of the second version: an id and a name, no `enabled` or `invisible`.
RecordBytes sunV2(const std::string& id, const std::string& name)
{
    RecordBytes r;
    r.tag(2).append(turned(50)).append(sunParameters(2.5f, 0.35f)).text(id).text(name);
    return r;
}

// The first sky held its sun alone.
RecordBytes skyV1()
{
    RecordBytes r;
    r.u32(12).tag(1).u8(1).append(sunV3("{7C0D2E51-93A4-4B6F-8E21-5D4C3B2A1F09}", "Harbour Sun"));
    return r;
}

// The second kept a copy of the sun's parameters beside it, the transform ahead of them.
RecordBytes skyV2(bool withSun)
{
    RecordBytes r;
    r.u32(12).tag(2).u8(withSun ? 1 : 0);
    if (withSun) r.append(sunV2("{0E4A9B7C-61D2-4F38-A5C0-2B9E8D7F6A13}", "Meadow Sun"));
    r.append(turned(50)).append(sunParameters(2.5f, 0.35f)).u8(0).text("{4D8C2A1E-5B7F-4E39-9A60-C3D2E1F0A4B8}");
    return r;
}

// A constant colour stands in the model-written stream where an older sky goes: its bytes are
// unique, and the sky's bytes replace them.
std::shared_ptr<AColorTexture> placeholder(float mark)
{
    auto texture = std::make_shared<AColorTexture>();
    texture->texture = {mark, mark, mark, 0.5f};
    return texture;
}

bool replacePlaceholder(std::string& stream, float mark, const RecordBytes& sky)
{
    RecordBytes placed;
    placed.u32(5).tag(1).floats({mark, mark, mark, 0.5f});
    const auto at = stream.find(placed.bytes);
    if (at == std::string::npos) return false;
    stream.replace(at, placed.bytes.size(), sky.bytes);
    return true;
}

}  // namespace

bool writeSharedSunFile(const std::filesystem::path& path)
{
    auto noon = std::make_shared<SunLight>(u"Noon", u"{2B1F6C3E-7A4D-4E0B-9C55-1D3A8E6F4B21}");
    noon->turbidity = 2.5f;
    auto dusk = std::make_shared<SunLight>(u"Dusk", u"{A94E7D20-3C1B-4F85-B6E2-07D8C9F1A354}");
    dusk->intensity_multiplier = 0.4f;
    auto blend = std::make_shared<BlendTexture>();
    blend->color_a = sky(noon, 2.5f);
    blend->color_b = sky(dusk, 6);
    blend->blend_amount = 0.3f;
    return save(path, {layered(u"Dawn_And_Dusk", {layer<Diffuse_BRDF>(u"Morning", sky(noon, 2.5f)),
                                                  layer<Light_BRDF>(u"Evening Glow", sky(noon, 4))}),
                       layered(u"Overcast", {layer<Diffuse_BRDF>(u"Haze", blend)})});
}

bool writeDocumentSunFile(const std::filesystem::path& path)
{
    auto glow = layer<Light_BRDF>(u"Skylight", sky(defaultSun(), 3));
    glow->intensity = 1.5f;
    return save(path, {layered(u"Daylight", {layer<Diffuse_BRDF>(u"Open_Sky", sky(defaultSun(), 3)), glow})});
}

bool writeSkyVersionsFile(const std::filesystem::path& path)
{
    auto own = std::make_shared<SunLight>(u"Desert Sun", u"{E3B6C1A0-2D4F-4A87-9B1E-6C5D0F2A8B73}");
    own->turbidity = 5;
    own->invisible = true;
    bool ok = true;
    std::string stream = materialStream(
        {layered(u"Sky_Versions", {layer<Diffuse_BRDF>(u"First", placeholder(0.125f)),
                                   layer<Diffuse_BRDF>(u"Second", placeholder(0.25f)),
                                   layer<Diffuse_BRDF>(u"Second_Bare", placeholder(0.375f)),
                                   layer<Diffuse_BRDF>(u"Newest", sky(own, 5))})},
        ok);
    ok &= replacePlaceholder(stream, 0.125f, skyV1());
    ok &= replacePlaceholder(stream, 0.25f, skyV2(true));
    ok &= replacePlaceholder(stream, 0.375f, skyV2(false));
    return ok && writeMaterialFile(path, 1, stream);
}

bool writeSkyWrappersFile(const std::filesystem::path& path)
{
    auto zenith = std::make_shared<SunLight>(u"Zenith", u"{8D3F1A6B-0C2E-4B97-A4D5-E6F70819B2C3}");
    auto bump = std::make_shared<MaterialBump>();
    bump->name = u"Rippled_Sky";
    bump->base_mtl = layered(u"Sky_Pool", {layer<Diffuse_BRDF>(u"Water", sky(zenith, 2))});
    bump->bump_tex = sky(zenith, 3);
    bump->bump_tex_mult = 0.2f;
    auto environment = std::make_shared<MaterialOverrideEnvironment>();
    environment->name = u"Open_Air";
    environment->base_mtl = layered(u"Open_Air_Core", {layer<Diffuse_BRDF>(u"Canvas", nullptr)});
    environment->override_bg = environment->override_gi = true;
    environment->bg_tex = sky(defaultSun(), 3);
    environment->gi_tex = sky(zenith, 2);
    return save(path, {bump, environment});
}

}  // namespace MakeExamples
