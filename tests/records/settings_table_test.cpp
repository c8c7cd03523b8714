// Settings tables: one table drives reset, read by version, write, comparison and the XML of a group
// that draws on two holders.
#include <gtest/gtest.h>

#include <tuple>

#include "records/settings_table.h"
#include "support/byte_builder.h"
#include "support/xml_of.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

// A member with a record of its own.
struct Socket {
    int32_t pins = 3;
    bool writeBinary(QuickArchive& out) const { out.writeU32(tagOf(1)); out.writeI32(pins); return true; }
    bool readBinary(QuickArchive& in)
    {
        uint32_t tag = 0;
        in.readU32(tag);
        if (tag != tagOf(1)) return false;
        in.readI32(pins);
        return true;
    }
    void resetDefaults() { pins = 3; }
    bool operator==(const Socket&) const = default;
};

// A child family: a shade of some colour.
namespace Shades {
class Shade : public TalvexSerializable, public TalvexXMLSerializable {
public:
    int32_t hue = 0;
    uint32_t typeId() const { return 4; }
    bool writeBinary(QuickArchive& out) const override { out.writeU32(tagOf(1)); out.writeI32(hue); return true; }
    bool readBinary(QuickArchive& in) override
    {
        if (!readVersion(in, {1})) return false;
        in.readI32(hue);
        return true;
    }
    bool isEqual(const std::shared_ptr<Shade>& other) const { return other && other->hue == hue; }
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"TexShade">(); }
    const std::u16string& assetType() const override { return typeName<u"texture">(); }
};
void makeFromTypeId(std::shared_ptr<Shade>& out, uint32_t id) { out = id == 4 ? std::make_shared<Shade>() : nullptr; }
}  // namespace Shades
using Shades::Shade;

struct Lamp {
    int32_t on = 0;
    uint32_t mode = 0;
    float power = 0;      // version 1 stored it as a whole number of watts
    double time = 0;
    Color tint;
    int32_t spare = 0;    // stored, shown nowhere
    std::string note;
    PathBuffer file{};
    Socket socket;
    float boost = 0;      // version 3 on
    std::shared_ptr<Shade> shade;
};

struct Room {
    int32_t lamps = 0;
    float gain = 0;
};

constexpr auto powerMigration = migratedSetting<Lamp>([](QuickArchive& in, Lamp& h, uint16_t version) {
    if (version >= 2) {
        in.readF32(h.power);
    } else {
        int32_t watts = 0;
        in.readI32(watts);
        h.power = static_cast<float>(watts);
    }
    return true;
});
constexpr auto socketRecord = embeddedRecord<&Lamp::socket>();
constexpr auto reservedOne = reservedF32Word<Lamp, 0x3F800000u>();
constexpr auto shadeSlot = childSlot<&Lamp::shade>("shade_tex");
constexpr auto doubledPower =
    computedSetting<Lamp>([](const Lamp& h) -> ShownValue { return h.power * 2; });

// Record order differs from XML order on purpose.
constexpr std::array<Setting<Lamp>, 13> lampSettings{{
    {"on", &Lamp::on, 1, 1, "SettingsLamp", 0, Form::Bool},
    {"power", &Lamp::power, 60.0f, 1, "SettingsLamp", 3, Form::Float, {}, false, &powerMigration},
    {"mode", &Lamp::mode, 7u, 1, "SettingsLamp", 2, Form::Int, "Lamp Mode", true},
    {"tint", &Lamp::tint, Color{1, 0.5f, 0.25f}, 1, "SettingsLamp", 5, Form::Color},
    {"spare", &Lamp::spare, 9, 1},
    {"note", &Lamp::note, 0, 1, "SettingsLamp", 6, Form::String},
    {"file", &Lamp::file, 0, 1, "SettingsLamp", 7, Form::FileString},
    {"socket", {}, 0, 2, {}, 0, Form::Hidden, {}, false, &socketRecord},
    {"time", &Lamp::time, 2.5, 2, "SettingsLamp", 8, Form::Float},
    {"boost", &Lamp::boost, 1.5f, 3},
    {"shade", {}, 0, 3, "SettingsLamp", 10, Form::Plugin, {}, false, &shadeSlot},
    {"reserved", {}, 0, 3, {}, 0, Form::Hidden, {}, false, &reservedOne},
    {"double_power", {}, 0, 0, "SettingsLamp", 9, Form::Float, {}, false, &doubledPower},
}};
constexpr std::array<Setting<Room>, 2> roomSettings{{
    {"lamps", &Room::lamps, 4, 1, "SettingsLamp", 1, Form::Int},
    {"gain", &Room::gain, 1.0f, 1, "SettingsLamp", 4, Form::Float},
}};
CINDREL_CHECK_SETTINGS(settingsTableValid(lampSettings) && settingsTableValid(roomSettings));
CINDREL_CHECK_SETTINGS(xmlPositionsValid(lampSettings, roomSettings));

// The check catches a gap, a repeat, and a row whose form does not fit its field.
constexpr std::array<Setting<Room>, 2> gapped{{
    {"lamps", &Room::lamps, 4, 1, "G", 0, Form::Int},
    {"gain", &Room::gain, 1.0f, 1, "G", 2, Form::Float},
}};
constexpr std::array<Setting<Room>, 2> repeated{{
    {"lamps", &Room::lamps, 4, 1, "G", 1, Form::Int},
    {"gain", &Room::gain, 1.0f, 1, "G", 1, Form::Float},
}};
constexpr std::array<Setting<Room>, 1> misfit{{{"gain", &Room::gain, 1.0f, 1, "G", 0, Form::Bool}}};
CINDREL_CHECK_SETTINGS(!xmlPositionsValid(gapped) && !xmlPositionsValid(repeated));
CINDREL_CHECK_SETTINGS(!xmlPositionsValid(lampSettings) && !xmlPositionsValid(roomSettings));
CINDREL_CHECK_SETTINGS(!settingsTableValid(misfit));

// Each parameter of the text as its name and value ("-" for none), the label behind it where it
// differs from the name, and "user" for a user-data mark.
std::string parameterSummary(const std::string& xml)
{
    std::string out;
    for (auto at = xml.find("<parameter "); at != std::string::npos; at = xml.find("<parameter ", at + 1)) {
        const auto attribute = [&](const std::string& key) {
            const auto start = xml.find(key + "=\"", at) + key.size() + 2;
            return xml.substr(start, xml.find('"', start) - start);
        };
        const std::string name = attribute("name"), label = attribute("label");
        const std::string value = valueOf(xml.substr(at), label);
        out += name + " " + (value == "no value" ? "-" : value) + (label != name ? " [" + label + "]" : "");
        out += xml.substr(at, xml.find('>', at) - at).find("isUserData") != std::string::npos ? " user\n" : "\n";
    }
    return out;
}

std::string groupText(const char* group, const Lamp& lamp, const Room& room)
{
    std::u16string text;
    AssetXmlWriter writer(text);
    writeSettingParameters(writer, group, u"/" + narrowToWide(group), bindSettings(lampSettings, lamp),
                           bindSettings(roomSettings, room));
    return wideToNarrow(text);
}

Lamp defaultLamp()
{
    Lamp lamp;
    resetSettings(lampSettings, lamp);
    return lamp;
}

// Reads the rows of a version into the lamp, which must take every byte when it takes the record.
bool readLamp(Lamp& lamp, const ByteBuilder& bytes, uint16_t version)
{
    QuickArchive in = bytes.archive();
    const bool ok = readSettings(lampSettings, in, lamp, version);
    if (ok) {
        EXPECT_EQ(in.readPosition(), bytes.bytes.size());
    }
    return ok;
}

std::vector<uint8_t> lampBytes(const Lamp& lamp)
{
    QuickArchive out(1);
    EXPECT_TRUE(writeSettings(lampSettings, out, lamp));
    return writtenBytes(out);
}

}  // namespace

TEST(SettingsTable, ResetGivesEachRowItsDefault)
{
    Lamp lamp;
    lamp.note = "old";
    lamp.file[0] = u'x';
    lamp.socket.pins = 8;
    lamp.shade = std::make_shared<Shade>();
    resetSettings(lampSettings, lamp);
    EXPECT_FALSE(lamp.shade);
    // An unsigned and a double field from their own initials; the embedded record's own reset.
    EXPECT_EQ(std::tuple(lamp.mode, lamp.time, lamp.tint, lamp.note, lamp.file[0], lamp.socket.pins),
              std::tuple(7u, 2.5, Color{1, 0.5f, 0.25f}, std::string(), u'\0', 3));
}

TEST(SettingsTable, OlderVersionsReadTheirRowsAndMigrate)
{
    // Version 1: power as whole watts, no socket, no time, no boost.
    Lamp lamp = defaultLamp();
    ASSERT_TRUE(readLamp(lamp, ByteBuilder().i32(0).i32(100).u32(3).color(0, 0, 1).i32(5).str("desk").str("a.png"), 1));
    EXPECT_EQ(std::tuple(lamp.power, lamp.note, std::u16string(lamp.file.data()), lamp.time, lamp.boost),
              std::tuple(100.0f, std::string("desk"), std::u16string(u"a.png"), 2.5, 1.5f));

    // Version 2 adds the socket record and the time; a bad socket tag fails the read.
    const ByteBuilder v2 = ByteBuilder().i32(1).f32(40.5f).u32(3).color(0, 0, 1).i32(5).str("").str("");
    lamp = defaultLamp();
    ASSERT_TRUE(readLamp(lamp, ByteBuilder(v2).tag(1).i32(6).f64(0.25), 2));
    EXPECT_EQ(std::tuple(lamp.power, lamp.socket.pins, lamp.time, lamp.boost), std::tuple(40.5f, 6, 0.25, 1.5f));
    EXPECT_FALSE(readLamp(lamp, ByteBuilder(v2).tag(9), 2));
    // A child of an unknown type fails the read.
    EXPECT_FALSE(readLamp(lamp, ByteBuilder(v2).tag(1).i32(6).f64(0).f32(1).boolean(true).u32(99), 3));
}

TEST(SettingsTable, NewestRecordWritesBackByteForByteAndCompares)
{
    ByteBuilder v3;
    v3.i32(2).f32(75).u32(1).color(0.5f, 0.5f, 0.5f).i32(-4).str("n").str("b.exr").tag(1).i32(2).f64(9).f32(3);
    v3.boolean(true).u32(4).tag(1).i32(12).f32(1.0f);
    Lamp lamp = defaultLamp();
    ASSERT_TRUE(readLamp(lamp, v3, 3));
    EXPECT_EQ(lampBytes(lamp), v3.bytes);

    // The reserved word is read past and written as its constant whatever the file held.
    ByteBuilder other = v3;
    other.bytes.resize(other.bytes.size() - 4);
    ASSERT_TRUE(readLamp(lamp, other.f32(5.0f), 3));
    EXPECT_EQ(lampBytes(lamp), v3.bytes);

    Lamp copy = lamp;
    EXPECT_TRUE(settingsEqual(lampSettings, lamp, copy));
    copy.shade = std::make_shared<Shade>();
    EXPECT_FALSE(settingsEqual(lampSettings, lamp, copy));
    copy = lamp;
    copy.socket.pins = 1;
    EXPECT_FALSE(settingsEqual(lampSettings, lamp, copy));
    copy = lamp;
    copy.file[0] = u'c';
    EXPECT_FALSE(settingsEqual(lampSettings, lamp, copy));
    EXPECT_FALSE(settingsEqual(lampSettings, lamp, defaultLamp()));
}

TEST(SettingsTable, TextsKeepWhatEmptyStoredTextLeavesAndPathsAreCut)
{
    Lamp lamp = defaultLamp();
    lamp.note = "kept";
    ASSERT_TRUE(readLamp(lamp, ByteBuilder().i32(0).i32(1).u32(0).color(0, 0, 0).i32(0).str("").str(std::string(3000, 'p')), 1));
    EXPECT_EQ(lamp.note, "kept");
    EXPECT_EQ(std::u16string(lamp.file.data()).size(), 2047u);
}

TEST(SettingsTable, GroupMergesHoldersInXmlOrder)
{
    Lamp lamp = defaultLamp();
    lamp.on = 2;
    lamp.note = "desk";
    lamp.file[0] = u'f';
    Room room;
    resetSettings(roomSettings, room);
    EXPECT_EQ(parameterSummary(groupText("SettingsLamp", lamp, room)),
              "on 1\n"
              "lamps 4\n"
              "mode 7 [Lamp Mode] user\n"
              "power 60\n"
              "gain 1\n"
              "tint <r>1</r><g>0.5</g><b>0.25</b>\n"
              "note desk\n"
              "file f\n"
              "time 2.5\n"
              "double_power 120\n"
              "shade -\n");

    lamp.shade = std::make_shared<Shade>();
    EXPECT_TRUE(has(groupText("SettingsLamp", lamp, room), "<value>/SettingsLamp/shade_tex/TexShade</value>"));
    const auto children = settingChildren("SettingsLamp", bindSettings(lampSettings, lamp), bindSettings(roomSettings, room));
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0].parameter, "shade");
    EXPECT_EQ(children[0].urlWord, "shade_tex");
    EXPECT_EQ(children[0].child, lamp.shade.get());
    EXPECT_EQ(groupText("SettingsElse", lamp, room), "");
}
