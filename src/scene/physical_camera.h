// PhysicalCamera: the stored parameters of a physical camera, described by one settings table.
#pragma once

#include <array>
#include <cstdint>

#include "archive/value_types.h"
#include "records/settings_table.h"
#include "scene/animated_setting.h"
#include "scene/animated_values.h"
#include "scene/base_camera.h"

namespace TalvexCore {

// Flags are i32. The render options embed one and show it as their "CameraPhysical" group; the
// camera itself writes no XML.
class PhysicalCamera : public BaseCamera {
public:
    static constexpr uint32_t TypeId = 0;

    int32_t type = 0;
    float film_width = 0;
    AnimatedReal focal_length{true};
    float zoom_factor = 0;
    float distortion = 0;
    float f_number = 0;
    float lens_shift = 0;
    float shutter_speed = 0;
    float shutter_angle = 0;
    float shutter_offset = 0;
    float latency = 0;
    float ISO = 0;
    int32_t specify_focus = 0;
    AnimatedReal focus_distance{true};
    int32_t targeted = 0;
    float target_distance = 0;
    float dof_display_threshold = 0;
    int32_t exposure = 0;
    Color white_balance;
    int32_t vignetting = 0;
    int32_t blades_enable = 0;
    int32_t blades_num = 0;
    float blades_rotation = 0;
    float center_bias = 0;
    float anisotropy = 0;
    int32_t use_dof = 0;
    int32_t use_moblur = 0;
    int32_t subdivs = 0;

    PhysicalCamera() { resetDefaults(); }

    bool writeBinary(QuickArchive& out) const override;
    // Version 1 stores the two lens values as single numbers and ends after use_dof.
    bool readBinary(QuickArchive& in) override;
    uint32_t typeId() const override { return TypeId; }
    CameraPtr clone() const override { return std::make_shared<PhysicalCamera>(*this); }
    void resetDefaults() override;
    bool isEqual(const CameraPtr& other) const override;
    bool operator==(const PhysicalCamera& other) const;

    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"CameraPhysical">(); }
    const std::u16string& assetType() const override { return typeName<u"settings">(); }
};

inline constexpr auto focalLengthSetting = keyedRealSetting<&PhysicalCamera::focal_length, 40, 2>();
inline constexpr auto focusDistanceSetting = keyedRealSetting<&PhysicalCamera::focus_distance, 200, 2>();

// Record order; the XML group "CameraPhysical" shows them at places 1 to 28, between values that
// the render options hold themselves.
inline constexpr std::array<Setting<PhysicalCamera>, 28> physicalCameraSettings{{
    {"type", &PhysicalCamera::type, 0, 1, "CameraPhysical", 1, Form::Int},
    {"film_width", &PhysicalCamera::film_width, 36.0f, 1, "CameraPhysical", 2, Form::Float},
    {"focal_length", {}, 0, 1, "CameraPhysical", 3, Form::Float, {}, false, &focalLengthSetting},
    {"zoom_factor", &PhysicalCamera::zoom_factor, 1.0f, 1, "CameraPhysical", 4, Form::Float},
    {"distortion", &PhysicalCamera::distortion, 0.0f, 1, "CameraPhysical", 5, Form::Float},
    {"f_number", &PhysicalCamera::f_number, 8.0f, 1, "CameraPhysical", 6, Form::Float},
    {"lens_shift", &PhysicalCamera::lens_shift, 0.0f, 1, "CameraPhysical", 7, Form::Float},
    {"shutter_speed", &PhysicalCamera::shutter_speed, 30.0f, 1, "CameraPhysical", 8, Form::Float},
    {"shutter_angle", &PhysicalCamera::shutter_angle, 180.0f, 1, "CameraPhysical", 9, Form::Float},
    {"shutter_offset", &PhysicalCamera::shutter_offset, 0.0f, 1, "CameraPhysical", 10, Form::Float},
    {"latency", &PhysicalCamera::latency, 0.0f, 1, "CameraPhysical", 11, Form::Float},
    {"ISO", &PhysicalCamera::ISO, 200.0f, 1, "CameraPhysical", 12, Form::Float},
    {"specify_focus", &PhysicalCamera::specify_focus, 0, 1, "CameraPhysical", 13, Form::Bool},
    {"focus_distance", {}, 0, 1, "CameraPhysical", 14, Form::Float, {}, false, &focusDistanceSetting},
    {"targeted", &PhysicalCamera::targeted, 0, 1, "CameraPhysical", 15, Form::Bool},
    {"target_distance", &PhysicalCamera::target_distance, 200.0f, 1, "CameraPhysical", 16, Form::Float},
    {"dof_display_threshold", &PhysicalCamera::dof_display_threshold, 0.0f, 1, "CameraPhysical", 17, Form::Float},
    {"exposure", &PhysicalCamera::exposure, 1, 1, "CameraPhysical", 18, Form::Bool},
    {"white_balance", &PhysicalCamera::white_balance, Color{1, 1, 1}, 1, "CameraPhysical", 19, Form::Color},
    {"vignetting", &PhysicalCamera::vignetting, 1, 1, "CameraPhysical", 20, Form::Bool},
    {"blades_enable", &PhysicalCamera::blades_enable, 0, 1, "CameraPhysical", 21, Form::Bool},
    {"blades_num", &PhysicalCamera::blades_num, 5, 1, "CameraPhysical", 22, Form::Int},
    {"blades_rotation", &PhysicalCamera::blades_rotation, 0.0f, 1, "CameraPhysical", 23, Form::Float},
    {"center_bias", &PhysicalCamera::center_bias, 0.0f, 1, "CameraPhysical", 24, Form::Float},
    {"anisotropy", &PhysicalCamera::anisotropy, 0.0f, 1, "CameraPhysical", 25, Form::Float},
    {"use_dof", &PhysicalCamera::use_dof, 0, 1, "CameraPhysical", 26, Form::Bool},
    {"use_moblur", &PhysicalCamera::use_moblur, 0, 2, "CameraPhysical", 27, Form::Bool},
    {"subdivs", &PhysicalCamera::subdivs, 6, 2, "CameraPhysical", 28, Form::Int},
}};
CINDREL_CHECK_SETTINGS(settingsTableValid(physicalCameraSettings));

}  // namespace TalvexCore
