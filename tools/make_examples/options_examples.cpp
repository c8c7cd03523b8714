#include "options_examples.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <string>

#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "record_bytes.h"
#include "textures/acolor_texture.h"
#include "textures/base_texture.h"
#include "textures/noise_texture.h"
#include "textures/channel_uvw.h"

namespace MakeExamples {

namespace {

using namespace TalvexCore;

bool save(const AllOptions& options, const std::filesystem::path& path)
{
    return TalOptFile().save(options, narrowToWide(path.string()));
}

// The parameters record of versions 1 to 5, a studio's values. Version 1 has no sampler type,
// version 3 adds subpixel mapping, version 4 gamma, version 5 the four detail values in place of
// one float.
RecordBytes paramsRecord(uint32_t version)
{
    RecordBytes r;
    r.tag(version);
    r.i32(1).i32(1).i32(1).i32(2).i32(6).f32(0.005f).i32(-1).i32(2).f32(0.1f).i32(1).i32(1).i32(0).i32(0).f32(0.1f)
        .i32(0).f32(0);                                                            // image sampler
    r.i32(0);                                                                      // camera
    r.i32(1).i32(8).f32(0).i32(1).i32(6).f32(0.2f);                                // depth of field
    r.i32(0).i32(2).i32(0).i32(6).i32(6).f32(0).i32(0).i32(0).i32(0).f32(0).i32(1).f32(0.5f).f32(0.5f).i32(0).f32(0);
    r.i32(1).i32(1).i32(0).f32(1).f32(1).f32(0.5f).u32(0).f32(1).u32(3).f32(0.9f);  // global illumination
    r.i32(12).i32(3).i32(0);                                                       // DMC GI, maps per frame
    r.i32(-4).i32(-1).i32(60).i32(30).i32(20).f32(0.35f).f32(0.2f).f32(0.1f).i32(0).i32(1).u32(0).i32(1).i32(1)
        .i32(1).i32(0).i32(1).i32(0).text("maps/studio.vrmap").i32(3).i32(0).i32(0).text("");
    if (version >= 5) r.i32(1).f32(40).f32(0.25f).u32(1);
    else r.f32(0);
    r.i32(12).f32(18).i32(40).i32(0).i32(10).u32(0).f32(1).i32(1).i32(0).i32(1).i32(0).text("").f32(0).i32(10)
        .i32(1).f32(0).text("");                                                   // photon map
    r.u32(1500).f32(0.015f).u32(1).f32(0.04f).i32(100).i32(1).i32(1).u32(0).u32(0).text("cache/lc.vrlmap").i32(1)
        .i32(0).text("").i32(8).i32(1).i32(12).i32(1).i32(4).i32(0);               // light cache
    r.i32(0).f32(1e18f).i32(60).f32(1).f32(0).u32(0).i32(1).i32(0).text("").text("");  // caustics
    r.i32(80).f32(0).f32(2).i32(600);                                              // raycaster
    r.i32(32).i32(32).i32(0).i32(5).i32(0);                                        // regions
    r.i32(0).i32(1).f32(1).f32(0.8f).f32(0.005f).i32(12).f32(1.5f);               // DMC sampler
    if (version >= 2) r.i32(2);
    r.i32(6).i32(1).i32(1);                                                        // colour mapping
    if (version >= 3) r.i32(1);
    if (version >= 4) r.f32(2.2f);
    r.i32(1).i32(1).i32(1).i32(0).i32(0).i32(1).i32(1).i32(1).i32(5).i32(1).i32(1).i32(50).f32(0.001f).i32(1)
        .i32(0).i32(0).f32(0.0001f).i32(1).i32(0);                                 // options
    r.i32(1).f32(2).i32(1).i32(128).i32(1).f32(0.5f).i32(0).i32(0).i32(16);       // displacement
    return r;
}

// The frame data record, 340 bytes.
RecordBytes frameRecord()
{
    RecordBytes r;
    r.tag(1).f64(12).f64(0).f64(100).i32(12);
    for (int i = 0; i < 2; ++i) r.floats({1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 150, -400});
    r.floats({0.9f, 0.1f, 1000, 180, 0.05f, 0}).i32(0).floats({0, 0}).i32(0).f32(1).i32(0);
    r.f32(400).i32(1).f32(2).f32(1).i32(0);
    for (int i = 0; i < 6; ++i) r.floats({0, 0, 0});
    r.floats({0, 1, 0, 1}).i32(0).i32(0).i32(1280).i32(720).i32(0).i32(1280).i32(0).i32(720);
    r.f32(1).i32(3).i32(0).i32(0).f32(1).f32(1);
    return r;
}

RecordBytes stampRecord(uint32_t version)
{
    RecordBytes r;
    r.tag(version).i32(0).i32(1).i32(0).text("Studio %frame | %rendertime");
    if (version >= 2) r.u32(60);
    for (int i = 0; i < 60; ++i) r.u8(static_cast<uint8_t>(i < 8 ? 0x10 + i : 0));
    return r;
}

// The physical camera: version 1 stores the two lens values as numbers and ends after use_dof.
RecordBytes cameraRecord(uint32_t version)
{
    RecordBytes r;
    r.tag(version).i32(0).f32(36);
    if (version >= 2) r.u32(0x10000).u32(1).u32(8).u8(1).f64(0).f32(50);
    else r.f32(50);
    r.floats({1, 0, 5.6f, 0, 60, 180, 0, 0, 100}).i32(1);
    if (version >= 2) r.u32(0x10000).u32(1).u32(8).u8(1).f64(0).f32(320);
    else r.f32(320);
    r.i32(0).f32(200).f32(0).i32(1).floats({1, 0.95f, 0.9f}).i32(1).i32(0).i32(5).floats({0, 0, 0}).i32(1);
    if (version >= 2) r.i32(0).i32(8);
    return r;
}

// A plain colour texture: presence, its type id, then its version 1 record.
RecordBytes colourChild(float r_, float g, float b)
{
    RecordBytes r;
    r.u8(1).u32(5).tag(1).floats({r_, g, b, 1});
    return r;
}

}  // namespace

bool writeStudioSettings(const std::filesystem::path& path)
{
    AllOptions o;
    o.params.gi_on = 1;
    o.params.secondary_engine = 3;
    o.params.im_detail_enhancement = 1;
    o.params.im_params_file = "maps/studio.vrmap";
    o.params.dof_on = 1;
    o.params.moblur_on = 1;
    o.params.cm_type = 6;
    o.params.cm_gamma = 2.2f;
    o.frameData.focal_dist = 320;
    o.frameData.r_width = 1920;
    o.frameData.r_height = 1080;
    o.stampInfo.stampText = "Studio %frame | %rendertime";
    o.filter_type = 1;
    o.img_width = 1920;
    o.img_height = 1080;
    o.img_imageAspect = 1.77778f;
    o.focal_dist_not_overridden = 0;
    o.use_bg = o.use_gi = o.use_reflect = 1;
    auto sky = std::make_shared<AColorTexture>();
    sky->texture = {0.55f, 0.7f, 1.0f, 1};
    o.bg_tex = sky;
    o.bg_tex_mult = 1.5f;
    o.gi_tex = textureFromFile(u"hdri/studio & loft.hdr");
    o.gi_tex_mult = 0.8f;
    o.gi_color_mult = 3;
    auto clouds = std::make_shared<NoiseTexture>();
    clouds->uvwgen = std::make_shared<GenChannelUVW>();
    o.reflect_tex = clouds;
    o.refract_color = {0.2f, 0.3f, 0.4f};
    o.refract_color_mult = 2;
    o.channels = {126, 125, 117, 101, 102, 108, 123, 132};
    auto setPath = [](PathBuffer& buffer, const std::u16string& text) { std::copy(text.begin(), text.end(), buffer.begin()); };
    setPath(o.img_file, u"renders/studio_####.exr");
    setPath(o.irradiance_file, u"maps/studio.vrmap");
    setPath(o.light_cache_auto_save_file, u"cache/lc_<frame>.vrlmap");
    o.dr_on = 1;
    o.folder = u"\\\\farm\\share\\studio";
    o.gamma_correct_rgb = 1;
    o.input_gamma = 2.2f;
    o.camera_on = 1;
    o.camera.focal_length.setKey(35, 0);
    o.camera.focal_length.setKey(85, 48);
    o.camera.f_number = 2.8f;
    o.camera.white_balance = {1, 0.92f, 0.85f};
    o.specify_film_width = 1;
    return save(o, path);
}

bool writeDefaultSettings(const std::filesystem::path& path)
{
    return save(AllOptions(), path);
}

bool writeOldOptions(const std::filesystem::path& path, uint32_t version)
{
    RecordBytes r;
    r.u32(version << 16 | 1);
    const uint32_t paramsVersion = version == 0 ? 1 : version < 4 ? version : version < 9 ? 4 : 5;
    r.append(paramsRecord(paramsVersion)).append(frameRecord()).append(stampRecord(version < 8 ? 1 : 2));
    if (version >= 5) r.append(cameraRecord(version < 0x10 ? 1 : 2));
    r.absent().append(colourChild(0.8f, 0.85f, 1.0f));                // bg_tex, gi_tex
    r.floats({0.1f, 0.1f, 0.12f}).floats({0.8f, 0.9f, 1.0f});          // bg_color, gi_color
    r.i32(1).i32(0).i32(2).i32(576).i32(720);                          // use_gi, use_bg, filter, height, width
    r.i32(0).i32(1).i32(1).i32(0).i32(0).i32(1);
    if (version >= 2) r.i32(0);
    if (version >= 3) r.i32(0);
    if (version >= 5) r.i32(1);
    if (version >= 6) r.i32(0);
    r.floats({50, 1.2f, 1, 1, 1, 2, 1.0667f, 1.25f});
    if (version >= 4) r.floats({10, 2000}).i32(0);
    // Version 0 knew the normals channel as 8; ids the XML does not name are dropped.
    r.u32(4).u32(version == 0 ? 8 : 123).u32(117).u32(99).u32(126);
    r.text("renders/old_v" + std::to_string(version) + ".tga").text("");
    r.text("maps/old.vrmap").text("").text("").text("cache/auto.vrlmap").text("").text("").text("").text("");
    if (version >= 1) r.floats({0.4f, 0.4f, 0.4f}).i32(0);
    if (version >= 7) r.i32(1).i32(0);
    if (version >= 8) r.i32(1).i32(2).f32(25);
    if (version >= 9) {
        r.floats({0.3f, 0.3f, 0.3f}).floats({0, 0, 0}).floats({1, 1, 2, 1}).i32(1).i32(0);
        r.append(colourChild(0.5f, 0.5f, 0.5f)).absent();
    }
    if (version >= 0x10) r.i32(1);
    if (version >= 0x11) r.floats({0, 0});
    if (version >= 0x12) r.f32(2.2f);
    if (version >= 0x13) r.i32(1);
    if (version >= 0x14) r.i32(1).i32(0).text("\\\\farm\\old");
    if (version >= 0x16) r.i32(0);
    if (version >= 0x17) r.i32(1);
    std::ofstream out(path, std::ios::binary);
    out.write(r.bytes.data(), static_cast<std::streamsize>(r.bytes.size()));
    return static_cast<bool>(out);
}

bool writeOptionsExamples(const std::filesystem::path& dir)
{
    bool ok = writeStudioSettings(dir / "studio_settings.talopt");
    ok &= writeDefaultSettings(dir / "default_settings.nuopt");
    ok &= writeOldOptions(dir / "options_v0.talopt", 0);
    ok &= writeOldOptions(dir / "options_v4.talopt", 4);
    ok &= writeOldOptions(dir / "options_v9.nuopt", 9);
    ok &= writeOldOptions(dir / "options_v14.talopt", 0x14);
    return ok;
}

bool writeOptionsOfEveryVersion(const std::filesystem::path& dir)
{
    std::filesystem::create_directories(dir);
    bool ok = true;
    for (uint32_t version = 0; version <= 0x17; ++version) {
        if (!AllOptions::isKnownVersion(version)) continue;
        char name[32];
        std::snprintf(name, sizeof name, "options_v%x.talopt", version);
        ok &= writeOldOptions(dir / name, version);
    }
    return ok && writeStudioSettings(dir / "studio_settings.talopt");
}

}  // namespace MakeExamples
