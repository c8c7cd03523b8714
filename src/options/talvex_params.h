// TalvexParams: most of the render parameters, in the plain structure NuvaParams, and their record.
#pragma once

#include <cstdint>
#include <string>

#include "options/options_base.h"

namespace NuvaUtils {

// The parameter fields, in stored order; the fields no record stores stand where they belong.
struct NuvaParams {
    // SettingsImageFilter, SettingsImageSampler
    int32_t filter_on = 0;
    int32_t sampler_type = 0, fixed_subdivs = 0, dmc_minSubdivs = 0, dmc_maxSubdivs = 0;
    float dmc_threshold = 0;
    int32_t subdivision_minRate = 0, subdivision_maxRate = 0;
    float subdivision_threshold = 0;
    int32_t subdivision_jitter = 0, subdivision_edges = 0, sampler_aux_int_1 = 0, subdivision_normals = 0;
    float subdivision_normals_threshold = 0;
    int32_t sampler_aux_int_2 = 0;
    float sampler_aux_float = 0;
    // SettingsCamera, SettingsCameraDof
    int32_t camera_type = 0;
    int32_t dof_on = 0, dof_subdivs = 0;
    float dof_center_bias = 0;
    int32_t dof_sides_on = 0, dof_sides_num = 0;
    float dof_anisotropy = 0;
    // SettingsMotionBlur
    int32_t moblur_on = 0, geom_samples = 0, moblur_aux_int_1 = 0, moblur_aux_int_2 = 0, moblur_subdivs = 0;
    float moblur_aux_float_1 = 0;
    int32_t moblur_aux_int_3 = 0, moblur_aux_int_4 = 0, moblur_aux_int_5 = 0;
    float moblur_aux_float_2 = 0;
    int32_t low_samples = 0;
    float duration = 0, interval_center = 0;
    int32_t moblur_aux_int_6 = 0;
    float moblur_bias = 0;
    // SettingsGI, SettingsDMCGI
    int32_t gi_on = 0, refract_caustics = 0, reflect_caustics = 0;
    float saturation = 0, contrast = 0, contrast_base = 0;
    uint32_t primary_engine = 0;
    float primary_multiplier = 0;
    uint32_t secondary_engine = 0;
    float secondary_multiplier = 0;
    int32_t dmcgi_subdivs = 0, dmcgi_depth = 0;
    int32_t save_maps_per_frame = 0;
    float gi_internal_float_1 = 0;
    int32_t gi_internal_int_1 = 0;
    float gi_internal_float_2 = 0;
    int32_t gi_internal_int_2 = 0;
    float gi_internal_float_3 = 0;
    // SettingsIrradianceMap
    int32_t im_min_rate = 0, im_max_rate = 0, im_subdivs = 0, im_interp_samples = 0, im_calc_interp_samples = 0;
    float im_color_threshold = 0, im_normal_threshold = 0, im_distance_threshold = 0;
    int32_t im_show_samples = 0, im_interpolation_mode = 0;
    uint32_t im_mode = 0;
    int32_t im_dont_delete = 0, im_randomize_samples = 0, im_show_calc_phase = 0, im_show_direct_light = 0;
    int32_t im_multipass = 0, im_auto_save = 0;
    std::string im_params_file;
    int32_t im_lookup_mode = 0, im_check_sample_visibility = 0, irradiance_aux_int = 0;
    std::string im_params_auto_save_file;
    int32_t im_detail_enhancement = 0;
    float im_detail_radius = 0, im_detail_subdivs_mult = 0;
    uint32_t im_detail_scale = 0;
    int32_t im_internal_int = 0;
    int32_t im_interp_frames = 0, im_multiple_views = 0;
    // SettingsPhotonMap
    int32_t pm_bounces = 0;
    float pm_search_distance = 0;
    int32_t pm_max_photons = 0, pm_prefilter = 0, pm_prefilter_samples = 0;
    uint32_t pm_mode = 0;
    float pm_multiplier = 0;
    int32_t pm_auto_search_distance = 0, pm_convex_hull_estimate = 0, pm_dont_delete = 0, pm_auto_save = 0;
    std::string pm_params_file;
    float pm_retrace_corners = 0;
    int32_t pm_retrace_bounces = 0, pm_store_direct_light = 0;
    float pm_max_density = 0;
    std::string pm_params_auto_save_file;
    int32_t pm_show_calc_phase = 0;
    // SettingsLightCache
    uint32_t lc_subdivs = 0;
    float lc_sample_size = 0;
    uint32_t lc_filter_type = 0;
    float lc_filter_size = 0;
    int32_t lc_depth = 0, lc_show_calc_phase = 0, lc_store_direct_light = 0;
    uint32_t lc_world_scale = 0, lc_mode = 0;
    std::string lc_params_file;
    int32_t lc_dont_delete = 0, lc_auto_save = 0;
    std::string lc_params_auto_save_file;
    int32_t lc_filter_samples = 0, lc_prefilter = 0, lc_prefilter_samples = 0, lc_use_for_glossy_rays = 0;
    int32_t lc_num_passes = 0, lc_adaptive_sampling = 0;
    int32_t lc_adaptive_dirs_only = 0, lc_min_paths_per_sample = 0, lc_multiple_views = 0;
    // SettingsCaustics
    int32_t caustics_on = 0;
    float caustics_search_distance = 0;
    int32_t caustics_max_photons = 0;
    float caustics_multiplier = 0, caustics_max_density = 0;
    uint32_t caustics_mode = 0;
    int32_t caustics_dont_delete = 0, caustics_auto_save = 0;
    std::string caustics_params_file, caustics_params_auto_save_file;
    int32_t caustics_show_calc_phase = 0;
    // SettingsRaycaster, SettingsRegionsGenerator
    int32_t maxLevels = 0;
    float minLeafSize = 0, faceLevelCoef = 0;
    int32_t dynMemLimit = 0, optLevel = 0;
    int32_t raycaster_internal_int = 0;
    int32_t xc = 0, yc = 0, xymeans = 0, seqtype = 0, reverse = 0;
    int32_t regions_internal_int = 0;
    // SettingsDMCSampler
    int32_t time_dependent = 0;
    int32_t dmc_internal_int = 0;
    float adaptive_amount = 0, adaptive_threshold = 0;
    int32_t adaptive_min_samples = 0;
    float subdivs_mult = 0;
    int32_t path_sampler_type = 0;
    // SettingsColorMapping
    int32_t cm_type = 0, affect_background = 0, clamp_output = 0, subpixel_mapping = 0;
    float cm_gamma = 0;
    int32_t adaptation_only = 0;
    float clamp_level = 0;
    int32_t linearWorkflow = 0;
    // SettingsOptions
    int32_t geom_displacement = 0, geom_doHidden = 0, light_doLights = 0, light_doShadows = 0;
    int32_t light_doDefaultLights = 0, light_onlyGI = 0, light_doHiddenLights = 0;
    int32_t mtl_reflectionRefraction = 0, mtl_limitDepth = 0, mtl_maxDepth = 0, mtl_doMaps = 0;
    int32_t mtl_filterMaps = 0, mtl_filterMapsForSecondaryRays = 0, mtl_transpMaxLevels = 0;
    float mtl_transpCutoff = 0;
    int32_t mtl_glossy = 0, gi_dontRenderImage = 0, mtl_override_on = 0;
    float ray_bias = 0;
    float options_internal_float = 0;
    int32_t options_internal_int = 0;
    int32_t options_aux_int = 0, misc_lowThreadPriority = 0, geom_backfaceCull = 0;
    // SettingsDefaultDisplacement
    int32_t displacement_override_on = 0;
    float edgeLength = 0;
    int32_t viewDependent = 0, maxSubdivs = 0, tightBounds = 0;
    float displacement_amount = 0;
    int32_t displacement_relative = 0, displacement_aux_int_1 = 0, displacement_aux_int_2 = 0;
    int32_t params_internal_int_1 = 0, params_internal_int_2 = 0;
};

}  // namespace NuvaUtils

namespace TalvexCore {

class TalvexParams : public TalvexOptionsBase, public NuvaUtils::NuvaParams {
public:
    static constexpr uint32_t newestVersion = 5;

    TalvexParams() { TalvexParams::resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    // The parameters are shown by the options' groups, not by an asset of their own.
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"TalvexParams">(); }

    bool isEqual(const TalvexParams& other) const;
    bool operator==(const TalvexParams& other) const { return isEqual(other); }
};

}  // namespace TalvexCore
