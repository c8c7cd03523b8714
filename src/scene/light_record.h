// One field list per record version, walked by a reader or a writer, so that the order of a
// light's record stands in one place for both directions.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "archive/quick_archive.h"
#include "records/record_io.h"
#include "scene/animated_values.h"

namespace TalvexCore {

class LightFieldReader {
public:
    explicit LightFieldReader(QuickArchive& in) : in(in) {}

    template <class... T>
    void operator()(T&... fields) { (read(fields), ...); }
    // A key-framed transform: its own record, or, in the versions before it, one transform that
    // becomes the key at time 0.
    bool keyed(AnimatedTransform& transform, bool asRecord)
    {
        if (asRecord) return transform.readBinary(in);
        Transform value;
        in.readTransform(value);
        transform.setKey(value, 0.0);
        return true;
    }

private:
    void read(Color& v) { in.readColor(v); }
    void read(Vector& v) { in.readVector(v); }
    void read(Transform& v) { in.readTransform(v); }
    void read(float& v) { in.readF32(v); }
    void read(int32_t& v) { in.readI32(v); }
    void read(uint32_t& v) { in.readU32(v); }
    void read(bool& v) { in.readBool(v); }
    void read(std::u16string& v) { in.readWString(v); }

    QuickArchive& in;
};

// Writes the newest version only, so a key-framed transform always goes as its own record.
class LightFieldWriter {
public:
    explicit LightFieldWriter(QuickArchive& out) : out(out) {}

    template <class... T>
    void operator()(const T&... fields) { (write(fields), ...); }
    bool keyed(const AnimatedTransform& transform, bool) { return transform.writeBinary(out); }

private:
    void write(const Color& v) { out.writeColor(v); }
    void write(const Vector& v) { out.writeVector(v); }
    void write(const Transform& v) { out.writeTransform(v); }
    void write(float v) { out.writeF32(v); }
    void write(int32_t v) { out.writeI32(v); }
    void write(uint32_t v) { out.writeU32(v); }
    void write(bool v) { out.writeBool(v); }
    void write(const std::u16string& v) { out.writeWString(v); }

    QuickArchive& out;
};

// A light's record: the tag, then the fields of its version in the order of the class's one field
// list, `Light::record(light, fields, version)`. Reading starts from the defaults, so what an older
// version lacks keeps them.
template <class Light>
bool writeLightRecord(const Light& light, QuickArchive& out, uint32_t newest)
{
    writeVersion(out, newest);
    LightFieldWriter fields(out);
    return Light::record(light, fields, newest);
}

template <class Light>
bool readLightRecord(Light& light, QuickArchive& in, std::initializer_list<uint32_t> known)
{
    const auto version = readVersion(in, known);
    light.resetDefaults();
    if (!version) return false;
    LightFieldReader fields(in);
    return Light::record(light, fields, *version);
}

}  // namespace TalvexCore
