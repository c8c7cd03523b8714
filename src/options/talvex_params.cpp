#include "options/talvex_params.h"

#include "materials/record_io.h"

namespace TalvexCore {

namespace {

using P = NuvaUtils::NuvaParams;
using G = SettingsGroup;
using Row = Setting<P>;
constexpr FlagField<P> flag(int32_t P::*member) { return {member}; }

// Stored order of the version 5 record. Rows with no version are held and shown, never stored.
constexpr Row rows[] = {
    {"on", flag(&P::filter_on), 0, 1, G::SettingsImageFilter, 0},
    {"type", &P::sampler_type, 0, 1, G::SettingsImageSampler, 0},
    {"fixed_subdivs", &P::fixed_subdivs, 1, 1, G::SettingsImageSampler, 1},
    {"dmc_minSubdivs", &P::dmc_minSubdivs, 1, 1, G::SettingsImageSampler, 2},
    {"dmc_maxSubdivs", &P::dmc_maxSubdivs, 4, 1, G::SettingsImageSampler, 3},
    {"dmc_threshold", &P::dmc_threshold, 0.01f, 1, G::SettingsImageSampler, 4},
    {"subdivision_minRate", &P::subdivision_minRate, -1, 1, G::SettingsImageSampler, 5},
    {"subdivision_maxRate", &P::subdivision_maxRate, 2, 1, G::SettingsImageSampler, 6},
    {"subdivision_threshold", &P::subdivision_threshold, 0.1f, 1, G::SettingsImageSampler, 8},
    {"subdivision_jitter", flag(&P::subdivision_jitter), 1, 1, G::SettingsImageSampler, 7},
    {"subdivision_edges", flag(&P::subdivision_edges), 1, 1, G::SettingsImageSampler, 9},
    {"sampler_aux_int_1", &P::sampler_aux_int_1, 0, 1},
    {"subdivision_normals", flag(&P::subdivision_normals), 0, 1, G::SettingsImageSampler, 10},
    {"subdivision_normals_threshold", &P::subdivision_normals_threshold, 0.1f, 1, G::SettingsImageSampler, 11},
    {"sampler_aux_int_2", &P::sampler_aux_int_2, 0, 1},
    {"sampler_aux_float", &P::sampler_aux_float, 0.0f, 1},

    {"type", &P::camera_type, 0, 1, G::SettingsCamera, 0},
    {"on", flag(&P::dof_on), 0, 1, G::SettingsCameraDof, 1},
    {"subdivs", &P::dof_subdivs, 6, 1, G::SettingsCameraDof, 9},
    {"center_bias", &P::dof_center_bias, 0.0f, 1, G::SettingsCameraDof, 3},
    {"sides_on", flag(&P::dof_sides_on), 0, 1, G::SettingsCameraDof, 5},
    {"sides_num", &P::dof_sides_num, 5, 1, G::SettingsCameraDof, 6},
    {"anisotropy", &P::dof_anisotropy, 0.0f, 1, G::SettingsCameraDof, 8},

    {"on", flag(&P::moblur_on), 0, 1, G::SettingsMotionBlur, 0},
    {"geom_samples", &P::geom_samples, 2, 1, G::SettingsMotionBlur, 1},
    {"moblur_aux_int_1", &P::moblur_aux_int_1, 0, 1},
    {"moblur_aux_int_2", &P::moblur_aux_int_2, 6, 1},
    {"subdivs", &P::moblur_subdivs, 6, 1, G::SettingsMotionBlur, 4},
    // No reset sets the next four; a fresh object holds zero there.
    {"moblur_aux_float_1", &P::moblur_aux_float_1, {}, 1},
    {"moblur_aux_int_3", &P::moblur_aux_int_3, 0, 1},
    {"moblur_aux_int_4", &P::moblur_aux_int_4, {}, 1},
    {"moblur_aux_int_5", &P::moblur_aux_int_5, {}, 1},
    {"moblur_aux_float_2", &P::moblur_aux_float_2, {}, 1},
    {"low_samples", &P::low_samples, 1, 1, G::SettingsMotionBlur, 2},
    {"duration", &P::duration, 1.0f, 1, G::SettingsMotionBlur, 3},
    {"interval_center", &P::interval_center, 0.5f, 1, G::SettingsMotionBlur, 6},
    {"moblur_aux_int_6", &P::moblur_aux_int_6, 0, 1},
    {"bias", &P::moblur_bias, 0.0f, 1, G::SettingsMotionBlur, 5},

    {"on", flag(&P::gi_on), 0, 1, G::SettingsGI, 0},
    {"refract_caustics", flag(&P::refract_caustics), 1, 1, G::SettingsGI, 1},
    {"reflect_caustics", flag(&P::reflect_caustics), 0, 1, G::SettingsGI, 2},
    {"saturation", &P::saturation, 1.0f, 1, G::SettingsGI, 3},
    {"contrast", &P::contrast, 1.0f, 1, G::SettingsGI, 4},
    {"contrast_base", &P::contrast_base, 0.5f, 1, G::SettingsGI, 5},
    {"primary_engine", &P::primary_engine, 0u, 1, G::SettingsGI, 6},
    {"primary_multiplier", &P::primary_multiplier, 1.0f, 1, G::SettingsGI, 7},
    {"secondary_engine", &P::secondary_engine, 2u, 1, G::SettingsGI, 8},
    {"secondary_multiplier", &P::secondary_multiplier, 1.0f, 1, G::SettingsGI, 9},
    {"subdivs", &P::dmcgi_subdivs, 8, 1, G::SettingsDMCGI, 0},
    {"depth", &P::dmcgi_depth, 3, 1, G::SettingsDMCGI, 1},
    {"save_maps_per_frame", flag(&P::save_maps_per_frame), 0, 1, G::SettingsGI, 10},
    {"", &P::gi_internal_float_1, 10.0f},
    {"", &P::gi_internal_int_1, 8},
    {"", &P::gi_internal_float_2, 0.8f},
    {"", &P::gi_internal_int_2, 0},
    {"", &P::gi_internal_float_3, 1e6f},

    {"min_rate", &P::im_min_rate, -3, 1, G::SettingsIrradianceMap, 0},
    {"max_rate", &P::im_max_rate, 0, 1, G::SettingsIrradianceMap, 1},
    {"subdivs", &P::im_subdivs, 50, 1, G::SettingsIrradianceMap, 2},
    {"interp_samples", &P::im_interp_samples, 20, 1, G::SettingsIrradianceMap, 3},
    {"calc_interp_samples", &P::im_calc_interp_samples, 15, 1, G::SettingsIrradianceMap, 4},
    {"color_threshold", &P::im_color_threshold, 0.3f, 1, G::SettingsIrradianceMap, 6},
    {"normal_threshold", &P::im_normal_threshold, 0.1f, 1, G::SettingsIrradianceMap, 7},
    {"distance_threshold", &P::im_distance_threshold, 0.1f, 1, G::SettingsIrradianceMap, 8},
    {"show_samples", flag(&P::im_show_samples), 0, 1, G::SettingsIrradianceMap, 19},
    {"interpolation_mode", &P::im_interpolation_mode, 1, 1, G::SettingsIrradianceMap, 14},
    {"mode", &P::im_mode, 0u, 1, G::SettingsIrradianceMap, 16},
    {"dont_delete", flag(&P::im_dont_delete), 1, 1, G::SettingsIrradianceMap, 17},
    {"randomize_samples", flag(&P::im_randomize_samples), 1, 1, G::SettingsIrradianceMap, 13},
    {"show_calc_phase", flag(&P::im_show_calc_phase), 1, 1, G::SettingsIrradianceMap, 20},
    {"show_direct_light", flag(&P::im_show_direct_light), 0, 1, G::SettingsIrradianceMap, 21},
    {"multipass", flag(&P::im_multipass), 1, 1, G::SettingsIrradianceMap, 23},
    {"auto_save", flag(&P::im_auto_save), 0, 1, G::SettingsIrradianceMap, 25},
    {"params_file", &P::im_params_file, {}, 1},
    {"lookup_mode", &P::im_lookup_mode, 3, 1, G::SettingsIrradianceMap, 15},
    {"check_sample_visibility", flag(&P::im_check_sample_visibility), 0, 1, G::SettingsIrradianceMap, 24},
    {"irradiance_aux_int", &P::irradiance_aux_int, 0, 1},
    {"params_auto_save_file", &P::im_params_auto_save_file, {}, 1},
    // Versions 1 to 4 hold one float here instead of the four detail values.
    {"", ReservedWord{0.0f}, {}, 1, G::None, -1, {}, false, 4},
    {"detail_enhancement", flag(&P::im_detail_enhancement), 0, 5, G::SettingsIrradianceMap, 9},
    {"detail_radius", &P::im_detail_radius, 60.0f, 5, G::SettingsIrradianceMap, 10},
    {"detail_subdivs_mult", &P::im_detail_subdivs_mult, 0.3f, 5, G::SettingsIrradianceMap, 11},
    {"detail_scale", &P::im_detail_scale, 0u, 5, G::SettingsIrradianceMap, 12},
    {"", &P::im_internal_int, 2},
    {"interp_frames", &P::im_interp_frames, 2, neverStored, G::SettingsIrradianceMap, 5},
    {"multiple_views", flag(&P::im_multiple_views), 0, neverStored, G::SettingsIrradianceMap, 22},

    {"bounces", &P::pm_bounces, 10, 1, G::SettingsPhotonMap, 0},
    {"search_distance", &P::pm_search_distance, 20.0f, 1, G::SettingsPhotonMap, 7},
    {"max_photons", &P::pm_max_photons, 30, 1, G::SettingsPhotonMap, 1},
    {"prefilter", flag(&P::pm_prefilter), 0, 1, G::SettingsPhotonMap, 2},
    {"prefilter_samples", &P::pm_prefilter_samples, 10, 1, G::SettingsPhotonMap, 3},
    {"mode", &P::pm_mode, 0u, 1, G::SettingsPhotonMap, 4},
    {"multiplier", &P::pm_multiplier, 1.0f, 1, G::SettingsPhotonMap, 13},
    {"auto_search_distance", flag(&P::pm_auto_search_distance), 1, 1, G::SettingsPhotonMap, 6},
    {"convex_hull_estimate", flag(&P::pm_convex_hull_estimate), 0, 1, G::SettingsPhotonMap, 8},
    {"dont_delete", flag(&P::pm_dont_delete), 1, 1, G::SettingsPhotonMap, 9},
    {"auto_save", flag(&P::pm_auto_save), 0, 1, G::SettingsPhotonMap, 10},
    {"params_file", &P::pm_params_file, {}, 1},
    {"retrace_corners", &P::pm_retrace_corners, 0.0f, 1, G::SettingsPhotonMap, 15},
    {"retrace_bounces", &P::pm_retrace_bounces, 10, 1, G::SettingsPhotonMap, 16},
    {"store_direct_light", flag(&P::pm_store_direct_light), 1, 1, G::SettingsPhotonMap, 12},
    {"max_density", &P::pm_max_density, 0.0f, 1, G::SettingsPhotonMap, 14},
    {"params_auto_save_file", &P::pm_params_auto_save_file, {}, 1},
    {"show_calc_phase", flag(&P::pm_show_calc_phase), 0, neverStored, G::SettingsPhotonMap, 17},
    // The XML repeats auto_search_distance under a second name, as user data.
    {"search_distance_toggle", flag(&P::pm_auto_search_distance), 1, neverStored, G::SettingsPhotonMap, 18, {}, true},

    {"subdivs", &P::lc_subdivs, 1000u, 1, G::SettingsLightCache, 0},
    {"sample_size", &P::lc_sample_size, 0.02f, 1, G::SettingsLightCache, 1},
    {"filter_type", &P::lc_filter_type, 1u, 1, G::SettingsLightCache, 2},
    {"filter_size", &P::lc_filter_size, 0.06f, 1, G::SettingsLightCache, 4},
    {"depth", &P::lc_depth, 100, 1, G::SettingsLightCache, 7},
    {"show_calc_phase", flag(&P::lc_show_calc_phase), 1, 1, G::SettingsLightCache, 8},
    {"store_direct_light", flag(&P::lc_store_direct_light), 1, 1, G::SettingsLightCache, 9},
    {"world_scale", &P::lc_world_scale, 0u, 1, G::SettingsLightCache, 10},
    {"mode", &P::lc_mode, 0u, 1, G::SettingsLightCache, 11},
    {"params_file", &P::lc_params_file, {}, 1},
    {"dont_delete", flag(&P::lc_dont_delete), 1, 1, G::SettingsLightCache, 13},
    {"auto_save", flag(&P::lc_auto_save), 0, 1, G::SettingsLightCache, 14},
    {"params_auto_save_file", &P::lc_params_auto_save_file, {}, 1},
    {"filter_samples", &P::lc_filter_samples, 5, 1, G::SettingsLightCache, 3},
    {"prefilter", flag(&P::lc_prefilter), 0, 1, G::SettingsLightCache, 5},
    {"prefilter_samples", &P::lc_prefilter_samples, 10, 1, G::SettingsLightCache, 6},
    {"use_for_glossy_rays", flag(&P::lc_use_for_glossy_rays), 0, 1, G::SettingsLightCache, 17},
    {"num_passes", &P::lc_num_passes, 8, 1, G::SettingsLightCache, 16},
    {"adaptive_sampling", flag(&P::lc_adaptive_sampling), 0, 1, G::SettingsLightCache, 18},
    {"adaptive_dirs_only", flag(&P::lc_adaptive_dirs_only), 0, neverStored, G::SettingsLightCache, 21},
    {"min_paths_per_sample", &P::lc_min_paths_per_sample, 16, neverStored, G::SettingsLightCache, 20},
    {"multiple_views", flag(&P::lc_multiple_views), 0, neverStored, G::SettingsLightCache, 19},

    {"on", flag(&P::caustics_on), 0, 1, G::SettingsCaustics, 0},
    {"search_distance", &P::caustics_search_distance, 1e18f, 1, G::SettingsCaustics, 2},
    {"max_photons", &P::caustics_max_photons, 50, 1, G::SettingsCaustics, 1},
    {"multiplier", &P::caustics_multiplier, 1.0f, 1, G::SettingsCaustics, 4},
    {"max_density", &P::caustics_max_density, 0.0f, 1, G::SettingsCaustics, 3},
    {"mode", &P::caustics_mode, 0u, 1, G::SettingsCaustics, 5},
    {"dont_delete", flag(&P::caustics_dont_delete), 1, 1, G::SettingsCaustics, 7},
    {"auto_save", flag(&P::caustics_auto_save), 0, 1, G::SettingsCaustics, 8},
    {"params_file", &P::caustics_params_file, {}, 1},
    {"params_auto_save_file", &P::caustics_params_auto_save_file, {}, 1},
    {"show_calc_phase", flag(&P::caustics_show_calc_phase), 0, neverStored, G::SettingsCaustics, 10},

    {"maxLevels", &P::maxLevels, 60, 1, G::SettingsRaycaster, 0},
    {"minLeafSize", &P::minLeafSize, 0.0f, 1, G::SettingsRaycaster, 1},
    {"faceLevelCoef", &P::faceLevelCoef, 2.0f, 1, G::SettingsRaycaster, 2},
    {"dynMemLimit", &P::dynMemLimit, 400, 1, G::SettingsRaycaster, 3},
    {"optLevel", &P::optLevel, 0, neverStored, G::SettingsRaycaster, 4},
    {"", &P::raycaster_internal_int, 1},
    {"xc", &P::xc, 48, 1, G::SettingsRegionsGenerator, 0},
    {"yc", &P::yc, 48, 1, G::SettingsRegionsGenerator, 1},
    {"xymeans", &P::xymeans, 0, 1, G::SettingsRegionsGenerator, 2},
    {"seqtype", &P::seqtype, 4, 1, G::SettingsRegionsGenerator, 3},
    {"reverse", &P::reverse, 0, 1, G::SettingsRegionsGenerator, 4},
    {"", &P::regions_internal_int, 1},

    {"", ReservedWord{0}, {}, 1},
    {"time_dependent", flag(&P::time_dependent), 1, 1, G::SettingsDMCSampler, 0},
    {"", &P::dmc_internal_int, 1},
    {"", ReservedWord{1.0f}, {}, 1},
    {"adaptive_amount", &P::adaptive_amount, 0.85f, 1, G::SettingsDMCSampler, 1},
    {"adaptive_threshold", &P::adaptive_threshold, 0.01f, 1, G::SettingsDMCSampler, 2},
    {"adaptive_min_samples", &P::adaptive_min_samples, 16, 1, G::SettingsDMCSampler, 3},
    {"subdivs_mult", &P::subdivs_mult, 1.0f, 1, G::SettingsDMCSampler, 4},
    Row{"path_sampler_type", &P::path_sampler_type, 2, 2, G::SettingsDMCSampler, 5}.forcedToDefault(),

    {"type", &P::cm_type, 0, 1, G::SettingsColorMapping, 3},
    {"affect_background", flag(&P::affect_background), 1, 1, G::SettingsColorMapping, 4},
    {"clamp_output", flag(&P::clamp_output), 0, 1, G::SettingsColorMapping, 9},
    {"subpixel_mapping", flag(&P::subpixel_mapping), 0, 3, G::SettingsColorMapping, 8},
    {"gamma", &P::cm_gamma, 1.0f, 4, G::SettingsColorMapping, 7},
    {"adaptation_only", flag(&P::adaptation_only), 0, neverStored, G::SettingsColorMapping, 11},
    {"clamp_level", &P::clamp_level, 1.0f, neverStored, G::SettingsColorMapping, 10},
    {"linearWorkflow", flag(&P::linearWorkflow), 0, neverStored, G::SettingsColorMapping, 12},

    {"geom_displacement", flag(&P::geom_displacement), 1, 1, G::SettingsOptions, 0},
    {"geom_doHidden", flag(&P::geom_doHidden), 1, neverStored, G::SettingsOptions, 1},
    {"light_doLights", flag(&P::light_doLights), 1, 1, G::SettingsOptions, 2},
    {"light_doShadows", flag(&P::light_doShadows), 1, 1, G::SettingsOptions, 5},
    {"light_doDefaultLights", flag(&P::light_doDefaultLights), 1, 1, G::SettingsOptions, 3},
    {"light_onlyGI", flag(&P::light_onlyGI), 0, 1, G::SettingsOptions, 6},
    {"light_doHiddenLights", flag(&P::light_doHiddenLights), 1, 1, G::SettingsOptions, 4},
    {"mtl_reflectionRefraction", flag(&P::mtl_reflectionRefraction), 1, 1, G::SettingsOptions, 8},
    {"mtl_limitDepth", flag(&P::mtl_limitDepth), 0, 1, G::SettingsOptions, 9},
    {"mtl_maxDepth", &P::mtl_maxDepth, 2, 1, G::SettingsOptions, 10},
    {"mtl_doMaps", flag(&P::mtl_doMaps), 1, 1, G::SettingsOptions, 11},
    {"mtl_filterMaps", flag(&P::mtl_filterMaps), 1, 1, G::SettingsOptions, 12},
    {"mtl_filterMapsForSecondaryRays", flag(&P::mtl_filterMapsForSecondaryRays), 1, neverStored, G::SettingsOptions, 13},
    {"mtl_transpMaxLevels", &P::mtl_transpMaxLevels, 50, 1, G::SettingsOptions, 14},
    {"mtl_transpCutoff", &P::mtl_transpCutoff, 0.001f, 1, G::SettingsOptions, 15},
    {"mtl_glossy", flag(&P::mtl_glossy), 1, 1, G::SettingsOptions, 17},
    {"gi_dontRenderImage", flag(&P::gi_dontRenderImage), 0, 1, G::SettingsOptions, 7},
    {"mtl_override_on", flag(&P::mtl_override_on), 0, 1, G::SettingsOptions, 16},
    {"ray_bias", &P::ray_bias, 0.0f, 1, G::SettingsOptions, 19},
    {"", &P::options_internal_float, 20.0f},
    {"", &P::options_internal_int, 0},
    {"options_aux_int", &P::options_aux_int, 1, 1},
    {"misc_lowThreadPriority", flag(&P::misc_lowThreadPriority), 0, 1, G::SettingsOptions, 20},
    {"geom_backfaceCull", flag(&P::geom_backfaceCull), 0, neverStored, G::SettingsOptions, 18},

    {"override_on", flag(&P::displacement_override_on), 1, 1, G::SettingsDefaultDisplacement, 0},
    {"edgeLength", &P::edgeLength, 4.0f, 1, G::SettingsDefaultDisplacement, 1},
    {"viewDependent", flag(&P::viewDependent), 1, 1, G::SettingsDefaultDisplacement, 2},
    {"maxSubdivs", &P::maxSubdivs, 256, 1, G::SettingsDefaultDisplacement, 3},
    {"tightBounds", flag(&P::tightBounds), 1, 1, G::SettingsDefaultDisplacement, 4},
    {"amount", &P::displacement_amount, 1.0f, 1, G::SettingsDefaultDisplacement, 5},
    {"relative", flag(&P::displacement_relative), 0, 1, G::SettingsDefaultDisplacement, 6},
    {"displacement_aux_int_1", &P::displacement_aux_int_1, 0, 1},
    {"displacement_aux_int_2", &P::displacement_aux_int_2, 16, 1},
    {"", &P::params_internal_int_1, 1},
    {"", &P::params_internal_int_2, 3},
};

}  // namespace

std::span<const Setting<NuvaUtils::NuvaParams>> TalvexParams::settings()
{
    return rows;
}

void TalvexParams::resetDefaults()
{
    resetSettings<P>(*this, rows);
}

bool TalvexParams::writeBinary(QuickArchive& out) const
{
    writeVersion(out, newestVersion);
    return writeSettings<P>(out, *this, rows, newestVersion);
}

bool TalvexParams::readBinary(QuickArchive& in)
{
    uint32_t tag = 0;
    in.readU32(tag);
    resetDefaults();
    const uint32_t version = versionOf(tag);
    if ((tag & 0xFFFF) != 0 || version < 1 || version > newestVersion) return false;
    return readSettings<P>(in, *this, rows, version);
}

bool TalvexParams::isEqual(const TalvexParams& other) const
{
    return equalSettings<P>(*this, other, rows);
}

}  // namespace TalvexCore
