// The settings table of the frame data: every field once, in stored order.
#pragma once

#include <array>

#include "options/settings_groups.h"
#include "options/talvex_frame_data.h"
#include "records/settings_table.h"

namespace TalvexCore::FrameDataSettings {

using F = NuvaUtils::NuvaFrameData;

// The record: every field, in this order, 340 bytes with the tag. The frame data's own asset shows
// the rows of the group FrameData; the options' groups show the others.
inline constexpr auto table = std::to_array<Setting<F>>({
    {"t", &F::t, 0.0, 1, SettingsGroups::FrameData, 0, Form::Float},
    {"frameStart", &F::frameStart, 0.0, 1, SettingsGroups::FrameData, 1, Form::Float},
    {"frameEnd", &F::frameEnd, 1.0, 1, SettingsGroups::FrameData, 2, Form::Float},
    {"currentFrame", &F::currentFrame, 0, 1, SettingsGroups::FrameData, 3, Form::Int},
    {"worldToCam", &F::worldToCam, int32_t{0}, 1, SettingsGroups::FrameData, 4, Form::Transform},
    {"camToWorld", &F::camToWorld, int32_t{0}, 1, SettingsGroups::FrameData, 5, Form::Transform},
    {"fov", &F::fov, 0.0f, 1, SettingsGroups::FrameData, 6, Form::Float},
    {"nearRange", &F::nearRange, 0.0f, 1, SettingsGroups::FrameData, 7, Form::Float},
    {"farRange", &F::farRange, 0.0f, 1, SettingsGroups::FrameData, 8, Form::Float},
    {"focal_dist", &F::focal_dist, 200.0f, 1, SettingsGroups::CameraDof, 4, Form::Float},
    {"aperture", &F::aperture, 0.1f, 1, SettingsGroups::CameraDof, 2, Form::Float},
    {"rotation", &F::rotation, 0.0f, 1, SettingsGroups::CameraDof, 7, Form::Float},
    {"clippingPlanes", &F::clippingPlanes, 0, 1, SettingsGroups::FrameData, 9, Form::Int},
    {"clipNear", &F::clipNear, 0.0f, 1, SettingsGroups::FrameData, 10, Form::Float},
    {"clipFar", &F::clipFar, 0.0f, 1, SettingsGroups::FrameData, 11, Form::Float},
    {"projType", &F::projType, 0, 1, SettingsGroups::FrameData, 12, Form::Int},
    {"zoomFractor", &F::zoomFractor, 1.0f, 1, SettingsGroups::FrameData, 13, Form::Float},
    {"infiniteProj", &F::infiniteProj, 0, 1, SettingsGroups::FrameData, 14, Form::Int},
    {"height", &F::height, 400.0f, 1, SettingsGroups::Camera, 1, Form::Float},
    {"auto_fit", &F::auto_fit, 1, 1, SettingsGroups::Camera, 4, Form::Bool},
    {"dist", &F::dist, 2.0f, 1, SettingsGroups::Camera, 2, Form::Float},
    {"curve", &F::curve, 1.0f, 1, SettingsGroups::Camera, 5, Form::Float},
    {"orthoAdjustToScene", &F::orthoAdjustToScene, 0, 1, SettingsGroups::FrameData, 15, Form::Int},
    {"ambient", &F::ambient, Color{}, 1, SettingsGroups::FrameData, 16, Form::Color},
    {"background", &F::background, Color{}, 1, SettingsGroups::FrameData, 17, Form::Color},
    {"globalLightLevel", &F::globalLightLevel, Color{}, 1, SettingsGroups::FrameData, 18, Form::Color},
    {"nuvaGIBackground", &F::nuvaGIBackground, Color{}, 1, SettingsGroups::FrameData, 19, Form::Color},
    {"nuvaRRBackground", &F::nuvaRRBackground, Color{}, 1, SettingsGroups::FrameData, 20, Form::Color},
    {"nuvaRefractBackground", &F::nuvaRefractBackground, Color{}, 1, SettingsGroups::FrameData, 21, Form::Color},
    {"rgn_left", &F::rgn_left, 0.0f, 1, SettingsGroups::Output, 7, Form::Float},
    {"rgn_width", &F::rgn_width, 0.0f, 1, SettingsGroups::Output, 8, Form::Float},
    {"rgn_top", &F::rgn_top, 0.0f, 1, SettingsGroups::Output, 9, Form::Float},
    {"rgn_height", &F::rgn_height, 0.0f, 1, SettingsGroups::Output, 10, Form::Float},
    {"frame_aux_int_1", &F::frame_aux_int_1, 0, 1},
    {"frame_aux_int_2", &F::frame_aux_int_2, 0, 1},
    {"bmp_width", &F::bmp_width, 0, 1, SettingsGroups::Output, 11, Form::Int},
    {"bmp_height", &F::bmp_height, 0, 1, SettingsGroups::Output, 12, Form::Int},
    {"r_left", &F::r_left, 0, 1, SettingsGroups::Output, 13, Form::Int},
    {"r_width", &F::r_width, 0, 1, SettingsGroups::Output, 14, Form::Int},
    {"r_top", &F::r_top, 0, 1, SettingsGroups::Output, 15, Form::Int},
    {"r_height", &F::r_height, 0, 1, SettingsGroups::Output, 16, Form::Int},
    {"devAspect", &F::devAspect, 1.0f, 1, SettingsGroups::FrameData, 22, Form::Float},
    {"fieldMask", &F::fieldMask, 3, 1, SettingsGroups::FrameData, 23, Form::Int},
    {"fieldOrder", &F::fieldOrder, 0, 1, SettingsGroups::FrameData, 24, Form::Int},
    {"firstField", &F::firstField, 0, 1, SettingsGroups::FrameData, 25, Form::Int},
    {"dark_mult", &F::dark_mult, 1.0f, 1, SettingsGroups::ColorMapping, 5, Form::Float},
    {"bright_mult", &F::bright_mult, 1.0f, 1, SettingsGroups::ColorMapping, 6, Form::Float},
});
CINDREL_CHECK_SETTINGS(settingsTableValid(table));

}  // namespace TalvexCore::FrameDataSettings
