#include "scene/animated_values.h"

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "archive/quick_archive.h"
#include "records/record_io.h"

namespace TalvexCore {

namespace {

constexpr uint32_t RecordVersion = 1;
constexpr int32_t TimeWidth = 8;  // the byte width of a stored time

void writeValue(QuickArchive& out, int32_t v) { out.writeI32(v); }
void writeValue(QuickArchive& out, float v) { out.writeF32(v); }
void writeValue(QuickArchive& out, const Transform& v) { out.writeTransform(v); }
void readValue(QuickArchive& in, int32_t& v) { in.readI32(v); }
void readValue(QuickArchive& in, float& v) { in.readF32(v); }
void readValue(QuickArchive& in, Transform& v) { in.readTransform(v); }

// The record: tag, key count, time width, the flag where the class has one, then time and value
// per key in ascending time.
template <class V>
bool writeKeys(QuickArchive& out, const KeyFrames<V>& frames, const bool* interpolate)
{
    writeVersion(out, RecordVersion);
    out.writeCount(frames.keys().size());
    out.writeI32(TimeWidth);
    if (interpolate) out.writeBool(*interpolate);
    for (const auto& [time, value] : frames.keys()) {
        out.writeF64(time);
        writeValue(out, value);
    }
    return true;
}

// Reads the record, handing each key to `setKey`. A count of 0 or less reads no keys; a count the
// bytes left cannot hold fails the load.
template <class V, class SetKey>
bool readKeys(QuickArchive& in, bool* interpolate, SetKey setKey)
{
    if (!readVersion(in, {RecordVersion})) return false;
    int32_t count = 0, width = 0;
    const uint64_t countAt = in.readPosition();
    in.readI32(count);
    in.readI32(width);
    if (width != TimeWidth) {
        in.noteFailure(countAt + 4, "a time width of " + std::to_string(width) + " bytes, not 8");
        return false;
    }
    if (interpolate) in.readBool(*interpolate);
    if (count <= 0) return true;
    if (!in.countFits(static_cast<uint64_t>(count), TimeWidth + sizeof(V))) {
        in.noteFailure(countAt, "a count of " + std::to_string(count) + " keys that the " +
                                    std::to_string(in.dataLeft()) + " bytes left cannot hold");
        return false;
    }
    for (int32_t i = 0; i < count; ++i) {
        double time = 0;
        V value{};
        in.readF64(time);
        readValue(in, value);
        setKey(value, time);
    }
    return true;
}

float blend(float a, float b, float f) { return a * (1 - f) + b * f; }

// Truncates toward zero; a result no i32 holds gives the lowest i32, as the processor's
// conversion does.
int32_t truncated(float v)
{
    if (!(v > -2147483904.0f && v < 2147483648.0f)) return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(v);
}

template <class V>
double timeAt(const KeyFrames<V>& frames, int32_t index)
{
    const auto* key = frames.at(index);
    return key ? key->first : 0.0;
}

}  // namespace

template <class V>
bool AnimatedNumber<V>::writeBinary(QuickArchive& out) const
{
    return writeKeys(out, frames, &interpolate);
}

template <class V>
bool AnimatedNumber<V>::readBinary(QuickArchive& in)
{
    clear();
    return readKeys<V>(in, &interpolate, [this](V v, double t) { setKey(v, t); });
}

template <class V>
V AnimatedNumber<V>::valueAt(double time) const
{
    return frames.valueAt(time, interpolate, V{0}, [](V a, V b, float f) {
        if constexpr (std::is_same_v<V, float>) return blend(a, b, f);
        else return truncated(blend(static_cast<float>(a), static_cast<float>(b), f));
    });
}

template <class V>
double AnimatedNumber<V>::keyTime(int32_t index) const
{
    return timeAt(frames, index);
}

template <class V>
void AnimatedNumber<V>::clear()
{
    frames.dropAll();
    setKey(V{0}, 0.0);
}

template class AnimatedNumber<int32_t>;
template class AnimatedNumber<float>;

Transform AnimatedTransform::identity()
{
    Transform t;
    t.m.v[0].x = t.m.v[1].y = t.m.v[2].z = 1;
    return t;
}

bool AnimatedTransform::writeBinary(QuickArchive& out) const { return writeKeys(out, frames, nullptr); }

bool AnimatedTransform::readBinary(QuickArchive& in)
{
    clear();
    frames.dropAll();
    return readKeys<Transform>(in, nullptr, [this](const Transform& v, double t) { setKey(v, t); });
}

Transform AnimatedTransform::valueAt(double time) const
{
    return frames.valueAt(time, true, identity(), [](const Transform& a, const Transform& b, float f) {
        Transform r;
        for (int c = 0; c < 3; ++c) {
            r.m.v[c] = {blend(a.m.v[c].x, b.m.v[c].x, f), blend(a.m.v[c].y, b.m.v[c].y, f),
                        blend(a.m.v[c].z, b.m.v[c].z, f)};
        }
        r.offset = {blend(a.offset.x, b.offset.x, f), blend(a.offset.y, b.offset.y, f),
                    blend(a.offset.z, b.offset.z, f)};
        return r;
    });
}

double AnimatedTransform::keyTime(int32_t index) const { return timeAt(frames, index); }

Transform AnimatedTransform::keyValue(int32_t index) const
{
    const auto* key = frames.at(index);
    return key ? key->second : identity();
}

void AnimatedTransform::clear()
{
    frames.dropAll();
    setKey(identity(), 0.0);
}

}  // namespace TalvexCore
