// The settings table of the whole options set: its own values, its embedded records and texture
// slots, and the parameters its XML computes, in stored order.
#pragma once

#include <array>

#include "options/all_options.h"
#include "options/settings_groups.h"
#include "options/talvex_frame_data_settings.h"
#include "options/talvex_params_settings.h"
#include "records/settings_table.h"

namespace TalvexCore::AllOptionsSettings {

using A = AllOptions;

// The parameters, reset as the whole options set starts them: a few values differ from the
// parameters' own defaults.
inline constexpr SpecialSetting<A> parameters = {
    .read = embeddedRecord<&A::params>().read,
    .write = embeddedRecord<&A::params>().write,
    .reset =
        [](A& o) {
            TalvexParams& p = o.params;
            p.resetDefaults();
            p.filter_on = 1;
            p.sampler_type = 2;
            p.caustics_search_distance = 20.0f;
            p.mtl_limitDepth = 1;
            p.mtl_maxDepth = 2;
            p.adaptive_threshold = 0.01f;
            p.lc_adaptive_sampling = 0;
            p.lc_params_file.clear();
            p.lc_params_auto_save_file.clear();
        },
    .equal = embeddedRecord<&A::params>().equal,
};
inline constexpr SpecialSetting<A> frameDataRecord = embeddedRecord<&A::frameData>();
inline constexpr SpecialSetting<A> stampInfoRecord = embeddedRecord<&A::stampInfo>();
inline constexpr SpecialSetting<A> cameraRecord = embeddedRecord<&A::camera>();

// The environment textures; each asset stands inside the group's Assets element, ahead of the
// group's own asset.
inline constexpr SpecialSetting<A> bgTexture = childSlot<&A::bg_tex>("bg_texture");
inline constexpr SpecialSetting<A> giTexture = childSlot<&A::gi_tex>("gi_texture");
inline constexpr SpecialSetting<A> reflectTexture = childSlot<&A::reflect_tex>("reflect_texture");
inline constexpr SpecialSetting<A> refractTexture = childSlot<&A::refract_tex>("refract_texture");

// The multiplier the XML shows: the texture's while a texture is set, else the colour's.
template <TexturePtr A::*Slot, float A::*TextureMult, float A::*ColorMult>
inline constexpr SpecialSetting<A> shownMultiplier =
    computedSetting<A>([](const A& o) -> ShownValue { return o.*Slot ? o.*TextureMult : o.*ColorMult; });
inline constexpr auto bgMultiplier = shownMultiplier<&A::bg_tex, &A::bg_tex_mult, &A::bg_color_mult>;
inline constexpr auto giMultiplier = shownMultiplier<&A::gi_tex, &A::gi_tex_mult, &A::gi_color_mult>;
inline constexpr auto reflectMultiplier = shownMultiplier<&A::reflect_tex, &A::reflect_tex_mult, &A::reflect_color_mult>;
inline constexpr auto refractMultiplier = shownMultiplier<&A::refract_tex, &A::refract_tex_mult, &A::refract_color_mult>;

// The XML exchanges the filter kinds 1 and 2; files keep the stored value.
inline constexpr SpecialSetting<A> shownFilterType = computedSetting<A>([](const A& o) -> ShownValue {
    return o.filter_type == 1 ? 2 : o.filter_type == 2 ? 1 : o.filter_type;
});

inline constexpr SpecialSetting<A> shownFocalDistOverride =
    computedSetting<A>([](const A& o) -> ShownValue { return int32_t{o.focal_dist_not_overridden == 0}; });

// The render channels: a count, then the ids. Loading keeps the ids the XML knows from files, turns
// the id 8 of the oldest files into 123, and before version 0x15 appends behind the defaults
// instead of replacing them. A count larger than the bytes left fails the load.
inline constexpr SpecialSetting<A> channelList = {
    .read =
        [](QuickArchive& in, A& o, uint16_t version) {
            uint64_t count = 0;
            in.readCount(count);
            if (!in.countFits(count, 4)) return false;
            o.channels.reserve(count);
            if (version >= 0x15) o.channels.clear();
            for (uint64_t i = 0; i < count; ++i) {
                uint64_t id = 0;
                in.readCount(id);
                if (version == 0 && id == 8) id = 123;
                if (id >= A::firstChannel && id <= A::lastStoredChannel) o.channels.push_back(static_cast<int32_t>(id));
            }
            return true;
        },
    .write =
        [](QuickArchive& out, const A& o) {
            out.writeCount(o.channels.size());
            for (int32_t id : o.channels) out.writeCount(static_cast<uint32_t>(id));
            return true;
        },
    .reset = [](A& o) { o.channels.assign({126, 125}); },
    .equal = [](const A& a, const A& b) { return a.channels == b.channels; },
    .shown = [](const A& o) -> ShownValue { return NameList{o.channels, renderChannelName, "string"}; },
};

// The stored order of the version 0x17 record; the last rows are shown and never stored.
inline constexpr auto table = std::to_array<Setting<A>>({
    {"", {}, {}, 0, {}, 0, Form::Hidden, {}, false, &parameters},
    {"", {}, {}, 0, {}, 0, Form::Hidden, {}, false, &frameDataRecord},
    {"", {}, {}, 0, {}, 0, Form::Hidden, {}, false, &stampInfoRecord},
    {"", {}, {}, 5, {}, 0, Form::Hidden, {}, false, &cameraRecord},
    {"bg_tex", {}, {}, 0, SettingsGroups::Environment, 2, Form::Plugin, {}, false, &bgTexture},
    {"gi_tex", {}, {}, 0, SettingsGroups::Environment, 6, Form::Plugin, {}, false, &giTexture},
    {"bg_color", &A::bg_color, Color{}, 0, SettingsGroups::Environment, 1, Form::Color},
    // The green is 229 / 255.
    {"gi_color", &A::gi_color, Color{0.8f, 229.0f / 255.0f, 1.0f}, 0, SettingsGroups::Environment, 5, Form::Color},
    {"use_gi", &A::use_gi, 0, 0, SettingsGroups::Environment, 4, Form::Bool},
    {"use_bg", &A::use_bg, 0, 0, SettingsGroups::Environment, 0, Form::Bool},
    {"type", &A::filter_type, 5, 0},
    {"img_height", &A::img_height, 600, 0, SettingsGroups::Output, 1, Form::Int},
    {"img_width", &A::img_width, 800, 0, SettingsGroups::Output, 0, Form::Int},
    {"override_fov", &A::override_fov, 0, 0, SettingsGroups::Camera, 6, Form::Bool, {}, true},
    {"override_viewport", &A::override_viewport, 0, 0, SettingsGroups::Output, 18, Form::Bool, "Override Viewport", true},
    {"img_imageAspectLocked", &A::img_imageAspectLocked, 0, 0, SettingsGroups::Output, 22, Form::Bool, {}, true},
    {"img_pixelAspectLocked", &A::img_pixelAspectLocked, 0, 0, SettingsGroups::Output, 23, Form::Bool},
    {"img_rawFile", &A::img_rawFile, 0, 0, SettingsGroups::Output, 5, Form::Bool},
    {"save_render", &A::save_render, 0, 0, SettingsGroups::Output, 20, Form::Bool, {}, true},
    {"focal_dist_not_overridden", &A::focal_dist_not_overridden, 1, 2},
    {"show_progress_window", &A::show_progress_window, 1, 3, SettingsGroups::Options, 21, Form::Int},
    {"on", &A::camera_on, 0, 5, SettingsGroups::CameraPhysical, 0, Form::Bool},
    {"override_focal_length", &A::override_focal_length, 0, 6, SettingsGroups::CameraPhysical, 30, Form::Bool, {}, true},
    {"fov", &A::fov, 45.0f, 0, SettingsGroups::Camera, 3, Form::Float},
    {"gi_color_mult", &A::gi_color_mult, 1.0f, 0},
    {"bg_color_mult", &A::bg_color_mult, 1.0f, 0},
    {"gi_tex_mult", &A::gi_tex_mult, 1.0f, 0},
    {"bg_tex_mult", &A::bg_tex_mult, 1.0f, 0},
    {"size", &A::filter_size, 1.5f, 0, SettingsGroups::ImageFilter, 2, Form::Float},
    {"img_pixelAspect", &A::img_pixelAspect, 1.0f, 0, SettingsGroups::Output, 2, Form::Float},
    {"img_imageAspect", &A::img_imageAspect, 1.333f, 0, SettingsGroups::Output, 3, Form::Float},
    {"zdepth_black", &A::zdepth_black, 0.0f, 4, SettingsGroups::RenderChannels, 1, Form::Float},
    {"zdepth_white", &A::zdepth_white, 1000.0f, 4, SettingsGroups::RenderChannels, 2, Form::Float},
    {"zdepth_clamp", &A::zdepth_clamp, 1, 4, SettingsGroups::RenderChannels, 0, Form::Bool},
    {"channel_names", {}, {}, 0, SettingsGroups::RenderChannels, 3, Form::List, "NFB Channels", false, &channelList},
    {"img_file", &A::img_file, {}, 0, SettingsGroups::Output, 4, Form::FileString},
    {"nuimg_file", &A::nuimg_file, {}, 0, SettingsGroups::Output, 17, Form::FileString, "NuImage Output File", true},
    {"file", &A::irradiance_file, {}, 0, SettingsGroups::IrradianceMap, 18, Form::FileString},
    {"auto_save_file", &A::irradiance_auto_save_file, {}, 0, SettingsGroups::IrradianceMap, 26, Form::FileString},
    {"file", &A::light_cache_file, {}, 0, SettingsGroups::LightCache, 12, Form::FileString},
    {"auto_save_file", &A::light_cache_auto_save_file, {}, 0, SettingsGroups::LightCache, 15, Form::FileString},
    {"file", &A::photon_file, {}, 0, SettingsGroups::PhotonMap, 5, Form::FileString},
    {"auto_save_file", &A::photon_auto_save_file, {}, 0, SettingsGroups::PhotonMap, 11, Form::FileString},
    {"file", &A::caustics_file, {}, 0, SettingsGroups::Caustics, 6, Form::FileString},
    {"auto_save_file", &A::caustics_auto_save_file, {}, 0, SettingsGroups::Caustics, 9, Form::FileString},
    {"mtl_override_color", &A::mtl_override_color, Color{0.5f, 0.5f, 0.5f}, 1, SettingsGroups::Options, 23, Form::Color},
    {"batch_render", &A::batch_render, 1, 1, SettingsGroups::Options, 22, Form::Int},
    {"gamma_correct_rgb", &A::gamma_correct_rgb, 0, 7, SettingsGroups::ColorMapping, 0, Form::Bool, {}, true},
    {"gamma_correct_ldr_textures", &A::gamma_correct_ldr_textures, 0, 7, SettingsGroups::ColorMapping, 1, Form::Bool, {}, true},
    {"do_animation", &A::do_animation, 0, 8, SettingsGroups::Output, 19, Form::Bool, {}, true},
    {"frame_rate", &A::frame_rate, 0, 8, SettingsGroups::Output, 21, Form::Int, {}, true},
    {"frames_per_second", &A::frames_per_second, 30.0f, 8, SettingsGroups::Output, 6, Form::Float},
    {"reflect_color", &A::reflect_color, Color{}, 9, SettingsGroups::Environment, 9, Form::Color},
    {"refract_color", &A::refract_color, Color{}, 9, SettingsGroups::Environment, 13, Form::Color},
    {"reflect_color_mult", &A::reflect_color_mult, 1.0f, 9},
    {"refract_color_mult", &A::refract_color_mult, 1.0f, 9},
    {"reflect_tex_mult", &A::reflect_tex_mult, 1.0f, 9},
    {"refract_tex_mult", &A::refract_tex_mult, 1.0f, 9},
    {"use_reflect", &A::use_reflect, 0, 9, SettingsGroups::Environment, 8, Form::Bool},
    {"use_refract", &A::use_refract, 0, 9, SettingsGroups::Environment, 12, Form::Bool},
    {"reflect_tex", {}, {}, 9, SettingsGroups::Environment, 10, Form::Plugin, {}, false, &reflectTexture},
    {"refract_tex", {}, {}, 9, SettingsGroups::Environment, 14, Form::Plugin, {}, false, &refractTexture},
    {"on", &A::dr_on, 0, 0x10, SettingsGroups::DR, 0, Form::Bool},
    // No reset sets the two floats; a fresh object holds zero there.
    {"all_aux_float_1", &A::all_aux_float_1, 0.0f, 0x11},
    {"all_aux_float_2", &A::all_aux_float_2, 0.0f, 0x11},
    {"input_gamma", &A::input_gamma, 2.2f, 0x12, SettingsGroups::ColorMapping, 2, Form::Float, {}, true},
    {"all_aux_int_1", &A::all_aux_int_1, 1, 0x13},
    {"asset_coll", &A::asset_coll, 1, 0x14, SettingsGroups::DR, 1, Form::Bool},
    {"mode", &A::dr_mode, 0, 0x14, SettingsGroups::DR, 2, Form::Int},
    {"folder", &A::folder, {}, 0x14, SettingsGroups::DR, 3, Form::FileString},
    {"all_aux_int_2", &A::all_aux_int_2, 0, 0x16},
    {"specify_film_width", &A::specify_film_width, 0, 0x17, SettingsGroups::CameraPhysical, 29, Form::Bool, {}, true},

    {"type", {}, {}, notStored, SettingsGroups::ImageFilter, 1, Form::Int, {}, false, &shownFilterType},
    {"override_focal_dist", {}, {}, notStored, SettingsGroups::CameraDof, 0, Form::Bool, {}, true, &shownFocalDistOverride},
    {"bg_mult", {}, {}, notStored, SettingsGroups::Environment, 3, Form::Float, {}, false, &bgMultiplier},
    {"gi_mult", {}, {}, notStored, SettingsGroups::Environment, 7, Form::Float, {}, false, &giMultiplier},
    {"reflect_mult", {}, {}, notStored, SettingsGroups::Environment, 11, Form::Float, {}, false, &reflectMultiplier},
    {"refract_mult", {}, {}, notStored, SettingsGroups::Environment, 15, Form::Float, {}, false, &refractMultiplier},
});
CINDREL_CHECK_SETTINGS(settingsTableValid(table));

}  // namespace TalvexCore::AllOptionsSettings
