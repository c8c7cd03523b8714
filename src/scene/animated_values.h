// AnimatedInt, AnimatedReal, AnimatedTransform: values by time, held as key frames.
#pragma once

#include <compare>
#include <iterator>
#include <cstdint>
#include <map>
#include <string>

#include "archive/value_types.h"
#include "records/serializable.h"

namespace TalvexCore {

// Two times closer than this are the same time, in every look-up and insertion.
constexpr double KeyTimeTolerance = 1e-12;

// Key frames sorted by ascending time. Times are ordered totally, so that a damaged file's
// not-a-number times still keep the map well formed.
template <class V>
class KeyFrames {
public:
    struct TimeOrder {
        bool operator()(double a, double b) const { return std::strong_order(a, b) < 0; }
    };
    using Map = std::map<double, V, TimeOrder>;

    const Map& keys() const { return map; }
    void dropAll() { map.clear(); }

    // The key whose time equals `time` within the tolerance; the first such one.
    typename Map::iterator find(double time) { return findIn(map, time); }
    typename Map::const_iterator find(double time) const { return findIn(map, time); }

    // Overwrites the value of a key at the same time, keeping its stored time, or inserts one.
    void set(const V& value, double time)
    {
        const auto it = find(time);
        if (it != map.end()) it->second = value;
        else map.emplace(time, value);
    }

    // The time and value of the key at `index` in time order, or null when out of range.
    const std::pair<const double, V>* at(int32_t index) const
    {
        if (index < 0 || static_cast<std::size_t>(index) >= map.size()) return nullptr;
        auto it = map.begin();
        for (int32_t i = 0; i < index; ++i) ++it;
        return &*it;
    }

    // The value at `time`: an exact key, else prev and next around it blended by `blend(prev,
    // next, f)`, or prev's value when `interpolate` is false. `empty` is the value of no keys.
    template <class Blend>
    V valueAt(double time, bool interpolate, const V& empty, Blend blend) const
    {
        if (map.empty()) return empty;
        if (const auto exact = find(time); exact != map.end()) return exact->second;
        const auto next = map.upper_bound(time);
        if (next == map.end()) return std::prev(map.end())->second;
        const auto prev = next == map.begin() ? next : std::prev(next);
        if (!interpolate) return prev->second;
        // Before the first key prev and next are one key and the division is by zero, as stored
        // data never asks for.
        const float f = static_cast<float>((time - prev->first) / (next->first - prev->first));
        return blend(prev->second, next->second, f);
    }

    bool operator==(const KeyFrames& other) const
    {
        if (map.size() != other.map.size()) return false;
        for (auto a = map.begin(), b = other.map.begin(); a != map.end(); ++a, ++b)
            if (!(a->first == b->first) || !(a->second == b->second)) return false;
        return true;
    }

private:
    template <class M>
    static auto findIn(M& map, double time)
    {
        for (auto it = map.lower_bound(time - KeyTimeTolerance); it != map.end(); ++it) {
            const double d = it->first - time;
            if (d > -KeyTimeTolerance && d < KeyTimeTolerance) return it;
            if (!(d < KeyTimeTolerance)) break;
        }
        return map.end();
    }

    Map map;
};

// A key-framed number, interpolated or held by its `interpolate` flag. Integers interpolate on
// their f32 forms and truncate toward zero.
template <class V>
class AnimatedNumber : public TalvexSerializable, public TalvexXMLSerializable {
public:
    bool interpolate;

    explicit AnimatedNumber(bool interpolate) : interpolate(interpolate) {}

    bool writeBinary(QuickArchive& out) const override;
    // Reads into a cleared container: the default key at time 0 stays unless the file has one there.
    bool readBinary(QuickArchive& in) override;
    virtual V valueAt(double time) const;
    virtual void setKey(V value, double time) { frames.set(value, time); }
    virtual int32_t keyCount() const { return static_cast<int32_t>(frames.keys().size()); }
    // 0.0 when the index is out of range.
    virtual double keyTime(int32_t index) const;
    // All keys gone, then zero at time 0.
    virtual void clear();

    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}
    const std::u16string& pluginType() const override { return typeName<u"">(); }
    const std::u16string& assetType() const override { return typeName<u"">(); }

    const KeyFrames<V>& keys() const { return frames; }
    bool operator==(const AnimatedNumber& other) const
    {
        return interpolate == other.interpolate && frames == other.frames;
    }

private:
    KeyFrames<V> frames;
};

extern template class AnimatedNumber<int32_t>;
extern template class AnimatedNumber<float>;

class AnimatedInt : public AnimatedNumber<int32_t> {
public:
    explicit AnimatedInt(bool interpolate = false) : AnimatedNumber(interpolate) {}
};

class AnimatedReal : public AnimatedNumber<float> {
public:
    explicit AnimatedReal(bool interpolate = false) : AnimatedNumber(interpolate) {}
};

// A key-framed transform; it always interpolates, each of its twelve numbers by itself.
class AnimatedTransform : public TalvexSerializable, public TalvexXMLSerializable {
public:
    static Transform identity();

    bool writeBinary(QuickArchive& out) const override;
    // Reads exactly the stored keys: the default key goes too, and a stored count of 0 leaves none.
    bool readBinary(QuickArchive& in) override;
    virtual Transform valueAt(double time) const;
    virtual void setKey(const Transform& value, double time) { frames.set(value, time); }
    virtual int32_t keyCount() const { return static_cast<int32_t>(frames.keys().size()); }
    virtual double keyTime(int32_t index) const;
    // The identity when the index is out of range.
    virtual Transform keyValue(int32_t index) const;
    // All keys gone, then the identity at time 0.
    virtual void clear();
    const std::u16string& pluginType() const override { return typeName<u"">(); }
    const std::u16string& assetType() const override { return typeName<u"">(); }
    void writeXml(AssetXmlWriter&, const std::u16string&) const override {}

    // The same keys: times and all twelve numbers compared exactly.
    bool isEqual(const AnimatedTransform& other) const { return frames == other.frames; }
    bool operator==(const AnimatedTransform& other) const { return isEqual(other); }

private:
    KeyFrames<Transform> frames;
};

}  // namespace TalvexCore
