// Settings rows: each stored value of an options holder described once, and the one reader, writer,
// reset, comparison and emitter that walk a holder's rows.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

#include "archive/quick_archive.h"
#include "archive/text_conversion.h"
#include "archive/value_types.h"
#include "xml/asset_xml_writer.h"

namespace TalvexCore {

// The settings assets, in the order the XML shows them; FrameData is the frame data's own asset.
enum class SettingsGroup : uint8_t {
    SettingsImageSampler, SettingsImageFilter, SettingsCamera, SettingsCameraDof, SettingsMotionBlur,
    SettingsGI, SettingsIrradianceMap, SettingsPhotonMap, SettingsLightCache, SettingsCaustics,
    SettingsRaycaster, SettingsRegionsGenerator, SettingsDMCGI, SettingsDMCSampler, SettingsColorMapping,
    SettingsRenderChannels, SettingsOptions, SettingsDefaultDisplacement, SettingsEnvironment,
    SettingsOutput, CameraPhysical, SettingsDR, FrameData, None
};
inline constexpr int settingsAssetCount = 22;
std::string_view settingsGroupName(SettingsGroup group);

// A value no record stores: only the reset and the XML touch it.
inline constexpr uint16_t neverStored = 0xFFFF;

// A stored path of at most 2047 wide characters: a longer stored path is cut on reading.
struct PathBuffer {
    static constexpr std::size_t capacity = 2048;
    std::u16string text;
    bool operator==(const PathBuffer&) const = default;
};

// An i32 used as a boolean: stored as i32, shown as a bool.
template <class H> struct FlagField { int32_t H::*member; };
// A word every version stores that has no field: written as its constant, dropped on reading.
struct ReservedWord { std::variant<int32_t, float> written; };

// What the emitter needs beyond the holder: the url of the group's asset.
struct SettingsXmlContext {
    const std::u16string& assetUrl;
};

template <class H> struct Setting;

// A value of its own kind (an embedded record, a texture slot, a path, a computed parameter): one
// function per operation, each optional.
template <class H> struct SettingKind {
    bool (*read)(QuickArchive& in, H& holder, uint32_t version) = nullptr;
    bool (*write)(QuickArchive& out, const H& holder) = nullptr;
    void (*reset)(H& holder) = nullptr;
    bool (*equal)(const H& a, const H& b) = nullptr;
    // Assets that stand ahead of the group's own asset, inside its Assets element.
    void (*emitChildAssets)(AssetXmlWriter& writer, const H& holder, const SettingsXmlContext& context) = nullptr;
    void (*emit)(AssetXmlWriter& writer, const H& holder, const Setting<H>& row, const SettingsXmlContext& context) =
        nullptr;
};

template <class H>
using SettingField = std::variant<int32_t H::*, FlagField<H>, uint32_t H::*, float H::*, double H::*, Color H::*,
                                  TransformD H::*, std::string H::*, std::u16string H::*, PathBuffer H::*,
                                  ReservedWord, const SettingKind<H>*>;

using SettingValue = std::variant<std::monostate, int32_t, uint32_t, float, double, Color>;

// One row: the XML parameter name, the field, its default, the versions of the holder's record
// that store it, and where the XML shows it. Table order is record order.
template <class H> struct Setting {
    std::string_view name;
    SettingField<H> field;
    SettingValue initial = {};
    uint16_t since = neverStored;
    SettingsGroup group = SettingsGroup::None;
    int8_t xmlPosition = -1;
    std::string_view label = {};
    bool userData = false;
    uint16_t until = 0xFFFE;  // the last version that stores it
    bool forced = false;      // whatever a file holds, reading leaves the default

    constexpr Setting storedUntil(uint16_t last) const { Setting s = *this; s.until = last; return s; }
    constexpr Setting forcedToDefault() const { Setting s = *this; s.forced = true; return s; }
    constexpr bool storedIn(uint32_t version) const { return since <= version && version <= until; }
};

namespace settings_detail {

template <class T> T initialAs(const SettingValue& v)
{
    return std::visit([](const auto& x) -> T {
        using X = std::decay_t<decltype(x)>;
        if constexpr (std::is_same_v<X, std::monostate>) return T{};
        else if constexpr (std::is_same_v<X, Color> || std::is_same_v<T, Color>) {
            if constexpr (std::is_same_v<X, T>) return x; else return T{};
        } else return static_cast<T>(x);
    }, v);
}

template <class T> bool sameBits(const T& a, const T& b) { return std::memcmp(&a, &b, sizeof(T)) == 0; }

inline void readValue(QuickArchive& in, int32_t& v) { in.readI32(v); }
inline void readValue(QuickArchive& in, uint32_t& v) { in.readU32(v); }
inline void readValue(QuickArchive& in, float& v) { in.readF32(v); }
inline void readValue(QuickArchive& in, double& v) { in.readF64(v); }
inline void readValue(QuickArchive& in, Color& v) { in.readColor(v); }
inline void readValue(QuickArchive& in, TransformD& v) { in.readTransformD(v); }
// A held narrow text: an empty stored string leaves it as it stands.
inline void readValue(QuickArchive& in, std::string& v)
{
    std::u16string text;
    in.readWString(text);
    if (!text.empty()) v = wideToNarrow(text);
}
inline void readValue(QuickArchive& in, std::u16string& v) { in.readWString(v); }
inline void readValue(QuickArchive& in, PathBuffer& v)
{
    in.readWString(v.text);
    if (v.text.size() >= PathBuffer::capacity) v.text.resize(PathBuffer::capacity - 1);
}
inline void writeValue(QuickArchive& out, int32_t v) { out.writeI32(v); }
inline void writeValue(QuickArchive& out, uint32_t v) { out.writeU32(v); }
inline void writeValue(QuickArchive& out, float v) { out.writeF32(v); }
inline void writeValue(QuickArchive& out, double v) { out.writeF64(v); }
inline void writeValue(QuickArchive& out, const Color& v) { out.writeColor(v); }
inline void writeValue(QuickArchive& out, const TransformD& v) { out.writeTransformD(v); }
inline void writeValue(QuickArchive& out, const std::string& v) { out.writeWString(narrowToWide(v)); }
inline void writeValue(QuickArchive& out, const std::u16string& v) { out.writeWString(v); }
inline void writeValue(QuickArchive& out, const PathBuffer& v) { out.writeWString(v.text); }

// Texts and paths reset to empty, everything else to the row's default.
template <class T> inline constexpr bool resetsEmpty =
    std::is_same_v<T, std::string> || std::is_same_v<T, std::u16string> || std::is_same_v<T, PathBuffer> ||
    std::is_same_v<T, TransformD>;
template <class T> inline constexpr bool comparesByValue =
    std::is_same_v<T, std::string> || std::is_same_v<T, std::u16string> || std::is_same_v<T, PathBuffer>;

template <class> inline constexpr bool isMember = false;
template <class H, class T> inline constexpr bool isMember<T H::*> = true;

}  // namespace settings_detail

// Reads the rows that `version` stores, in table order; false when a row of its own kind fails.
template <class H>
bool readSettings(QuickArchive& in, H& holder, std::span<const Setting<H>> rows, uint32_t version)
{
    using namespace settings_detail;
    for (const Setting<H>& row : rows) {
        if (!row.storedIn(version)) continue;
        const bool ok = std::visit([&](const auto& f) {
            using F = std::decay_t<decltype(f)>;
            if constexpr (std::is_same_v<F, FlagField<H>>) readValue(in, holder.*f.member);
            else if constexpr (std::is_same_v<F, ReservedWord>) { uint32_t dropped = 0; in.readU32(dropped); }
            else if constexpr (std::is_same_v<F, const SettingKind<H>*>) return !f->read || f->read(in, holder, version);
            else readValue(in, holder.*f);
            return true;
        }, row.field);
        if (!ok) return false;
        if (row.forced) std::visit([&](const auto& f) {
            using F = std::decay_t<decltype(f)>;
            if constexpr (isMember<F>) {
                using T = std::decay_t<decltype(holder.*f)>;
                if constexpr (!resetsEmpty<T>) holder.*f = initialAs<T>(row.initial);
            }
        }, row.field);
    }
    return true;
}

// Writes the rows of the newest version; false when a row of its own kind fails.
template <class H>
bool writeSettings(QuickArchive& out, const H& holder, std::span<const Setting<H>> rows, uint32_t newest)
{
    using namespace settings_detail;
    for (const Setting<H>& row : rows) {
        if (!row.storedIn(newest)) continue;
        const bool ok = std::visit([&](const auto& f) {
            using F = std::decay_t<decltype(f)>;
            if constexpr (std::is_same_v<F, FlagField<H>>) writeValue(out, holder.*f.member);
            else if constexpr (std::is_same_v<F, ReservedWord>) std::visit([&](auto w) { writeValue(out, w); }, f.written);
            else if constexpr (std::is_same_v<F, const SettingKind<H>*>) return !f->write || f->write(out, holder);
            else writeValue(out, holder.*f);
            return true;
        }, row.field);
        if (!ok) return false;
    }
    return true;
}

// Sets every row to its default; a row of its own kind resets itself.
template <class H>
void resetSettings(H& holder, std::span<const Setting<H>> rows)
{
    using namespace settings_detail;
    for (const Setting<H>& row : rows) {
        std::visit([&](const auto& f) {
            using F = std::decay_t<decltype(f)>;
            if constexpr (std::is_same_v<F, FlagField<H>>) holder.*f.member = initialAs<int32_t>(row.initial);
            else if constexpr (std::is_same_v<F, const SettingKind<H>*>) { if (f->reset) f->reset(holder); }
            else if constexpr (isMember<F>) {
                using T = std::decay_t<decltype(holder.*f)>;
                if constexpr (resetsEmpty<T>) holder.*f = T{};
                else holder.*f = initialAs<T>(row.initial);
            }
        }, row.field);
    }
}

// Equal when every row holds the same value; numbers compare by their bits, so a loaded NaN
// equals itself.
template <class H>
bool equalSettings(const H& a, const H& b, std::span<const Setting<H>> rows)
{
    using namespace settings_detail;
    for (const Setting<H>& row : rows) {
        const bool same = std::visit([&](const auto& f) {
            using F = std::decay_t<decltype(f)>;
            if constexpr (std::is_same_v<F, FlagField<H>>) return a.*f.member == b.*f.member;
            else if constexpr (std::is_same_v<F, ReservedWord>) return true;
            else if constexpr (std::is_same_v<F, const SettingKind<H>*>) return !f->equal || f->equal(a, b);
            else if constexpr (comparesByValue<std::decay_t<decltype(a.*f)>>) return a.*f == b.*f;
            else return sameBits(a.*f, b.*f);
        }, row.field);
        if (!same) return false;
    }
    return true;
}

// The parameter of one row, by the form its field's type gives.
template <class H>
void emitSetting(AssetXmlWriter& writer, const H& holder, const Setting<H>& row, const SettingsXmlContext& context)
{
    std::visit([&](const auto& f) {
        using F = std::decay_t<decltype(f)>;
        if constexpr (std::is_same_v<F, FlagField<H>>) writer.writeBool(row.name, holder.*f.member != 0, row.label, row.userData);
        else if constexpr (std::is_same_v<F, const SettingKind<H>*>) { if (f->emit) f->emit(writer, holder, row, context); }
        else if constexpr (std::is_same_v<F, ReservedWord>) {}
        else {
            const auto& v = holder.*f;
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, int32_t>) writer.writeInt(row.name, v, row.label, row.userData);
            else if constexpr (std::is_same_v<T, uint32_t>) writer.writeInt(row.name, static_cast<int32_t>(v), row.label, row.userData);
            else if constexpr (std::is_same_v<T, float>) writer.writeFloat(row.name, v, row.label, row.userData);
            else if constexpr (std::is_same_v<T, double>) writer.writeFloat(row.name, static_cast<float>(v), row.label, row.userData);
            else if constexpr (std::is_same_v<T, Color>) writer.writeColor(row.name, v, row.label);
            else if constexpr (std::is_same_v<T, std::u16string>) writer.writeFileString(row.name, v, row.label, row.userData);
            else if constexpr (std::is_same_v<T, PathBuffer>) writer.writeFileString(row.name, v.text, row.label, row.userData);
            else if constexpr (std::is_same_v<T, TransformD>)
                writer.writeTransform(row.name, Transform{v.m, {static_cast<float>(v.offset[0]), static_cast<float>(v.offset[1]),
                                                                static_cast<float>(v.offset[2])}}, row.label);
        }
    }, row.field);
}

// The assets a group's rows put ahead of the group's own asset.
template <class H>
void emitSettingChildAssets(AssetXmlWriter& writer, const H& holder, const Setting<H>& row, const SettingsXmlContext& context)
{
    if (const auto* kind = std::get_if<const SettingKind<H>*>(&row.field); kind && (*kind)->emitChildAssets)
        (*kind)->emitChildAssets(writer, holder, context);
}

// The rows of several holders by group and XML position: the XML of a group draws on all of them.
template <class... H>
class SettingsLayout {
public:
    using Entry = std::variant<const Setting<H>*...>;

    explicit SettingsLayout(std::span<const Setting<H>>... tables)
    {
        (add(tables), ...);
        for (auto& group : groups)
            std::sort(group.begin(), group.end(), [](const Entry& a, const Entry& b) { return position(a) < position(b); });
    }

    const std::vector<Entry>& rows(SettingsGroup group) const { return groups[static_cast<std::size_t>(group)]; }

    // True when each group's XML positions run from 0 with no gap and no repeat.
    bool dense() const
    {
        for (const auto& group : groups)
            for (std::size_t i = 0; i < group.size(); ++i)
                if (position(group[i]) != static_cast<int>(i)) return false;
        return true;
    }

    void emitChildAssets(AssetXmlWriter& writer, SettingsGroup group, const SettingsXmlContext& context,
                         const H&... holders) const
    {
        const std::tuple<const H&...> all(holders...);
        for (const Entry& entry : rows(group))
            std::visit([&](const auto* row) { emitSettingChildAssets(writer, holderOf(all, row), *row, context); }, entry);
    }

    void emit(AssetXmlWriter& writer, SettingsGroup group, const SettingsXmlContext& context, const H&... holders) const
    {
        const std::tuple<const H&...> all(holders...);
        for (const Entry& entry : rows(group))
            std::visit([&](const auto* row) { emitSetting(writer, holderOf(all, row), *row, context); }, entry);
    }

private:
    template <class T>
    void add(std::span<const Setting<T>> table)
    {
        for (const Setting<T>& row : table)
            if (row.group != SettingsGroup::None) groups[static_cast<std::size_t>(row.group)].push_back(&row);
    }
    static int position(const Entry& entry)
    {
        return std::visit([](const auto* row) { return static_cast<int>(row->xmlPosition); }, entry);
    }
    template <class T>
    static const T& holderOf(const std::tuple<const H&...>& all, const Setting<T>*) { return std::get<const T&>(all); }

    std::array<std::vector<Entry>, static_cast<std::size_t>(SettingsGroup::None)> groups;
};

}  // namespace TalvexCore
