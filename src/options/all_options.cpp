#include "options/all_options.h"

#include <array>
#include <map>
#include <vector>

#include "options/all_options_settings.h"
#include "xml/asset_frame.h"

namespace TalvexCore {

using AllOptionsSettings::table;

// Each group's positions run from 0 without gap or repeat, across every table that feeds it.
CINDREL_CHECK_SETTINGS(xmlPositionsValid(table, ParamsSettings::table, FrameDataSettings::table, physicalCameraSettings));

namespace {

constexpr std::array<std::string_view, 34> channelNames = {
    "Atmosphere", "Diffuse", "Reflection", "Refraction", "Self-illumination", "Shadow", "Specular",
    "Lighting", "GI", "Caustics", "Raw GI", "Raw Light", "Raw Shadow", "Velocity", "RenderID",
    "Material ID", "Node ID", "ZDepth", "Reflection Filter", "Raw Reflection", "Refraction Filter",
    "Raw Refraction", "Real Color", "Normals", "Background", "Alpha", "RGB color", "Wire Color",
    "Matte Shadow", "Total Light", "Raw Total Light", "Bump Normal", "Sample Rate", "SSS2",
};

// A settings asset is named after its group, not after the options set.
class GroupAsset : public TalvexXMLSerializable {
public:
    explicit GroupAsset(std::string_view group) : plugin(typeNameOf(group)) {}
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return plugin; }
    const std::u16string& assetType() const override { return typeName<u"settings">(); }

private:
    // The groups' names as wide text, made once.
    static const std::u16string& typeNameOf(std::string_view group)
    {
        static const std::map<std::string_view, std::u16string> names = [] {
            std::map<std::string_view, std::u16string> made;
            for (std::string_view name : SettingsGroups::inOrder) made.emplace(name, narrowToWide(name));
            return made;
        }();
        return names.at(group);
    }
    const std::u16string& plugin;
};

}  // namespace

std::string_view renderChannelName(int32_t id)
{
    const int64_t index = static_cast<int64_t>(id) - AllOptions::firstChannel;
    return index >= 0 && index < static_cast<int64_t>(channelNames.size()) ? channelNames[index] : std::string_view{};
}

void AllOptions::resetDefaults()
{
    resetSettings(table, *this);
}

bool AllOptions::writeBinary(QuickArchive& out) const
{
    out.writeU32(tagOf(newestVersion) | tagMark);
    return writeSettings(table, out, *this);
}

bool AllOptions::readBinary(QuickArchive& in)
{
    resetDefaults();
    const auto version =
        readMarkedVersion(in, tagMark, isKnownVersion, "0x00000001 to 0x00090001, 0x00100001 to 0x00170001");
    if (!version) return false;
    return readSettings(table, in, *this, static_cast<uint16_t>(*version));
}

bool AllOptions::isEqual(const AllOptions& other) const
{
    return settingsEqual(table, *this, other);
}

// One asset per group, each in its own Assets element; a group's texture assets stand inside that
// element ahead of the group's own asset.
void AllOptions::writeXml(AssetXmlWriter& writer, const std::u16string& url) const
{
    const auto own = bindSettings(table, *this);
    const auto parameters = bindSettings(ParamsSettings::table, static_cast<const NuvaUtils::NuvaParams&>(params));
    const auto frame = bindSettings(FrameDataSettings::table, static_cast<const NuvaUtils::NuvaFrameData&>(frameData));
    const auto lens = bindSettings(physicalCameraSettings, camera);
    for (std::string_view group : SettingsGroups::inOrder) {
        writer.openAssets();
        std::vector<ChildSlot> slots;
        for (const SettingChild& child : settingChildren(group, own))
            slots.emplace_back(child.parameter, child.urlWord, child.child);
        const AssetFrame asset(writer, GroupAsset(group), AssetUrl(url, group), "", slots);
        writeSettingParameters(writer, group, asset.url(), parameters, frame, own, lens);
        asset.close();
        writer.closeAssets();
    }
}

}  // namespace TalvexCore
