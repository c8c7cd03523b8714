// Settings tables: one table drives reset, read by version, write, comparison and the XML of a group
// that draws on two holders.
#include <gtest/gtest.h>

#include <sstream>

#include "records/settings_table.h"
#include "support/byte_builder.h"

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
    void writeXml(AssetXmlWriter&, std::u16string) const override {}
    std::u16string pluginType() const override { return u"TexShade"; }
    std::u16string assetType() const override { return u"texture"; }
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

// Records the writer calls it gets, one line each.
struct RecordingWriter {
    std::ostringstream log;
    static std::string text(std::string_view s) { return std::string(s); }
    static std::string text(std::u16string_view s)
    {
        return std::string(s.begin(), s.end());
    }
    void tail(std::string_view label, bool userData) { log << " [" << label << "]" << (userData ? " user" : "") << "\n"; }
    void writeBool(std::string_view n, bool v, std::string_view l, bool u) { log << "bool " << n << " " << v; tail(l, u); }
    void writeInt(std::string_view n, int32_t v, std::string_view l, bool u) { log << "int " << n << " " << v; tail(l, u); }
    void writeFloat(std::string_view n, float v, std::string_view l, bool u) { log << "float " << n << " " << v; tail(l, u); }
    void writeColor(std::string_view n, const Color& c, std::string_view l)
    {
        log << "color " << n << " " << c.r << "," << c.g << "," << c.b;
        tail(l, false);
    }
    void writePlugin(std::string_view n, const TalvexXMLSerializable* child, const std::u16string& url,
                     std::string_view l)
    {
        log << "plugin " << n << " " << (child ? text(url + u"/" + child->pluginType()) : "-");
        tail(l, false);
    }
    void writeTransform(std::string_view n, const Transform&, std::string_view l) { log << "transform " << n; tail(l, false); }
    void openList(std::string_view n, std::string_view type, std::string_view l) { log << "list " << n << " of " << type; tail(l, false); }
    void writeEntry(std::string_view entry) { log << "entry " << entry << "\n"; }
    void closeList() { log << "end of list\n"; }
    template <class T>
    void writeString(std::string_view n, T v, std::string_view l, bool u) { log << "string " << n << " " << text(v); tail(l, u); }
    template <class T>
    void writeFileString(std::string_view n, T v, std::string_view l, bool u) { log << "file " << n << " " << text(v); tail(l, u); }
};

Lamp defaultLamp()
{
    Lamp lamp;
    resetSettings(lampSettings, lamp);
    return lamp;
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
    EXPECT_EQ(lamp.mode, 7u);   // an unsigned field from its own initial
    EXPECT_EQ(lamp.time, 2.5);  // a double likewise
    EXPECT_EQ(lamp.tint, (Color{1, 0.5f, 0.25f}));
    EXPECT_EQ(lamp.note, "");
    EXPECT_EQ(lamp.file[0], 0);
    EXPECT_EQ(lamp.socket.pins, 3);  // the embedded record's own reset
}

TEST(SettingsTable, OlderVersionsReadTheirRowsAndMigrate)
{
    // Version 1: power as whole watts, no socket, no time, no boost.
    ByteBuilder v1;
    v1.i32(0).i32(100).u32(3).color(0, 0, 1).i32(5).str("desk").str("a.png");
    Lamp lamp = defaultLamp();
    QuickArchive in = v1.archive();
    ASSERT_TRUE(readSettings(lampSettings, in, lamp, 1));
    EXPECT_EQ(in.readPosition(), v1.bytes.size());
    EXPECT_EQ(lamp.power, 100.0f);
    EXPECT_EQ(lamp.note, "desk");
    EXPECT_EQ(std::u16string(lamp.file.data()), u"a.png");
    EXPECT_EQ(lamp.time, 2.5);
    EXPECT_EQ(lamp.boost, 1.5f);

    // Version 2 adds the socket record and the time; a bad socket tag fails the read.
    ByteBuilder v2;
    v2.i32(1).f32(40.5f).u32(3).color(0, 0, 1).i32(5).str("").str("").tag(1).i32(6).f64(0.25);
    lamp = defaultLamp();
    in = v2.archive();
    ASSERT_TRUE(readSettings(lampSettings, in, lamp, 2));
    EXPECT_EQ(lamp.power, 40.5f);
    EXPECT_EQ(lamp.socket.pins, 6);
    EXPECT_EQ(lamp.time, 0.25);
    EXPECT_EQ(lamp.boost, 1.5f);

    ByteBuilder broken;
    broken.i32(1).f32(40.5f).u32(3).color(0, 0, 1).i32(5).str("").str("").tag(9);
    in = broken.archive();
    EXPECT_FALSE(readSettings(lampSettings, in, lamp, 2));

    // A child of an unknown type fails the read.
    ByteBuilder unknownChild;
    unknownChild.i32(1).f32(1).u32(3).color(0, 0, 1).i32(5).str("").str("").tag(1).i32(6).f64(0).f32(1);
    unknownChild.boolean(true).u32(99);
    in = unknownChild.archive();
    EXPECT_FALSE(readSettings(lampSettings, in, lamp, 3));
}

TEST(SettingsTable, NewestRecordWritesBackByteForByteAndCompares)
{
    ByteBuilder v3;
    v3.i32(2).f32(75).u32(1).color(0.5f, 0.5f, 0.5f).i32(-4).str("n").str("b.exr").tag(1).i32(2).f64(9).f32(3);
    v3.boolean(true).u32(4).tag(1).i32(12).f32(1.0f);
    Lamp lamp = defaultLamp();
    QuickArchive in = v3.archive();
    ASSERT_TRUE(readSettings(lampSettings, in, lamp, 3));

    QuickArchive out(1);
    ASSERT_TRUE(writeSettings(lampSettings, out, lamp));
    EXPECT_EQ(writtenBytes(out), v3.bytes);

    // The reserved word is read past and written as its constant whatever the file held.
    ByteBuilder other = v3;
    other.bytes.resize(other.bytes.size() - 4);
    other.f32(5.0f);
    in = other.archive();
    ASSERT_TRUE(readSettings(lampSettings, in, lamp, 3));
    EXPECT_EQ(in.readPosition(), other.bytes.size());
    QuickArchive rewritten(1);
    ASSERT_TRUE(writeSettings(lampSettings, rewritten, lamp));
    EXPECT_EQ(writtenBytes(rewritten), v3.bytes);

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
    const std::string longPath(3000, 'p');
    ByteBuilder bytes;
    bytes.i32(0).i32(1).u32(0).color(0, 0, 0).i32(0).str("").str(longPath);
    QuickArchive in = bytes.archive();
    ASSERT_TRUE(readSettings(lampSettings, in, lamp, 1));
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
    RecordingWriter writer;
    writeSettingParameters(writer, "SettingsLamp", u"/SettingsLamp", bindSettings(lampSettings, lamp),
                           bindSettings(roomSettings, room));
    EXPECT_EQ(writer.log.str(),
              "bool on 1 []\n"
              "int lamps 4 []\n"
              "int mode 7 [Lamp Mode] user\n"
              "float power 60 []\n"
              "float gain 1 []\n"
              "color tint 1,0.5,0.25 []\n"
              "string note desk []\n"
              "file file f []\n"
              "float time 2.5 []\n"
              "float double_power 120 []\n"
              "plugin shade - []\n");

    lamp.shade = std::make_shared<Shade>();
    RecordingWriter withChild;
    writeSettingParameters(withChild, "SettingsLamp", u"/SettingsLamp", bindSettings(lampSettings, lamp),
                           bindSettings(roomSettings, room));
    EXPECT_NE(withChild.log.str().find("plugin shade /SettingsLamp/shade_tex/TexShade []\n"), std::string::npos);
    const auto children = settingChildren("SettingsLamp", bindSettings(lampSettings, lamp), bindSettings(roomSettings, room));
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0].parameter, "shade");
    EXPECT_EQ(children[0].urlWord, "shade_tex");
    EXPECT_EQ(children[0].child, lamp.shade.get());

    RecordingWriter other;
    writeSettingParameters(other, "SettingsElse", u"/SettingsElse", bindSettings(lampSettings, lamp));
    EXPECT_EQ(other.log.str(), "");
}
