// Settings tables: what the real tables and the golden documents do not reach. The compile-time
// check of a table's XML places and forms, and a stored empty text that leaves its field as it is.
#include <gtest/gtest.h>

#include "records/settings_table.h"
#include "support/byte_builder.h"

using namespace TalvexCore;
using namespace TalvexTest;

namespace {

struct Lamp {
    int32_t on = 0;
    std::string note;
};
struct Room {
    int32_t lamps = 0;
    float gain = 0;
};

constexpr std::array<Setting<Lamp>, 2> lampSettings{{
    {"on", &Lamp::on, 1, 1, "SettingsLamp", 0, Form::Bool},
    {"note", &Lamp::note, 0, 1, "SettingsLamp", 2, Form::String},
}};
constexpr std::array<Setting<Room>, 2> roomSettings{{
    {"lamps", &Room::lamps, 4, 1, "SettingsLamp", 1, Form::Int},
    {"gain", &Room::gain, 1.0f, 1, "SettingsLamp", 3, Form::Float},
}};
// Two holders of one group fill its places together; neither alone does.
CINDREL_CHECK_SETTINGS(settingsTableValid(lampSettings) && settingsTableValid(roomSettings));
CINDREL_CHECK_SETTINGS(xmlPositionsValid(lampSettings, roomSettings));
CINDREL_CHECK_SETTINGS(!xmlPositionsValid(lampSettings) && !xmlPositionsValid(roomSettings));

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
CINDREL_CHECK_SETTINGS(!settingsTableValid(misfit));

}  // namespace

// A stored empty text leaves the field as it was; a stored text replaces it.
TEST(SettingsTable, EmptyStoredTextKeepsTheField)
{
    Lamp lamp;
    lamp.note = "kept";
    for (const auto& [stored, expected] : {std::pair{"", "kept"}, std::pair{"desk", "desk"}}) {
        const ByteBuilder bytes = ByteBuilder().i32(0).str(stored);
        QuickArchive in = bytes.archive();
        ASSERT_TRUE(readSettings(lampSettings, in, lamp, 1));
        EXPECT_EQ(in.readPosition(), bytes.bytes.size());
        EXPECT_EQ(lamp.note, expected);
    }
}
