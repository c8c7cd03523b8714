// The settings groups: the 22 assets of an options file in their order, and the frame data's own.
#pragma once

#include <array>
#include <string_view>

namespace TalvexCore::SettingsGroups {

inline constexpr std::string_view ImageSampler = "SettingsImageSampler";
inline constexpr std::string_view ImageFilter = "SettingsImageFilter";
inline constexpr std::string_view Camera = "SettingsCamera";
inline constexpr std::string_view CameraDof = "SettingsCameraDof";
inline constexpr std::string_view MotionBlur = "SettingsMotionBlur";
inline constexpr std::string_view GI = "SettingsGI";
inline constexpr std::string_view IrradianceMap = "SettingsIrradianceMap";
inline constexpr std::string_view PhotonMap = "SettingsPhotonMap";
inline constexpr std::string_view LightCache = "SettingsLightCache";
inline constexpr std::string_view Caustics = "SettingsCaustics";
inline constexpr std::string_view Raycaster = "SettingsRaycaster";
inline constexpr std::string_view RegionsGenerator = "SettingsRegionsGenerator";
inline constexpr std::string_view DMCGI = "SettingsDMCGI";
inline constexpr std::string_view DMCSampler = "SettingsDMCSampler";
inline constexpr std::string_view ColorMapping = "SettingsColorMapping";
inline constexpr std::string_view RenderChannels = "SettingsRenderChannels";
inline constexpr std::string_view Options = "SettingsOptions";
inline constexpr std::string_view DefaultDisplacement = "SettingsDefaultDisplacement";
inline constexpr std::string_view Environment = "SettingsEnvironment";
inline constexpr std::string_view Output = "SettingsOutput";
inline constexpr std::string_view CameraPhysical = "CameraPhysical";
inline constexpr std::string_view DR = "SettingsDR";
// Not an options asset: the frame data's own.
inline constexpr std::string_view FrameData = "FrameData";

// The order of the assets of an options file.
inline constexpr std::array<std::string_view, 22> inOrder = {
    ImageSampler, ImageFilter, Camera, CameraDof, MotionBlur, GI, IrradianceMap, PhotonMap,
    LightCache, Caustics, Raycaster, RegionsGenerator, DMCGI, DMCSampler, ColorMapping, RenderChannels,
    Options, DefaultDisplacement, Environment, Output, CameraPhysical, DR,
};

}  // namespace TalvexCore::SettingsGroups
