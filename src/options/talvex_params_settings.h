// The settings table of the render parameters: every value once, in stored order.
#pragma once

#include <array>

#include "options/settings_groups.h"
#include "options/talvex_params.h"
#include "records/settings_table.h"

namespace TalvexCore::ParamsSettings {

using P = NuvaUtils::NuvaParams;

// Versions 1 to 4 hold one float where version 5 begins its four detail values; the float is dropped
// and the details keep their defaults.
inline constexpr SpecialSetting<P> detailOrItsForerunner = migratedSetting<P>([](QuickArchive& in, P& p, uint16_t version) {
    if (version >= 5) {
        in.readI32(p.im_detail_enhancement);
    } else {
        float dropped = 0;
        in.readF32(dropped);
    }
    return true;
});

// Whatever a file holds, the sampler type loads as 2.
inline constexpr SpecialSetting<P> forcedSamplerType = migratedSetting<P>([](QuickArchive& in, P& p, uint16_t) {
    in.readI32(p.path_sampler_type);
    p.path_sampler_type = 2;
    return true;
});

// The words around time_dependent have no field: written as 0 and 1.0, dropped on reading.
inline constexpr SpecialSetting<P> reservedWordBefore = reservedWord<P, int32_t{0}>();
inline constexpr SpecialSetting<P> reservedWordAfter = reservedF32Word<P, 0x3F800000u>();

// Stored order of the version 5 record. Rows of no version are held and shown, never stored; rows
// of no group are stored, never shown; rows of neither are the parameters' internal defaults.
inline constexpr auto table = std::to_array<Setting<P>>({
    {"on", &P::filter_on, 0, 1, SettingsGroups::ImageFilter, 0, Form::Bool},
    {"type", &P::sampler_type, 0, 1, SettingsGroups::ImageSampler, 0, Form::Int},
    {"fixed_subdivs", &P::fixed_subdivs, 1, 1, SettingsGroups::ImageSampler, 1, Form::Int},
    {"dmc_minSubdivs", &P::dmc_minSubdivs, 1, 1, SettingsGroups::ImageSampler, 2, Form::Int},
    {"dmc_maxSubdivs", &P::dmc_maxSubdivs, 4, 1, SettingsGroups::ImageSampler, 3, Form::Int},
    {"dmc_threshold", &P::dmc_threshold, 0.01f, 1, SettingsGroups::ImageSampler, 4, Form::Float},
    {"subdivision_minRate", &P::subdivision_minRate, -1, 1, SettingsGroups::ImageSampler, 5, Form::Int},
    {"subdivision_maxRate", &P::subdivision_maxRate, 2, 1, SettingsGroups::ImageSampler, 6, Form::Int},
    {"subdivision_threshold", &P::subdivision_threshold, 0.1f, 1, SettingsGroups::ImageSampler, 8, Form::Float},
    {"subdivision_jitter", &P::subdivision_jitter, 1, 1, SettingsGroups::ImageSampler, 7, Form::Bool},
    {"subdivision_edges", &P::subdivision_edges, 1, 1, SettingsGroups::ImageSampler, 9, Form::Bool},
    {"sampler_aux_int_1", &P::sampler_aux_int_1, 0, 1},
    {"subdivision_normals", &P::subdivision_normals, 0, 1, SettingsGroups::ImageSampler, 10, Form::Bool},
    {"subdivision_normals_threshold", &P::subdivision_normals_threshold, 0.1f, 1, SettingsGroups::ImageSampler, 11, Form::Float},
    {"sampler_aux_int_2", &P::sampler_aux_int_2, 0, 1},
    {"sampler_aux_float", &P::sampler_aux_float, 0.0f, 1},

    {"type", &P::camera_type, 0, 1, SettingsGroups::Camera, 0, Form::Int},
    {"on", &P::dof_on, 0, 1, SettingsGroups::CameraDof, 1, Form::Bool},
    {"subdivs", &P::dof_subdivs, 6, 1, SettingsGroups::CameraDof, 9, Form::Int},
    {"center_bias", &P::dof_center_bias, 0.0f, 1, SettingsGroups::CameraDof, 3, Form::Float},
    {"sides_on", &P::dof_sides_on, 0, 1, SettingsGroups::CameraDof, 5, Form::Bool},
    {"sides_num", &P::dof_sides_num, 5, 1, SettingsGroups::CameraDof, 6, Form::Int},
    {"anisotropy", &P::dof_anisotropy, 0.0f, 1, SettingsGroups::CameraDof, 8, Form::Float},

    {"on", &P::moblur_on, 0, 1, SettingsGroups::MotionBlur, 0, Form::Bool},
    {"geom_samples", &P::geom_samples, 2, 1, SettingsGroups::MotionBlur, 1, Form::Int},
    {"moblur_aux_int_1", &P::moblur_aux_int_1, 0, 1},
    {"moblur_aux_int_2", &P::moblur_aux_int_2, 6, 1},
    {"subdivs", &P::moblur_subdivs, 6, 1, SettingsGroups::MotionBlur, 4, Form::Int},
    // No reset sets the next four; a fresh object holds zero there.
    {"moblur_aux_float_1", &P::moblur_aux_float_1, 0.0f, 1},
    {"moblur_aux_int_3", &P::moblur_aux_int_3, 0, 1},
    {"moblur_aux_int_4", &P::moblur_aux_int_4, int32_t{0}, 1},
    {"moblur_aux_int_5", &P::moblur_aux_int_5, int32_t{0}, 1},
    {"moblur_aux_float_2", &P::moblur_aux_float_2, 0.0f, 1},
    {"low_samples", &P::low_samples, 1, 1, SettingsGroups::MotionBlur, 2, Form::Int},
    {"duration", &P::duration, 1.0f, 1, SettingsGroups::MotionBlur, 3, Form::Float},
    {"interval_center", &P::interval_center, 0.5f, 1, SettingsGroups::MotionBlur, 6, Form::Float},
    {"moblur_aux_int_6", &P::moblur_aux_int_6, 0, 1},
    {"bias", &P::moblur_bias, 0.0f, 1, SettingsGroups::MotionBlur, 5, Form::Float},

    {"on", &P::gi_on, 0, 1, SettingsGroups::GI, 0, Form::Bool},
    {"refract_caustics", &P::refract_caustics, 1, 1, SettingsGroups::GI, 1, Form::Bool},
    {"reflect_caustics", &P::reflect_caustics, 0, 1, SettingsGroups::GI, 2, Form::Bool},
    {"saturation", &P::saturation, 1.0f, 1, SettingsGroups::GI, 3, Form::Float},
    {"contrast", &P::contrast, 1.0f, 1, SettingsGroups::GI, 4, Form::Float},
    {"contrast_base", &P::contrast_base, 0.5f, 1, SettingsGroups::GI, 5, Form::Float},
    {"primary_engine", &P::primary_engine, 0u, 1, SettingsGroups::GI, 6, Form::Int},
    {"primary_multiplier", &P::primary_multiplier, 1.0f, 1, SettingsGroups::GI, 7, Form::Float},
    {"secondary_engine", &P::secondary_engine, 2u, 1, SettingsGroups::GI, 8, Form::Int},
    {"secondary_multiplier", &P::secondary_multiplier, 1.0f, 1, SettingsGroups::GI, 9, Form::Float},
    {"subdivs", &P::dmcgi_subdivs, 8, 1, SettingsGroups::DMCGI, 0, Form::Int},
    {"depth", &P::dmcgi_depth, 3, 1, SettingsGroups::DMCGI, 1, Form::Int},
    {"save_maps_per_frame", &P::save_maps_per_frame, 0, 1, SettingsGroups::GI, 10, Form::Bool},
    {"", &P::gi_internal_float_1, 10.0f, notStored},
    {"", &P::gi_internal_int_1, 8, notStored},
    {"", &P::gi_internal_float_2, 0.8f, notStored},
    {"", &P::gi_internal_int_2, 0, notStored},
    {"", &P::gi_internal_float_3, 1e6f, notStored},

    {"min_rate", &P::im_min_rate, -3, 1, SettingsGroups::IrradianceMap, 0, Form::Int},
    {"max_rate", &P::im_max_rate, 0, 1, SettingsGroups::IrradianceMap, 1, Form::Int},
    {"subdivs", &P::im_subdivs, 50, 1, SettingsGroups::IrradianceMap, 2, Form::Int},
    {"interp_samples", &P::im_interp_samples, 20, 1, SettingsGroups::IrradianceMap, 3, Form::Int},
    {"calc_interp_samples", &P::im_calc_interp_samples, 15, 1, SettingsGroups::IrradianceMap, 4, Form::Int},
    {"color_threshold", &P::im_color_threshold, 0.3f, 1, SettingsGroups::IrradianceMap, 6, Form::Float},
    {"normal_threshold", &P::im_normal_threshold, 0.1f, 1, SettingsGroups::IrradianceMap, 7, Form::Float},
    {"distance_threshold", &P::im_distance_threshold, 0.1f, 1, SettingsGroups::IrradianceMap, 8, Form::Float},
    {"show_samples", &P::im_show_samples, 0, 1, SettingsGroups::IrradianceMap, 19, Form::Bool},
    {"interpolation_mode", &P::im_interpolation_mode, 1, 1, SettingsGroups::IrradianceMap, 14, Form::Int},
    {"mode", &P::im_mode, 0u, 1, SettingsGroups::IrradianceMap, 16, Form::Int},
    {"dont_delete", &P::im_dont_delete, 1, 1, SettingsGroups::IrradianceMap, 17, Form::Bool},
    {"randomize_samples", &P::im_randomize_samples, 1, 1, SettingsGroups::IrradianceMap, 13, Form::Bool},
    {"show_calc_phase", &P::im_show_calc_phase, 1, 1, SettingsGroups::IrradianceMap, 20, Form::Bool},
    {"show_direct_light", &P::im_show_direct_light, 0, 1, SettingsGroups::IrradianceMap, 21, Form::Bool},
    {"multipass", &P::im_multipass, 1, 1, SettingsGroups::IrradianceMap, 23, Form::Bool},
    {"auto_save", &P::im_auto_save, 0, 1, SettingsGroups::IrradianceMap, 25, Form::Bool},
    {"params_file", &P::im_params_file, int32_t{0}, 1},
    {"lookup_mode", &P::im_lookup_mode, 3, 1, SettingsGroups::IrradianceMap, 15, Form::Int},
    {"check_sample_visibility", &P::im_check_sample_visibility, 0, 1, SettingsGroups::IrradianceMap, 24, Form::Bool},
    {"irradiance_aux_int", &P::irradiance_aux_int, 0, 1},
    {"params_auto_save_file", &P::im_params_auto_save_file, int32_t{0}, 1},
    {"detail_enhancement", &P::im_detail_enhancement, 0, 1, SettingsGroups::IrradianceMap, 9, Form::Bool, {}, false, &detailOrItsForerunner},
    {"detail_radius", &P::im_detail_radius, 60.0f, 5, SettingsGroups::IrradianceMap, 10, Form::Float},
    {"detail_subdivs_mult", &P::im_detail_subdivs_mult, 0.3f, 5, SettingsGroups::IrradianceMap, 11, Form::Float},
    {"detail_scale", &P::im_detail_scale, 0u, 5, SettingsGroups::IrradianceMap, 12, Form::Int},
    {"", &P::im_internal_int, 2, notStored},
    {"interp_frames", &P::im_interp_frames, 2, notStored, SettingsGroups::IrradianceMap, 5, Form::Int},
    {"multiple_views", &P::im_multiple_views, 0, notStored, SettingsGroups::IrradianceMap, 22, Form::Bool},

    {"bounces", &P::pm_bounces, 10, 1, SettingsGroups::PhotonMap, 0, Form::Int},
    {"search_distance", &P::pm_search_distance, 20.0f, 1, SettingsGroups::PhotonMap, 7, Form::Float},
    {"max_photons", &P::pm_max_photons, 30, 1, SettingsGroups::PhotonMap, 1, Form::Int},
    {"prefilter", &P::pm_prefilter, 0, 1, SettingsGroups::PhotonMap, 2, Form::Bool},
    {"prefilter_samples", &P::pm_prefilter_samples, 10, 1, SettingsGroups::PhotonMap, 3, Form::Int},
    {"mode", &P::pm_mode, 0u, 1, SettingsGroups::PhotonMap, 4, Form::Int},
    {"multiplier", &P::pm_multiplier, 1.0f, 1, SettingsGroups::PhotonMap, 13, Form::Float},
    {"auto_search_distance", &P::pm_auto_search_distance, 1, 1, SettingsGroups::PhotonMap, 6, Form::Bool},
    {"convex_hull_estimate", &P::pm_convex_hull_estimate, 0, 1, SettingsGroups::PhotonMap, 8, Form::Bool},
    {"dont_delete", &P::pm_dont_delete, 1, 1, SettingsGroups::PhotonMap, 9, Form::Bool},
    {"auto_save", &P::pm_auto_save, 0, 1, SettingsGroups::PhotonMap, 10, Form::Bool},
    {"params_file", &P::pm_params_file, int32_t{0}, 1},
    {"retrace_corners", &P::pm_retrace_corners, 0.0f, 1, SettingsGroups::PhotonMap, 15, Form::Float},
    {"retrace_bounces", &P::pm_retrace_bounces, 10, 1, SettingsGroups::PhotonMap, 16, Form::Int},
    {"store_direct_light", &P::pm_store_direct_light, 1, 1, SettingsGroups::PhotonMap, 12, Form::Bool},
    {"max_density", &P::pm_max_density, 0.0f, 1, SettingsGroups::PhotonMap, 14, Form::Float},
    {"params_auto_save_file", &P::pm_params_auto_save_file, int32_t{0}, 1},
    {"show_calc_phase", &P::pm_show_calc_phase, 0, notStored, SettingsGroups::PhotonMap, 17, Form::Bool},
    // The XML repeats auto_search_distance under a second name, as user data.
    {"search_distance_toggle", &P::pm_auto_search_distance, 1, notStored, SettingsGroups::PhotonMap, 18, Form::Bool, {}, true},

    {"subdivs", &P::lc_subdivs, 1000u, 1, SettingsGroups::LightCache, 0, Form::Int},
    {"sample_size", &P::lc_sample_size, 0.02f, 1, SettingsGroups::LightCache, 1, Form::Float},
    {"filter_type", &P::lc_filter_type, 1u, 1, SettingsGroups::LightCache, 2, Form::Int},
    {"filter_size", &P::lc_filter_size, 0.06f, 1, SettingsGroups::LightCache, 4, Form::Float},
    {"depth", &P::lc_depth, 100, 1, SettingsGroups::LightCache, 7, Form::Int},
    {"show_calc_phase", &P::lc_show_calc_phase, 1, 1, SettingsGroups::LightCache, 8, Form::Bool},
    {"store_direct_light", &P::lc_store_direct_light, 1, 1, SettingsGroups::LightCache, 9, Form::Bool},
    {"world_scale", &P::lc_world_scale, 0u, 1, SettingsGroups::LightCache, 10, Form::Int},
    {"mode", &P::lc_mode, 0u, 1, SettingsGroups::LightCache, 11, Form::Int},
    {"params_file", &P::lc_params_file, int32_t{0}, 1},
    {"dont_delete", &P::lc_dont_delete, 1, 1, SettingsGroups::LightCache, 13, Form::Bool},
    {"auto_save", &P::lc_auto_save, 0, 1, SettingsGroups::LightCache, 14, Form::Bool},
    {"params_auto_save_file", &P::lc_params_auto_save_file, int32_t{0}, 1},
    {"filter_samples", &P::lc_filter_samples, 5, 1, SettingsGroups::LightCache, 3, Form::Int},
    {"prefilter", &P::lc_prefilter, 0, 1, SettingsGroups::LightCache, 5, Form::Bool},
    {"prefilter_samples", &P::lc_prefilter_samples, 10, 1, SettingsGroups::LightCache, 6, Form::Int},
    {"use_for_glossy_rays", &P::lc_use_for_glossy_rays, 0, 1, SettingsGroups::LightCache, 17, Form::Bool},
    {"num_passes", &P::lc_num_passes, 8, 1, SettingsGroups::LightCache, 16, Form::Int},
    {"adaptive_sampling", &P::lc_adaptive_sampling, 0, 1, SettingsGroups::LightCache, 18, Form::Bool},
    {"adaptive_dirs_only", &P::lc_adaptive_dirs_only, 0, notStored, SettingsGroups::LightCache, 21, Form::Bool},
    {"min_paths_per_sample", &P::lc_min_paths_per_sample, 16, notStored, SettingsGroups::LightCache, 20, Form::Int},
    {"multiple_views", &P::lc_multiple_views, 0, notStored, SettingsGroups::LightCache, 19, Form::Bool},

    {"on", &P::caustics_on, 0, 1, SettingsGroups::Caustics, 0, Form::Bool},
    {"search_distance", &P::caustics_search_distance, 1e18f, 1, SettingsGroups::Caustics, 2, Form::Float},
    {"max_photons", &P::caustics_max_photons, 50, 1, SettingsGroups::Caustics, 1, Form::Int},
    {"multiplier", &P::caustics_multiplier, 1.0f, 1, SettingsGroups::Caustics, 4, Form::Float},
    {"max_density", &P::caustics_max_density, 0.0f, 1, SettingsGroups::Caustics, 3, Form::Float},
    {"mode", &P::caustics_mode, 0u, 1, SettingsGroups::Caustics, 5, Form::Int},
    {"dont_delete", &P::caustics_dont_delete, 1, 1, SettingsGroups::Caustics, 7, Form::Bool},
    {"auto_save", &P::caustics_auto_save, 0, 1, SettingsGroups::Caustics, 8, Form::Bool},
    {"params_file", &P::caustics_params_file, int32_t{0}, 1},
    {"params_auto_save_file", &P::caustics_params_auto_save_file, int32_t{0}, 1},
    {"show_calc_phase", &P::caustics_show_calc_phase, 0, notStored, SettingsGroups::Caustics, 10, Form::Bool},

    {"maxLevels", &P::maxLevels, 60, 1, SettingsGroups::Raycaster, 0, Form::Int},
    {"minLeafSize", &P::minLeafSize, 0.0f, 1, SettingsGroups::Raycaster, 1, Form::Float},
    {"faceLevelCoef", &P::faceLevelCoef, 2.0f, 1, SettingsGroups::Raycaster, 2, Form::Float},
    {"dynMemLimit", &P::dynMemLimit, 400, 1, SettingsGroups::Raycaster, 3, Form::Int},
    {"optLevel", &P::optLevel, 0, notStored, SettingsGroups::Raycaster, 4, Form::Int},
    {"", &P::raycaster_internal_int, 1, notStored},
    {"xc", &P::xc, 48, 1, SettingsGroups::RegionsGenerator, 0, Form::Int},
    {"yc", &P::yc, 48, 1, SettingsGroups::RegionsGenerator, 1, Form::Int},
    {"xymeans", &P::xymeans, 0, 1, SettingsGroups::RegionsGenerator, 2, Form::Int},
    {"seqtype", &P::seqtype, 4, 1, SettingsGroups::RegionsGenerator, 3, Form::Int},
    {"reverse", &P::reverse, 0, 1, SettingsGroups::RegionsGenerator, 4, Form::Int},
    {"", &P::regions_internal_int, 1, notStored},

    {"", {}, 0, 1, {}, 0, Form::Hidden, {}, false, &reservedWordBefore},
    {"time_dependent", &P::time_dependent, 1, 1, SettingsGroups::DMCSampler, 0, Form::Bool},
    {"", &P::dmc_internal_int, 1, notStored},
    {"", {}, 0, 1, {}, 0, Form::Hidden, {}, false, &reservedWordAfter},
    {"adaptive_amount", &P::adaptive_amount, 0.85f, 1, SettingsGroups::DMCSampler, 1, Form::Float},
    {"adaptive_threshold", &P::adaptive_threshold, 0.01f, 1, SettingsGroups::DMCSampler, 2, Form::Float},
    {"adaptive_min_samples", &P::adaptive_min_samples, 16, 1, SettingsGroups::DMCSampler, 3, Form::Int},
    {"subdivs_mult", &P::subdivs_mult, 1.0f, 1, SettingsGroups::DMCSampler, 4, Form::Float},
    {"path_sampler_type", &P::path_sampler_type, 2, 2, SettingsGroups::DMCSampler, 5, Form::Int, {}, false, &forcedSamplerType},

    {"type", &P::cm_type, 0, 1, SettingsGroups::ColorMapping, 3, Form::Int},
    {"affect_background", &P::affect_background, 1, 1, SettingsGroups::ColorMapping, 4, Form::Bool},
    {"clamp_output", &P::clamp_output, 0, 1, SettingsGroups::ColorMapping, 9, Form::Bool},
    {"subpixel_mapping", &P::subpixel_mapping, 0, 3, SettingsGroups::ColorMapping, 8, Form::Bool},
    {"gamma", &P::cm_gamma, 1.0f, 4, SettingsGroups::ColorMapping, 7, Form::Float},
    {"adaptation_only", &P::adaptation_only, 0, notStored, SettingsGroups::ColorMapping, 11, Form::Bool},
    {"clamp_level", &P::clamp_level, 1.0f, notStored, SettingsGroups::ColorMapping, 10, Form::Float},
    {"linearWorkflow", &P::linearWorkflow, 0, notStored, SettingsGroups::ColorMapping, 12, Form::Bool},

    {"geom_displacement", &P::geom_displacement, 1, 1, SettingsGroups::Options, 0, Form::Bool},
    {"geom_doHidden", &P::geom_doHidden, 1, notStored, SettingsGroups::Options, 1, Form::Bool},
    {"light_doLights", &P::light_doLights, 1, 1, SettingsGroups::Options, 2, Form::Bool},
    {"light_doShadows", &P::light_doShadows, 1, 1, SettingsGroups::Options, 5, Form::Bool},
    {"light_doDefaultLights", &P::light_doDefaultLights, 1, 1, SettingsGroups::Options, 3, Form::Bool},
    {"light_onlyGI", &P::light_onlyGI, 0, 1, SettingsGroups::Options, 6, Form::Bool},
    {"light_doHiddenLights", &P::light_doHiddenLights, 1, 1, SettingsGroups::Options, 4, Form::Bool},
    {"mtl_reflectionRefraction", &P::mtl_reflectionRefraction, 1, 1, SettingsGroups::Options, 8, Form::Bool},
    {"mtl_limitDepth", &P::mtl_limitDepth, 0, 1, SettingsGroups::Options, 9, Form::Bool},
    {"mtl_maxDepth", &P::mtl_maxDepth, 2, 1, SettingsGroups::Options, 10, Form::Int},
    {"mtl_doMaps", &P::mtl_doMaps, 1, 1, SettingsGroups::Options, 11, Form::Bool},
    {"mtl_filterMaps", &P::mtl_filterMaps, 1, 1, SettingsGroups::Options, 12, Form::Bool},
    {"mtl_filterMapsForSecondaryRays", &P::mtl_filterMapsForSecondaryRays, 1, notStored, SettingsGroups::Options, 13, Form::Bool},
    {"mtl_transpMaxLevels", &P::mtl_transpMaxLevels, 50, 1, SettingsGroups::Options, 14, Form::Int},
    {"mtl_transpCutoff", &P::mtl_transpCutoff, 0.001f, 1, SettingsGroups::Options, 15, Form::Float},
    {"mtl_glossy", &P::mtl_glossy, 1, 1, SettingsGroups::Options, 17, Form::Bool},
    {"gi_dontRenderImage", &P::gi_dontRenderImage, 0, 1, SettingsGroups::Options, 7, Form::Bool},
    {"mtl_override_on", &P::mtl_override_on, 0, 1, SettingsGroups::Options, 16, Form::Bool},
    {"ray_bias", &P::ray_bias, 0.0f, 1, SettingsGroups::Options, 19, Form::Float},
    {"", &P::options_internal_float, 20.0f, notStored},
    {"", &P::options_internal_int, 0, notStored},
    {"options_aux_int", &P::options_aux_int, 1, 1},
    {"misc_lowThreadPriority", &P::misc_lowThreadPriority, 0, 1, SettingsGroups::Options, 20, Form::Bool},
    {"geom_backfaceCull", &P::geom_backfaceCull, 0, notStored, SettingsGroups::Options, 18, Form::Bool},

    {"override_on", &P::displacement_override_on, 1, 1, SettingsGroups::DefaultDisplacement, 0, Form::Bool},
    {"edgeLength", &P::edgeLength, 4.0f, 1, SettingsGroups::DefaultDisplacement, 1, Form::Float},
    {"viewDependent", &P::viewDependent, 1, 1, SettingsGroups::DefaultDisplacement, 2, Form::Bool},
    {"maxSubdivs", &P::maxSubdivs, 256, 1, SettingsGroups::DefaultDisplacement, 3, Form::Int},
    {"tightBounds", &P::tightBounds, 1, 1, SettingsGroups::DefaultDisplacement, 4, Form::Bool},
    {"amount", &P::displacement_amount, 1.0f, 1, SettingsGroups::DefaultDisplacement, 5, Form::Float},
    {"relative", &P::displacement_relative, 0, 1, SettingsGroups::DefaultDisplacement, 6, Form::Bool},
    {"displacement_aux_int_1", &P::displacement_aux_int_1, 0, 1},
    {"displacement_aux_int_2", &P::displacement_aux_int_2, 16, 1},
    {"", &P::params_internal_int_1, 1, notStored},
    {"", &P::params_internal_int_2, 3, notStored},
});
CINDREL_CHECK_SETTINGS(settingsTableValid(table));

}  // namespace TalvexCore::ParamsSettings
