// Settings tables: each stored value of a holder described once, in data, and the one reader, writer,
// reset, comparison and emitter that walk such a table.
//
// A table is a constexpr std::array<Setting<Holder>, N> in record order. A row says where the value
// lives (a pointer to a member of the holder), what the reset gives it, the first record version
// that stores it, and where the XML shows it (group, position in the group, form, label, user-data
// mark). Values of one XML group may come from several holders: the emitter takes one bound table
// per holder and merges their rows by position.
//
//     constexpr std::array<Setting<PhysicalCamera>, 3> cameraSettings{{
//         {"type", &PhysicalCamera::type, 0, 1, "CameraPhysical", 1, Form::Int},
//         {"film_width", &PhysicalCamera::film_width, 36.0f, 1, "CameraPhysical", 2, Form::Float},
//         {"use_moblur", &PhysicalCamera::use_moblur, 0, 2, "CameraPhysical", 28, Form::Bool},
//     }};
//     static_assert(settingsTableValid(cameraSettings));            // forms fit the fields
//     static_assert(xmlPositionsValid(cameraSettings, allOptionsSettings));  // no gaps, no repeats
//
//     resetSettings(cameraSettings, camera);
//     readSettings(cameraSettings, in, camera, version);   // the rows with since <= version
//     writeSettings(cameraSettings, out, camera);          // every row: the newest record
//     settingsEqual(cameraSettings, a, b);
//     writeSettingParameters(writer, "CameraPhysical", assetUrl,
//                            bindSettings(allOptionsSettings, options), bindSettings(cameraSettings, camera));
//
// Irregular values are rows whose `special` points to a constexpr SpecialSetting, made by one of the
// makers below: computedSetting (a parameter computed from others, shown only), migratedSetting
// (a field that old versions store in another form: its own read, the rest as a plain field),
// embeddedRecord (a member with a record of its own) and childSlot (an optional child object, shown
// as a plugin reference; settingChildren lists a group's children for its asset frame, which writes
// their assets ahead of the group's), and reservedWord (an i32 or f32 with no field: reading drops
// it, writing puts a constant). A special's function replaces the plain operation of the row; a
// null function leaves the plain operation, if the row has a field.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "archive/value_types.h"
#include "records/record_io.h"
#include "records/serializable.h"

namespace TalvexCore {

// A fixed path buffer of wide characters, always terminated; files store it as a wide string that
// loading cuts to fit.
using PathBuffer = std::array<char16_t, 2048>;

// How the XML shows a value. Bool shows an i32 flag as true for anything but 0.
enum class Form : uint8_t { Hidden, Int, Float, Bool, Color, Transform, String, FileString, Plugin, List };

// Where a value lives in its holder: one alternative per stored type. An i32 serves for flags too.
// `std::string` is narrow text, stored as a wide string.
template <class Holder>
using Field = std::variant<std::monostate, int32_t Holder::*, uint32_t Holder::*, float Holder::*,
                           double Holder::*, Color Holder::*, TransformD Holder::*, std::string Holder::*,
                           std::u16string Holder::*, PathBuffer Holder::*>;

// The first version of a row that no record stores: the reset and the XML know it, files never do.
inline constexpr uint16_t notStored = 0xFFFF;

// A list the XML shows as named entries: one name per id, in order.
struct NameList {
    std::span<const int32_t> ids;
    std::string_view (*name)(int32_t id) = nullptr;
    std::string_view elementType;
};

// What a reset gives a number or colour; texts, paths and transforms reset to empty and zero.
using InitialValue = std::variant<int32_t, uint32_t, float, double, Color>;

// A value as the XML shows it.
using ShownValue = std::variant<std::monostate, int32_t, uint32_t, float, double, Color, Transform,
                                std::u16string_view, std::string_view, NameList>;

// The operations of an irregular row; each replaces the plain one where it is set.
template <class Holder>
struct SpecialSetting {
    bool (*read)(QuickArchive& in, Holder& h, uint16_t version) = nullptr;
    bool (*write)(QuickArchive& out, const Holder& h) = nullptr;
    void (*reset)(Holder& h) = nullptr;
    bool (*equal)(const Holder& a, const Holder& b) = nullptr;
    ShownValue (*shown)(const Holder& h) = nullptr;
    // Plugin rows: the child, null when the slot is empty, and what its url adds to the group's.
    const TalvexXMLSerializable* (*child)(const Holder& h) = nullptr;
    std::string_view childSuffix{};
};

// One stored or shown value of a holder. Table order is record order.
template <class Holder>
struct Setting {
    std::string_view name;          // XML parameter name (the field's name where it is shown nowhere)
    Field<Holder> field{};
    InitialValue initial{int32_t{0}};
    uint16_t since = 0;             // first record version that stores it
    std::string_view group{};       // XML group; empty: shown nowhere
    uint8_t position = 0;           // place in the group's parameter list, from 0
    Form form = Form::Hidden;
    std::string_view label{};       // empty: the writer repeats the name
    bool userData = false;
    const SpecialSetting<Holder>* special = nullptr;
};

// The four kinds of irregular row.

// A parameter computed from other values on the way out; nothing is stored.
template <class Holder>
constexpr SpecialSetting<Holder> computedSetting(ShownValue (*shown)(const Holder&))
{
    return {.shown = shown};
}

// A field that older versions store in another form, or that reading changes: its own read, with
// the record's version; written, reset, compared and shown as the row's plain field.
template <class Holder>
constexpr SpecialSetting<Holder> migratedSetting(bool (*read)(QuickArchive&, Holder&, uint16_t))
{
    return {.read = read};
}

// A word that records keep with no field behind it: reading drops it, writing puts `Value`.
template <class Holder, int32_t Value>
constexpr SpecialSetting<Holder> reservedWord()
{
    return {
        .read = [](QuickArchive& in, Holder&, uint16_t) {
            int32_t dropped = Value;
            in.readI32(dropped);
            return true;
        },
        .write = [](QuickArchive& out, const Holder&) {
            out.writeI32(Value);
            return true;
        },
    };
}

// The same for an f32 word, given by its bits (1.0 is 0x3F800000) so that every compiler takes it.
template <class Holder, uint32_t Bits>
constexpr SpecialSetting<Holder> reservedF32Word()
{
    return {
        .read = [](QuickArchive& in, Holder&, uint16_t) {
            uint32_t dropped = Bits;
            in.readU32(dropped);
            return true;
        },
        .write = [](QuickArchive& out, const Holder&) {
            out.writeU32(Bits);
            return true;
        },
    };
}

namespace settings_detail {
template <class M> struct MemberOf;
template <class H, class T> struct MemberOf<T H::*> {
    using Holder = H;
    using Type = T;
};
}  // namespace settings_detail

// A member with a record of its own (readBinary, writeBinary, resetDefaults, operator==).
template <auto Member>
constexpr auto embeddedRecord()
{
    using H = typename settings_detail::MemberOf<decltype(Member)>::Holder;
    return SpecialSetting<H>{
        .read = [](QuickArchive& in, H& h, uint16_t) { return readEmbeddedRecord(in, h.*Member); },
        .write = [](QuickArchive& out, const H& h) { return (h.*Member).writeBinary(out); },
        .reset = [](H& h) { (h.*Member).resetDefaults(); },
        .equal = [](const H& a, const H& b) { return a.*Member == b.*Member; },
    };
}

// An optional child object held by shared reference: a presence byte, its type id, its record.
// The reset empties the slot; the XML names the child by url under the group's url and `suffix`.
template <auto Member>
constexpr auto childSlot(std::string_view suffix)
{
    using H = typename settings_detail::MemberOf<decltype(Member)>::Holder;
    return SpecialSetting<H>{
        .read = [](QuickArchive& in, H& h, uint16_t) { return readChild(in, h.*Member); },
        .write = [](QuickArchive& out, const H& h) { return writeChild(out, h.*Member); },
        .reset = [](H& h) { (h.*Member).reset(); },
        .equal = [](const H& a, const H& b) { return childEqual(a.*Member, b.*Member); },
        .child = [](const H& h) -> const TalvexXMLSerializable* { return (h.*Member).get(); },
        .childSuffix = suffix,
    };
}

namespace settings_detail {

template <class T>
void readValue(QuickArchive& in, T& v)
{
    if constexpr (std::is_same_v<T, int32_t>) in.readI32(v);
    else if constexpr (std::is_same_v<T, uint32_t>) in.readU32(v);
    else if constexpr (std::is_same_v<T, float>) in.readF32(v);
    else if constexpr (std::is_same_v<T, double>) in.readF64(v);
    else if constexpr (std::is_same_v<T, Color>) in.readColor(v);
    else if constexpr (std::is_same_v<T, TransformD>) in.readTransformD(v);
    else if constexpr (std::is_same_v<T, std::u16string>) in.readWString(v);
    else if constexpr (std::is_same_v<T, std::string>) {
        // An empty stored text leaves the field as it is.
        std::u16string wide;
        in.readWString(wide);
        if (!wide.empty()) v = wideToNarrow(wide);
    } else if constexpr (std::is_same_v<T, PathBuffer>) {
        std::u16string wide;
        in.readWString(wide);
        const std::size_t n = std::min(wide.size(), v.size() - 1);
        std::copy_n(wide.begin(), n, v.begin());
        v[n] = 0;
    }
}

inline std::u16string_view pathText(const PathBuffer& p)
{
    return {p.data(), std::char_traits<char16_t>::length(p.data())};
}

template <class T>
void writeValue(QuickArchive& out, const T& v)
{
    if constexpr (std::is_same_v<T, int32_t>) out.writeI32(v);
    else if constexpr (std::is_same_v<T, uint32_t>) out.writeU32(v);
    else if constexpr (std::is_same_v<T, float>) out.writeF32(v);
    else if constexpr (std::is_same_v<T, double>) out.writeF64(v);
    else if constexpr (std::is_same_v<T, Color>) out.writeColor(v);
    else if constexpr (std::is_same_v<T, TransformD>) out.writeTransformD(v);
    else if constexpr (std::is_same_v<T, std::u16string>) out.writeWString(v);
    else if constexpr (std::is_same_v<T, std::string>) out.writeWString(narrowToWide(v));
    else if constexpr (std::is_same_v<T, PathBuffer>) out.writeWString(std::u16string(pathText(v)));
}

template <class T>
void resetValue(T& v, const InitialValue& initial)
{
    if constexpr (std::is_arithmetic_v<T>) {
        v = std::visit([](const auto& i) -> T {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(i)>>) return static_cast<T>(i);
            else return T{};
        }, initial);
    } else if constexpr (std::is_same_v<T, Color>) {
        v = std::holds_alternative<Color>(initial) ? std::get<Color>(initial) : Color{};
    } else if constexpr (std::is_same_v<T, PathBuffer>) {
        v.fill(0);
    } else {
        v = T{};
    }
}

template <class T>
ShownValue shownValue(const T& v)
{
    if constexpr (std::is_same_v<T, TransformD>) {
        // The offset narrowed to single precision.
        return Transform{v.m, {static_cast<float>(v.offset[0]), static_cast<float>(v.offset[1]),
                               static_cast<float>(v.offset[2])}};
    } else if constexpr (std::is_same_v<T, std::u16string>) {
        return std::u16string_view(v);
    } else if constexpr (std::is_same_v<T, std::string>) {
        return std::string_view(v);
    } else if constexpr (std::is_same_v<T, PathBuffer>) {
        return pathText(v);
    } else {
        return v;
    }
}

// Whether an alternative of Field<Holder> can name a member: a member is never larger than its
// holder, and leaving out the types that can't fit spares the compiler code it would warn about.
template <class Holder, class Member>
constexpr bool canHold()
{
    if constexpr (std::is_same_v<Member, std::monostate>) return false;
    else return sizeof(std::remove_reference_t<decltype(std::declval<Holder&>().*std::declval<Member>())>) <=
                sizeof(Holder);
}

// Calls f with a reference to the row's field in `h`; nothing when the row has no field.
template <class Holder, class HolderRef, class F>
void withField(const Setting<Holder>& row, HolderRef& h, F&& f)
{
    std::visit([&](auto member) {
        if constexpr (canHold<Holder, decltype(member)>()) f(h.*member);
    }, row.field);
}

template <class Holder>
ShownValue shown(const Setting<Holder>& row, const Holder& h)
{
    if (row.special && row.special->shown) return row.special->shown(h);
    ShownValue value;
    withField(row, h, [&](const auto& v) { value = shownValue(v); });
    return value;
}

template <class Writer>
void writeShown(Writer& w, std::string_view name, Form form, const ShownValue& value, std::string_view label,
                bool userData)
{
    std::visit([&](const auto& v) {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, int32_t> || std::is_same_v<T, uint32_t>) {
            if (form == Form::Bool) w.writeBool(name, v != 0, label, userData);
            else w.writeInt(name, static_cast<int32_t>(v), label, userData);
        } else if constexpr (std::is_same_v<T, float> || std::is_same_v<T, double>) {
            w.writeFloat(name, static_cast<float>(v), label, userData);
        } else if constexpr (std::is_same_v<T, Color>) {
            w.writeColor(name, v, label);
        } else if constexpr (std::is_same_v<T, Transform>) {
            w.writeTransform(name, v, label);
        } else if constexpr (std::is_same_v<T, std::u16string_view> || std::is_same_v<T, std::string_view>) {
            if (form == Form::FileString) w.writeFileString(name, v, label, userData);
            else w.writeString(name, v, label, userData);
        } else if constexpr (std::is_same_v<T, NameList>) {
            w.openList(name, v.elementType, label);
            for (int32_t id : v.ids) w.writeEntry(v.name(id));
            w.closeList();
        }
    }, value);
}

inline std::u16string childUrl(const std::u16string& assetUrl, std::string_view suffix)
{
    std::u16string url = assetUrl;
    url += u'/';
    appendNarrowAsWide(url, suffix);
    return url;
}

// The forms each stored type may take in the XML. Rows with no field are irregular and show what
// their special gives; the check leaves them alone, since a pointer's test is no constant where
// the sanitizers keep null checks.
template <class Holder>
constexpr bool formFits(const Setting<Holder>& row)
{
    if (row.group.empty() || row.field.index() == 0) return true;
    switch (row.field.index()) {
        case 1: case 2: return row.form == Form::Int || row.form == Form::Bool;
        case 3: case 4: return row.form == Form::Float;
        case 5: return row.form == Form::Color;
        case 6: return row.form == Form::Transform;
        default: return row.form == Form::String || row.form == Form::FileString;
    }
}

struct Place {
    std::string_view group;
    uint8_t position;
};

}  // namespace settings_detail

// Sets every row to its default, in table order.
template <class Holder, std::size_t N>
void resetSettings(const std::array<Setting<Holder>, N>& table, Holder& h)
{
    for (const auto& row : table) {
        if (row.special && row.special->reset) row.special->reset(h);
        else settings_detail::withField(row, h, [&](auto& v) { settings_detail::resetValue(v, row.initial); });
    }
}

// Reads the rows that a record of `version` stores, in table order; false at the first special
// row whose read fails. Reading past the end is no failure: the fields keep what they hold.
template <class Holder, std::size_t N>
bool readSettings(const std::array<Setting<Holder>, N>& table, QuickArchive& in, Holder& h, uint16_t version)
{
    for (const auto& row : table) {
        if (row.since > version) continue;
        if (row.special && row.special->read) {
            if (!row.special->read(in, h, version)) return false;
        } else {
            settings_detail::withField(row, h, [&](auto& v) { settings_detail::readValue(in, v); });
        }
    }
    return true;
}

// Writes every stored row, the newest record; false at the first special row whose write fails.
template <class Holder, std::size_t N>
bool writeSettings(const std::array<Setting<Holder>, N>& table, QuickArchive& out, const Holder& h)
{
    for (const auto& row : table) {
        if (row.since == notStored) continue;
        if (row.special && row.special->write) {
            if (!row.special->write(out, h)) return false;
        } else {
            // A plain or migrated field: the newest form stores it as it is held.
            settings_detail::withField(row, h, [&](const auto& v) { settings_detail::writeValue(out, v); });
        }
    }
    return true;
}

// Whether two holders agree in every row; values compare exactly.
template <class Holder, std::size_t N>
bool settingsEqual(const std::array<Setting<Holder>, N>& table, const Holder& a, const Holder& b)
{
    for (const auto& row : table) {
        if (row.special && row.special->equal) {
            if (!row.special->equal(a, b)) return false;
            continue;
        }
        bool same = true;
        std::visit([&](auto member) {
            if constexpr (settings_detail::canHold<Holder, decltype(member)>()) same = a.*member == b.*member;
        }, row.field);
        if (!same) return false;
    }
    return true;
}

// A table with the holder whose values it shows, for the emitter.
template <class Holder>
struct BoundSettings {
    std::span<const Setting<Holder>> rows;
    const Holder& holder;
};

template <class Holder, std::size_t N>
BoundSettings<Holder> bindSettings(const std::array<Setting<Holder>, N>& table, const Holder& h)
{
    return {std::span<const Setting<Holder>>(table), h};
}

namespace settings_detail {

// Writes one row of a holder: a plugin row names its child under the group's url, any other row
// shows its value in its form.
template <class Writer, class Holder>
void writeRow(Writer& writer, const void* rowPtr, const void* holderPtr, const std::u16string& assetUrl)
{
    const auto& row = *static_cast<const Setting<Holder>*>(rowPtr);
    const auto& holder = *static_cast<const Holder*>(holderPtr);
    if (row.form == Form::Plugin)
        writer.writePlugin(row.name, row.special->child(holder), childUrl(assetUrl, row.special->childSuffix), row.label);
    else
        writeShown(writer, row.name, row.form, shown(row, holder), row.label, row.userData);
}

}  // namespace settings_detail

// Writes the parameters of `group`, in XML position order, drawn from every bound table. The
// caller frames them (assets, asset, plugin, parameters); `assetUrl` is the group's url, under
// which plugin rows name their children.
template <class Writer, class... Holders>
void writeSettingParameters(Writer& writer, std::string_view group, const std::u16string& assetUrl,
                            BoundSettings<Holders>... tables)
{
    // One pass per table puts each row in its place; positions are below 256.
    struct Slot {
        const void* row;
        const void* holder;
        void (*write)(Writer&, const void*, const void*, const std::u16string&);
    };
    std::array<Slot, 256> slots;
    std::size_t count = 0;
    auto collect = [&](const auto& bound) {
        using Holder = std::remove_cvref_t<decltype(bound.holder)>;
        for (const auto& row : bound.rows) {
            if (row.group != group) continue;
            for (; count <= row.position; ++count) slots[count] = {};
            slots[row.position] = {&row, &bound.holder, &settings_detail::writeRow<Writer, Holder>};
        }
    };
    (collect(tables), ...);
    for (std::size_t i = 0; i < count; ++i)
        if (slots[i].write) slots[i].write(writer, slots[i].row, slots[i].holder, assetUrl);
}

// A child that a group's plugin row names: the parameter, the word its url adds to the group's,
// and the child, null when the slot is empty. The group's asset frame writes the present children's
// assets ahead of the group's own.
struct SettingChild {
    std::string_view parameter;
    std::string_view urlWord;
    const TalvexXMLSerializable* child;
};

// The children of `group`'s plugin rows, in XML position order.
template <class... Holders>
std::vector<SettingChild> settingChildren(std::string_view group, BoundSettings<Holders>... tables)
{
    std::vector<std::pair<uint8_t, SettingChild>> found;
    auto collect = [&](const auto& bound) {
        for (const auto& row : bound.rows)
            if (row.group == group && row.form == Form::Plugin)
                found.push_back({row.position, {row.name, row.special->childSuffix, row.special->child(bound.holder)}});
    };
    (collect(tables), ...);
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<SettingChild> children;
    for (const auto& entry : found) children.push_back(entry.second);
    return children;
}

// Compile-time checks, for a static_assert beside the tables, made through CINDREL_CHECK_SETTINGS:
// clang does not take the tables' initializers (rows of pointers to members and functions of the
// holders they describe) as constants, so the build made with it, the fuzz build, leaves the checks
// to the others, which make them at every build.
#if defined(__clang__)
#define CINDREL_CHECK_SETTINGS(...) static_assert(true)
#else
#define CINDREL_CHECK_SETTINGS(...) static_assert(__VA_ARGS__)
#endif

// Every shown row with a field has a form that fits the field.
template <class Holder, std::size_t N>
constexpr bool settingsTableValid(const std::array<Setting<Holder>, N>& table)
{
    for (const auto& row : table)
        if (!settings_detail::formFits(row)) return false;
    return true;
}

// The XML positions of each group, across all the tables that feed it, run from 0 with no gap
// and no repeat.
template <class... Holders, std::size_t... N>
constexpr bool xmlPositionsValid(const std::array<Setting<Holders>, N>&... tables)
{
    std::array<settings_detail::Place, (N + ... + 0)> places{};
    std::size_t used = 0;
    auto collect = [&](const auto& table) {
        for (const auto& row : table)
            if (!row.group.empty()) places[used++] = {row.group, row.position};
    };
    (collect(tables), ...);
    for (std::size_t i = 0; i < used; ++i) {
        std::size_t inGroup = 0, samePlace = 0;
        for (std::size_t j = 0; j < used; ++j) {
            if (places[j].group != places[i].group) continue;
            ++inGroup;
            if (places[j].position == places[i].position) ++samePlace;
        }
        if (samePlace != 1 || places[i].position >= inGroup) return false;
    }
    return true;
}

}  // namespace TalvexCore
