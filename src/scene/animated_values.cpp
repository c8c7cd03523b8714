#include "scene/animated_values.h"

#include <cmath>
#include <iterator>

#include "archive/quick_archive.h"
#include "records/record_io.h"
#include "records/shared_constants.h"

namespace TalvexCore {

namespace {

constexpr double timeTolerance = 1e-12;

template <class Map>
auto findTime(Map& keys, double time)
{
    auto it = keys.lower_bound(time - timeTolerance);
    return it != keys.end() && std::fabs(it->first - time) < timeTolerance ? it : keys.end();
}

}  // namespace

void AnimatedTransform::clear()
{
    keys.clear();
    setKey(identityTransform, 0.0);
}

void AnimatedTransform::setKey(const Transform& value, double time)
{
    auto it = findTime(keys, time);
    if (it != keys.end()) it->second = value;
    else keys.emplace(time, value);
}

double AnimatedTransform::keyTime(int32_t index) const
{
    if (index < 0 || index >= keyCount()) return 0.0;
    return std::next(keys.begin(), index)->first;
}

Transform AnimatedTransform::keyValue(int32_t index) const
{
    if (index < 0 || index >= keyCount()) return identityTransform;
    return std::next(keys.begin(), index)->second;
}

Transform AnimatedTransform::valueAt(double time) const
{
    if (keys.empty()) return identityTransform;
    auto exact = findTime(keys, time);
    if (exact != keys.end()) return exact->second;
    auto next = keys.upper_bound(time);
    if (next == keys.end()) return std::prev(next)->second;
    auto prev = next == keys.begin() ? next : std::prev(next);
    const float f = static_cast<float>((time - prev->first) / (next->first - prev->first));
    Transform result;
    const float* a = &prev->second.m.v[0].x;
    const float* b = &next->second.m.v[0].x;
    float* r = &result.m.v[0].x;
    for (int i = 0; i < 9; ++i) r[i] = a[i] * (1 - f) + b[i] * f;
    const float* ao = &prev->second.offset.x;
    const float* bo = &next->second.offset.x;
    float* ro = &result.offset.x;
    for (int i = 0; i < 3; ++i) ro[i] = ao[i] * (1 - f) + bo[i] * f;
    return result;
}

bool AnimatedTransform::writeBinary(QuickArchive& out) const
{
    writeVersion(out, 1);
    out.writeCount(keys.size());
    out.writeCount(8);
    for (const auto& [time, value] : keys) {
        out.writeF64(time);
        out.writeTransform(value);
    }
    return true;
}

bool AnimatedTransform::readBinary(QuickArchive& in)
{
    clear();
    keys.clear();
    uint32_t tag = 0;
    in.readU32(tag);
    if (tag != tagOf(1)) return false;
    uint64_t count = 0, width = 0;
    in.readCount(count);
    in.readCount(width);
    if (width != 8) return false;
    const int32_t n = static_cast<int32_t>(count);
    if (n > 0 && !in.countFits(static_cast<uint64_t>(n), 56)) return false;
    for (int32_t i = 0; i < n; ++i) {
        double time = 0;
        Transform value;
        in.readF64(time);
        in.readTransform(value);
        setKey(value, time);
    }
    return true;
}

}  // namespace TalvexCore
