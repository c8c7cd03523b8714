// AllOptions: the whole render setup of a scene, its record of every version and its 22 settings assets.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "archive/value_types.h"
#include "options/options_base.h"
#include "records/settings_table.h"
#include "scene/physical_camera.h"
#include "options/talvex_frame_data.h"
#include "options/talvex_nfb_stamp_info.h"
#include "options/talvex_params.h"
#include "textures/base_texture.h"

namespace TalvexCore {

class AllOptions : public TalvexOptionsBase {
public:
    // The record's tag has 1 in its low half; versions run 0 to 9, then 0x10 to 0x17.
    static constexpr uint32_t newestVersion = 0x17;
    static constexpr uint32_t tagMark = 1;
    static bool isKnownVersion(uint32_t version) { return version <= 9 || (version >= 0x10 && version <= 0x17); }
    // Render channels a load keeps; the XML names 133 too.
    static constexpr int32_t firstChannel = 100, lastStoredChannel = 132;

    AllOptions() { AllOptions::resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    bool readBinary(QuickArchive& in) override;
    void resetDefaults() override;
    // The 22 settings assets, each in its own Assets element, under `url` and the group's name.
    void writeXml(AssetXmlWriter& writer, const std::u16string& url) const override;
    const std::u16string& pluginType() const override { return typeName<u"AllOptions">(); }

    bool isEqual(const AllOptions& other) const;
    bool operator==(const AllOptions& other) const { return isEqual(other); }

    TalvexParams params;
    TalvexFrameData frameData;
    TalvexNFBStampInfo stampInfo;

    Color bg_color, gi_color, reflect_color, refract_color;
    Color mtl_override_color;
    TexturePtr bg_tex, gi_tex, reflect_tex, refract_tex;
    std::vector<int32_t> channels;

    int32_t use_gi = 0, use_bg = 0;
    int32_t filter_type = 0;  // as stored; the XML exchanges 1 and 2
    int32_t img_height = 0, img_width = 0;
    int32_t override_fov = 0, override_viewport = 0, img_imageAspectLocked = 0, img_pixelAspectLocked = 0;
    int32_t img_rawFile = 0, save_render = 0;
    int32_t focal_dist_not_overridden = 0;
    int32_t show_progress_window = 0;
    int32_t camera_on = 0, override_focal_length = 0;
    float fov = 0;
    float gi_color_mult = 0, bg_color_mult = 0, gi_tex_mult = 0, bg_tex_mult = 0;
    float filter_size = 0;
    float img_pixelAspect = 0, img_imageAspect = 0;
    float zdepth_black = 0, zdepth_white = 0;
    int32_t zdepth_clamp = 0;
    int32_t batch_render = 0;
    int32_t gamma_correct_rgb = 0, gamma_correct_ldr_textures = 0;
    int32_t do_animation = 0, frame_rate = 0;
    float frames_per_second = 0;
    float reflect_color_mult = 0, refract_color_mult = 0, reflect_tex_mult = 0, refract_tex_mult = 0;
    int32_t use_reflect = 0, use_refract = 0;
    int32_t dr_on = 0;
    float all_aux_float_1 = 0, all_aux_float_2 = 0;
    float input_gamma = 0;
    int32_t all_aux_int_1 = 0;
    int32_t asset_coll = 0, dr_mode = 0;
    std::u16string folder;
    int32_t all_aux_int_2 = 0;
    int32_t specify_film_width = 0;

    PhysicalCamera camera;

    // The ten path buffers.
    PathBuffer img_file, nuimg_file;
    PathBuffer irradiance_file, irradiance_auto_save_file;
    PathBuffer light_cache_file, light_cache_auto_save_file;
    PathBuffer photon_file, photon_auto_save_file;
    PathBuffer caustics_file, caustics_auto_save_file;
};

// The name the XML gives a render channel id; empty for an id it does not know.
std::string_view renderChannelName(int32_t id);

}  // namespace TalvexCore
