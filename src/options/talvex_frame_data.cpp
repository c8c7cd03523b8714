#include "options/talvex_frame_data.h"

#include "materials/record_io.h"

namespace TalvexCore {

namespace {

using F = NuvaUtils::NuvaFrameData;
using G = SettingsGroup;
using Row = Setting<F>;
constexpr FlagField<F> flag(int32_t F::*member) { return {member}; }

// The record: every field, in this order, 340 bytes with the tag.
constexpr Row rows[] = {
    {"t", &F::t, 0.0, 1, G::FrameData, 0},
    {"frameStart", &F::frameStart, 0.0, 1, G::FrameData, 1},
    {"frameEnd", &F::frameEnd, 1.0, 1, G::FrameData, 2},
    {"currentFrame", &F::currentFrame, 0, 1, G::FrameData, 3},
    {"worldToCam", &F::worldToCam, {}, 1, G::FrameData, 4},
    {"camToWorld", &F::camToWorld, {}, 1, G::FrameData, 5},
    {"fov", &F::fov, 0.0f, 1, G::FrameData, 6},
    {"nearRange", &F::nearRange, 0.0f, 1, G::FrameData, 7},
    {"farRange", &F::farRange, 0.0f, 1, G::FrameData, 8},
    {"focal_dist", &F::focal_dist, 200.0f, 1, G::SettingsCameraDof, 4},
    {"aperture", &F::aperture, 0.1f, 1, G::SettingsCameraDof, 2},
    {"rotation", &F::rotation, 0.0f, 1, G::SettingsCameraDof, 7},
    {"clippingPlanes", &F::clippingPlanes, 0, 1, G::FrameData, 9},
    {"clipNear", &F::clipNear, 0.0f, 1, G::FrameData, 10},
    {"clipFar", &F::clipFar, 0.0f, 1, G::FrameData, 11},
    {"projType", &F::projType, 0, 1, G::FrameData, 12},
    {"zoomFractor", &F::zoomFractor, 1.0f, 1, G::FrameData, 13},
    {"infiniteProj", &F::infiniteProj, 0, 1, G::FrameData, 14},
    {"height", &F::height, 400.0f, 1, G::SettingsCamera, 1},
    {"auto_fit", flag(&F::auto_fit), 1, 1, G::SettingsCamera, 4},
    {"dist", &F::dist, 2.0f, 1, G::SettingsCamera, 2},
    {"curve", &F::curve, 1.0f, 1, G::SettingsCamera, 5},
    {"orthoAdjustToScene", &F::orthoAdjustToScene, 0, 1, G::FrameData, 15},
    {"ambient", &F::ambient, Color{}, 1, G::FrameData, 16},
    {"background", &F::background, Color{}, 1, G::FrameData, 17},
    {"globalLightLevel", &F::globalLightLevel, Color{}, 1, G::FrameData, 18},
    {"nuvaGIBackground", &F::nuvaGIBackground, Color{}, 1, G::FrameData, 19},
    {"nuvaRRBackground", &F::nuvaRRBackground, Color{}, 1, G::FrameData, 20},
    {"nuvaRefractBackground", &F::nuvaRefractBackground, Color{}, 1, G::FrameData, 21},
    {"rgn_left", &F::rgn_left, 0.0f, 1, G::SettingsOutput, 7},
    {"rgn_width", &F::rgn_width, 0.0f, 1, G::SettingsOutput, 8},
    {"rgn_top", &F::rgn_top, 0.0f, 1, G::SettingsOutput, 9},
    {"rgn_height", &F::rgn_height, 0.0f, 1, G::SettingsOutput, 10},
    {"frame_aux_int_1", &F::frame_aux_int_1, 0, 1},
    {"frame_aux_int_2", &F::frame_aux_int_2, 0, 1},
    {"bmp_width", &F::bmp_width, 0, 1, G::SettingsOutput, 11},
    {"bmp_height", &F::bmp_height, 0, 1, G::SettingsOutput, 12},
    {"r_left", &F::r_left, 0, 1, G::SettingsOutput, 13},
    {"r_width", &F::r_width, 0, 1, G::SettingsOutput, 14},
    {"r_top", &F::r_top, 0, 1, G::SettingsOutput, 15},
    {"r_height", &F::r_height, 0, 1, G::SettingsOutput, 16},
    {"devAspect", &F::devAspect, 1.0f, 1, G::FrameData, 22},
    {"fieldMask", &F::fieldMask, 3, 1, G::FrameData, 23},
    {"fieldOrder", &F::fieldOrder, 0, 1, G::FrameData, 24},
    {"firstField", &F::firstField, 0, 1, G::FrameData, 25},
    {"dark_mult", &F::dark_mult, 1.0f, 1, G::SettingsColorMapping, 5},
    {"bright_mult", &F::bright_mult, 1.0f, 1, G::SettingsColorMapping, 6},
};

}  // namespace

std::span<const Setting<NuvaUtils::NuvaFrameData>> TalvexFrameData::settings()
{
    return rows;
}

void TalvexFrameData::resetDefaults()
{
    resetSettings<F>(*this, rows);
}

bool TalvexFrameData::writeBinary(QuickArchive& out) const
{
    writeVersion(out, version);
    return writeSettings<F>(out, *this, rows, version);
}

bool TalvexFrameData::readBinary(QuickArchive& in)
{
    resetDefaults();
    uint32_t tag = 0;
    in.readU32(tag);
    if (tag != tagOf(version)) return false;
    return readSettings<F>(in, *this, rows, version);
}

bool TalvexFrameData::isEqual(const TalvexFrameData& other) const
{
    return equalSettings<F>(*this, other, rows);
}

void TalvexFrameData::writeXml(AssetXmlWriter& writer, std::u16string url) const
{
    url += u'/';
    url += pluginType();
    writer.openAsset(url, assetType(), "");
    writer.openPlugin(pluginType(), assetType());
    writer.openParameters();
    const SettingsXmlContext context{url};
    for (int position = 0;; ++position) {
        const Row* found = nullptr;
        for (const Row& row : rows)
            if (row.group == G::FrameData && row.xmlPosition == position) found = &row;
        if (!found) break;
        emitSetting<F>(writer, *this, *found, context);
    }
    writer.closeParameters();
    writer.closePlugin();
    writer.closeAsset();
}

}  // namespace TalvexCore
