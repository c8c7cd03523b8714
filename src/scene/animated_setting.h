// The settings-table row of a key-framed real: old records store one value for time 0, newer ones
// the whole container; the XML shows the value at time 0.
#pragma once

#include <cstdint>

#include "archive/quick_archive.h"
#include "records/settings_table.h"
#include "scene/animated_values.h"

namespace TalvexCore {

// `Member` is an AnimatedReal of the holder; records of `RecordSince` and later store its record,
// older ones a single f32. The reset sets the key at time 0 to `Initial`, leaving other keys; the
// initial values are whole numbers, given as an integer so that every compiler takes the parameter.
template <auto Member, int Initial, uint16_t RecordSince>
constexpr auto keyedRealSetting()
{
    using H = typename settings_detail::MemberOf<decltype(Member)>::Holder;
    return SpecialSetting<H>{
        .read = [](QuickArchive& in, H& h, uint16_t version) {
            if (version >= RecordSince) return (h.*Member).readBinary(in);
            float value = (h.*Member).valueAt(0.0);
            in.readF32(value);
            (h.*Member).setKey(value, 0.0);
            return true;
        },
        .write = [](QuickArchive& out, const H& h) { return (h.*Member).writeBinary(out); },
        .reset = [](H& h) { (h.*Member).setKey(static_cast<float>(Initial), 0.0); },
        .equal = [](const H& a, const H& b) { return a.*Member == b.*Member; },
        .shown = [](const H& h) -> ShownValue { return (h.*Member).valueAt(0.0); },
    };
}

}  // namespace TalvexCore
