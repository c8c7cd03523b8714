#include "options/all_options.h"

#include <array>

#include "materials/record_io.h"

namespace TalvexCore {

namespace {

using A = AllOptions;
using G = SettingsGroup;
using Row = Setting<A>;
constexpr FlagField<A> flag(int32_t A::*member) { return {member}; }

// An embedded record with a tag of its own; its false ends the load.
template <auto Member>
constexpr SettingKind<A> embedded = {
    .read = [](QuickArchive& in, A& o, uint32_t) { return (o.*Member).readBinary(in); },
    .write = [](QuickArchive& out, const A& o) { return (o.*Member).writeBinary(out); },
    .reset = [](A& o) { (o.*Member).resetDefaults(); },
    .equal = [](const A& a, const A& b) { return (a.*Member).isEqual(b.*Member); },
};

// The parameters, reset as the whole options set starts them: a few values differ from the
// parameters' own defaults.
constexpr SettingKind<A> parameters = {
    .read = embedded<&A::params>.read,
    .write = embedded<&A::params>.write,
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
    .equal = embedded<&A::params>.equal,
};

std::u16string childUrl(const SettingsXmlContext& context, std::u16string_view suffix)
{
    std::u16string url = context.assetUrl;
    url += u'/';
    url += suffix;
    return url;
}

// An environment texture: a presence byte, then the texture's type id and record. Its asset
// stands inside the group's Assets element, ahead of the group's own asset.
template <TexturePtr A::*Slot, const char16_t* Suffix>
constexpr SettingKind<A> textureSlot = {
    .read = [](QuickArchive& in, A& o, uint32_t) { return readChild(in, o.*Slot); },
    .write = [](QuickArchive& out, const A& o) { return writeChild(out, o.*Slot); },
    .reset = [](A& o) { (o.*Slot).reset(); },
    .equal = [](const A& a, const A& b) { return childEqual(a.*Slot, b.*Slot); },
    .emitChildAssets =
        [](AssetXmlWriter& writer, const A& o, const SettingsXmlContext& context) {
            if (o.*Slot) (o.*Slot)->writeXml(writer, childUrl(context, Suffix));
        },
    .emit = [](AssetXmlWriter& writer, const A& o, const Row& row,
               const SettingsXmlContext& context) { writer.writePlugin(row.name, o.*Slot, childUrl(context, Suffix)); },
};
constexpr char16_t bgSuffix[] = u"bg_texture";
constexpr char16_t giSuffix[] = u"gi_texture";
constexpr char16_t reflectSuffix[] = u"reflect_texture";
constexpr char16_t refractSuffix[] = u"refract_texture";

// The multiplier the XML shows: the texture's while a texture is set, else the colour's.
template <TexturePtr A::*Slot, float A::*TextureMult, float A::*ColorMult>
constexpr SettingKind<A> shownMultiplier = {
    .emit = [](AssetXmlWriter& writer, const A& o, const Row& row, const SettingsXmlContext&) {
        writer.writeFloat(row.name, o.*Slot ? o.*TextureMult : o.*ColorMult, row.label, row.userData);
    },
};

// The XML exchanges the filter kinds 1 and 2; files keep the stored value.
constexpr SettingKind<A> shownFilterType = {
    .emit = [](AssetXmlWriter& writer, const A& o, const Row& row, const SettingsXmlContext&) {
        const int32_t stored = o.filter_type;
        writer.writeInt(row.name, stored == 1 ? 2 : stored == 2 ? 1 : stored, row.label, row.userData);
    },
};

constexpr SettingKind<A> shownFocalDistOverride = {
    .emit = [](AssetXmlWriter& writer, const A& o, const Row& row, const SettingsXmlContext&) {
        writer.writeBool(row.name, o.focal_dist_not_overridden == 0, row.label, row.userData);
    },
};

// The render channels: a count, then the ids. Loading keeps the ids the XML knows from files,
// turns the id 8 of the oldest files into 123, and before version 0x15 appends behind the
// defaults instead of replacing them.
constexpr SettingKind<A> channelList = {
    .read =
        [](QuickArchive& in, A& o, uint32_t version) {
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
    .emit =
        [](AssetXmlWriter& writer, const A& o, const Row& row, const SettingsXmlContext&) {
            writer.openList(row.name, "string", row.label);
            for (int32_t id : o.channels) writer.writeEntry(renderChannelName(id));
            writer.closeList();
        },
};

// The stored order of the version 0x17 record; the last rows are shown and never stored.
constexpr Row rows[] = {
    {"", &parameters, {}, 0},
    {"", &embedded<&A::frameData>, {}, 0},
    {"", &embedded<&A::stampInfo>, {}, 0},
    {"bg_tex", &textureSlot<&A::bg_tex, bgSuffix>, {}, 0, G::SettingsEnvironment, 2},
    {"gi_tex", &textureSlot<&A::gi_tex, giSuffix>, {}, 0, G::SettingsEnvironment, 6},
    {"bg_color", &A::bg_color, Color{}, 0, G::SettingsEnvironment, 1},
    // The green is 229 / 255.
    {"gi_color", &A::gi_color, Color{0.8f, 229.0f / 255.0f, 1.0f}, 0, G::SettingsEnvironment, 5},
    {"use_gi", flag(&A::use_gi), 0, 0, G::SettingsEnvironment, 4},
    {"use_bg", flag(&A::use_bg), 0, 0, G::SettingsEnvironment, 0},
    {"type", &A::filter_type, 5, 0},
    {"img_height", &A::img_height, 600, 0, G::SettingsOutput, 1},
    {"img_width", &A::img_width, 800, 0, G::SettingsOutput, 0},
    {"override_fov", flag(&A::override_fov), 0, 0, G::SettingsCamera, 6, {}, true},
    {"override_viewport", flag(&A::override_viewport), 0, 0, G::SettingsOutput, 18, "Override Viewport", true},
    {"img_imageAspectLocked", flag(&A::img_imageAspectLocked), 0, 0, G::SettingsOutput, 22, {}, true},
    {"img_pixelAspectLocked", flag(&A::img_pixelAspectLocked), 0, 0, G::SettingsOutput, 23},
    {"img_rawFile", flag(&A::img_rawFile), 0, 0, G::SettingsOutput, 5},
    {"save_render", flag(&A::save_render), 0, 0, G::SettingsOutput, 20, {}, true},
    {"focal_dist_not_overridden", &A::focal_dist_not_overridden, 1, 2},
    {"show_progress_window", &A::show_progress_window, 1, 3, G::SettingsOptions, 21},
    {"on", flag(&A::camera_on), 0, 5, G::CameraPhysical, 0},
    {"override_focal_length", flag(&A::override_focal_length), 0, 6, G::CameraPhysical, 31, {}, true},
    {"fov", &A::fov, 45.0f, 0, G::SettingsCamera, 3},
    {"gi_color_mult", &A::gi_color_mult, 1.0f, 0},
    {"bg_color_mult", &A::bg_color_mult, 1.0f, 0},
    {"gi_tex_mult", &A::gi_tex_mult, 1.0f, 0},
    {"bg_tex_mult", &A::bg_tex_mult, 1.0f, 0},
    {"size", &A::filter_size, 1.5f, 0, G::SettingsImageFilter, 2},
    {"img_pixelAspect", &A::img_pixelAspect, 1.0f, 0, G::SettingsOutput, 2},
    {"img_imageAspect", &A::img_imageAspect, 1.333f, 0, G::SettingsOutput, 3},
    {"zdepth_black", &A::zdepth_black, 0.0f, 4, G::SettingsRenderChannels, 1},
    {"zdepth_white", &A::zdepth_white, 1000.0f, 4, G::SettingsRenderChannels, 2},
    {"zdepth_clamp", flag(&A::zdepth_clamp), 1, 4, G::SettingsRenderChannels, 0},
    {"channel_names", &channelList, {}, 0, G::SettingsRenderChannels, 3, "NFB Channels"},
    {"img_file", &A::img_file, {}, 0, G::SettingsOutput, 4},
    {"nuimg_file", &A::nuimg_file, {}, 0, G::SettingsOutput, 17, "NuImage Output File", true},
    {"file", &A::irradiance_file, {}, 0, G::SettingsIrradianceMap, 18},
    {"auto_save_file", &A::irradiance_auto_save_file, {}, 0, G::SettingsIrradianceMap, 26},
    {"file", &A::light_cache_file, {}, 0, G::SettingsLightCache, 12},
    {"auto_save_file", &A::light_cache_auto_save_file, {}, 0, G::SettingsLightCache, 15},
    {"file", &A::photon_file, {}, 0, G::SettingsPhotonMap, 5},
    {"auto_save_file", &A::photon_auto_save_file, {}, 0, G::SettingsPhotonMap, 11},
    {"file", &A::caustics_file, {}, 0, G::SettingsCaustics, 6},
    {"auto_save_file", &A::caustics_auto_save_file, {}, 0, G::SettingsCaustics, 9},
    {"mtl_override_color", &A::mtl_override_color, Color{0.5f, 0.5f, 0.5f}, 1, G::SettingsOptions, 23},
    {"batch_render", &A::batch_render, 1, 1, G::SettingsOptions, 22},
    {"gamma_correct_rgb", flag(&A::gamma_correct_rgb), 0, 7, G::SettingsColorMapping, 0, {}, true},
    {"gamma_correct_ldr_textures", flag(&A::gamma_correct_ldr_textures), 0, 7, G::SettingsColorMapping, 1, {}, true},
    {"do_animation", flag(&A::do_animation), 0, 8, G::SettingsOutput, 19, {}, true},
    {"frame_rate", &A::frame_rate, 0, 8, G::SettingsOutput, 21, {}, true},
    {"frames_per_second", &A::frames_per_second, 30.0f, 8, G::SettingsOutput, 6},
    {"reflect_color", &A::reflect_color, Color{}, 9, G::SettingsEnvironment, 9},
    {"refract_color", &A::refract_color, Color{}, 9, G::SettingsEnvironment, 13},
    {"reflect_color_mult", &A::reflect_color_mult, 1.0f, 9},
    {"refract_color_mult", &A::refract_color_mult, 1.0f, 9},
    {"reflect_tex_mult", &A::reflect_tex_mult, 1.0f, 9},
    {"refract_tex_mult", &A::refract_tex_mult, 1.0f, 9},
    {"use_reflect", flag(&A::use_reflect), 0, 9, G::SettingsEnvironment, 8},
    {"use_refract", flag(&A::use_refract), 0, 9, G::SettingsEnvironment, 12},
    {"reflect_tex", &textureSlot<&A::reflect_tex, reflectSuffix>, {}, 9, G::SettingsEnvironment, 10},
    {"refract_tex", &textureSlot<&A::refract_tex, refractSuffix>, {}, 9, G::SettingsEnvironment, 14},
    {"on", flag(&A::dr_on), 0, 0x10, G::SettingsDR, 0},
    // No reset sets the two floats; a fresh object holds zero there.
    {"all_aux_float_1", &A::all_aux_float_1, {}, 0x11},
    {"all_aux_float_2", &A::all_aux_float_2, {}, 0x11},
    {"input_gamma", &A::input_gamma, 2.2f, 0x12, G::SettingsColorMapping, 2, {}, true},
    {"all_aux_int_1", &A::all_aux_int_1, 1, 0x13},
    {"asset_coll", flag(&A::asset_coll), 1, 0x14, G::SettingsDR, 1},
    {"mode", &A::dr_mode, 0, 0x14, G::SettingsDR, 2},
    {"folder", &A::folder, {}, 0x14, G::SettingsDR, 3},
    {"all_aux_int_2", &A::all_aux_int_2, 0, 0x16},
    {"specify_film_width", flag(&A::specify_film_width), 0, 0x17, G::CameraPhysical, 30, {}, true},

    {"type", &shownFilterType, {}, neverStored, G::SettingsImageFilter, 1},
    {"override_focal_dist", &shownFocalDistOverride, {}, neverStored, G::SettingsCameraDof, 0, {}, true},
    {"bg_mult", &shownMultiplier<&A::bg_tex, &A::bg_tex_mult, &A::bg_color_mult>, {}, neverStored, G::SettingsEnvironment, 3},
    {"gi_mult", &shownMultiplier<&A::gi_tex, &A::gi_tex_mult, &A::gi_color_mult>, {}, neverStored, G::SettingsEnvironment, 7},
    {"reflect_mult", &shownMultiplier<&A::reflect_tex, &A::reflect_tex_mult, &A::reflect_color_mult>, {}, neverStored,
     G::SettingsEnvironment, 11},
    {"refract_mult", &shownMultiplier<&A::refract_tex, &A::refract_tex_mult, &A::refract_color_mult>, {}, neverStored,
     G::SettingsEnvironment, 15},
};

using Layout = SettingsLayout<NuvaUtils::NuvaParams, NuvaUtils::NuvaFrameData, AllOptions>;

const Layout& layout()
{
    static const Layout instance(TalvexParams::settings(), TalvexFrameData::settings(), AllOptions::settings());
    return instance;
}

constexpr std::array<std::string_view, 34> channelNames = {
    "Atmosphere", "Diffuse", "Reflection", "Refraction", "Self-illumination", "Shadow", "Specular",
    "Lighting", "GI", "Caustics", "Raw GI", "Raw Light", "Raw Shadow", "Velocity", "RenderID",
    "Material ID", "Node ID", "ZDepth", "Reflection Filter", "Raw Reflection", "Refraction Filter",
    "Raw Refraction", "Real Color", "Normals", "Background", "Alpha", "RGB color", "Wire Color",
    "Matte Shadow", "Total Light", "Raw Total Light", "Bump Normal", "Sample Rate", "SSS2",
};

constexpr std::array<std::string_view, settingsAssetCount + 1> groupNames = {
    "SettingsImageSampler", "SettingsImageFilter", "SettingsCamera", "SettingsCameraDof", "SettingsMotionBlur",
    "SettingsGI", "SettingsIrradianceMap", "SettingsPhotonMap", "SettingsLightCache", "SettingsCaustics",
    "SettingsRaycaster", "SettingsRegionsGenerator", "SettingsDMCGI", "SettingsDMCSampler", "SettingsColorMapping",
    "SettingsRenderChannels", "SettingsOptions", "SettingsDefaultDisplacement", "SettingsEnvironment",
    "SettingsOutput", "CameraPhysical", "SettingsDR", "FrameData",
};

}  // namespace

std::string_view settingsGroupName(SettingsGroup group)
{
    const auto index = static_cast<std::size_t>(group);
    return index < groupNames.size() ? groupNames[index] : std::string_view{};
}

std::string_view renderChannelName(int32_t id)
{
    const int64_t index = static_cast<int64_t>(id) - AllOptions::firstChannel;
    return index >= 0 && index < static_cast<int64_t>(channelNames.size()) ? channelNames[index] : std::string_view{};
}

std::span<const Setting<AllOptions>> AllOptions::settings()
{
    return rows;
}

void AllOptions::resetDefaults()
{
    resetSettings<A>(*this, rows);
}

bool AllOptions::writeBinary(QuickArchive& out) const
{
    out.writeU32(tagOf(newestVersion) | tagMark);
    return writeSettings<A>(out, *this, rows, newestVersion);
}

bool AllOptions::readBinary(QuickArchive& in)
{
    resetDefaults();
    uint32_t tag = 0;
    in.readU32(tag);
    const uint32_t version = versionOf(tag);
    if ((tag & 0xFFFF) != tagMark || !isKnownVersion(version)) return false;
    return readSettings<A>(in, *this, rows, version);
}

bool AllOptions::isEqual(const AllOptions& other) const
{
    return equalSettings<A>(*this, other, rows);
}

void AllOptions::writeXml(AssetXmlWriter& writer, std::u16string url) const
{
    for (int index = 0; index < settingsAssetCount; ++index) {
        const auto group = static_cast<SettingsGroup>(index);
        const std::string_view name = settingsGroupName(group);
        std::u16string assetUrl = url;
        assetUrl += u'/';
        for (char c : name) assetUrl += static_cast<char16_t>(c);
        const SettingsXmlContext context{assetUrl};

        writer.openAssets();
        layout().emitChildAssets(writer, group, context, params, frameData, *this);
        writer.openAsset(assetUrl, assetType(), "");
        writer.openPlugin(name, assetType());
        writer.openParameters();
        layout().emit(writer, group, context, params, frameData, *this);
        writer.closeParameters();
        writer.closePlugin();
        writer.closeAsset();
        writer.closeAssets();
    }
}

}  // namespace TalvexCore
