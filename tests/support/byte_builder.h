// ByteBuilder: builds the bytes of a record by hand, word by word, little endian.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "archive/quick_archive.h"

namespace TalvexTest {

class ByteBuilder {
public:
    std::vector<uint8_t> bytes;

    ByteBuilder& u8(uint8_t v) { bytes.push_back(v); return *this; }
    ByteBuilder& boolean(bool v) { return u8(v ? 1 : 0); }
    ByteBuilder& u32(uint32_t v) { return raw(&v, 4); }
    ByteBuilder& i32(int32_t v) { return raw(&v, 4); }
    ByteBuilder& f32(float v) { return raw(&v, 4); }
    ByteBuilder& f64(double v) { return raw(&v, 8); }
    ByteBuilder& tag(uint32_t version) { return u32(version << 16); }
    ByteBuilder& floats(std::initializer_list<float> values)
    {
        for (float v : values) f32(v);
        return *this;
    }
    ByteBuilder& color(float r, float g, float b) { return floats({r, g, b}); }
    // A narrow string: its byte length, then the bytes (UTF-8 for a wide string).
    ByteBuilder& str(const std::string& s)
    {
        u32(static_cast<uint32_t>(s.size()));
        return raw(s.data(), s.size());
    }
    ByteBuilder& raw(const void* data, std::size_t n)
    {
        const auto* p = static_cast<const uint8_t*>(data);
        bytes.insert(bytes.end(), p, p + n);
        return *this;
    }
    ByteBuilder& append(const ByteBuilder& other) { return raw(other.bytes.data(), other.bytes.size()); }

    TalvexCore::QuickArchive archive() const { return TalvexCore::QuickArchive(bytes.data(), bytes.size()); }
};

// The bytes an archive holds between 0 and its write cursor.
inline std::vector<uint8_t> writtenBytes(const TalvexCore::QuickArchive& archive)
{
    std::vector<uint8_t> out(archive.writePosition());
    for (std::size_t i = 0; i < out.size(); ++i) archive.peekByte(i, out[i]);
    return out;
}

// The bytes of an object's record as its writeBinary gives them.
template <class T>
std::vector<uint8_t> bytesOf(const T& object)
{
    TalvexCore::QuickArchive out(1);
    EXPECT_TRUE(object.writeBinary(out));
    return writtenBytes(out);
}

template <class T>
ByteBuilder recordOf(const T& object)
{
    ByteBuilder b;
    b.bytes = bytesOf(object);
    return b;
}

template <class T>
bool load(T& object, const ByteBuilder& bytes)
{
    TalvexCore::QuickArchive in = bytes.archive();
    return object.readBinary(in);
}

// Loads the bytes, which the record must take to the last.
template <class T>
bool loadAll(T& object, const ByteBuilder& bytes)
{
    TalvexCore::QuickArchive in = bytes.archive();
    const bool ok = object.readBinary(in);
    EXPECT_EQ(in.readPosition(), bytes.bytes.size()) << "the record takes every byte";
    return ok;
}

// A new object of a class loaded from the bytes; null when it refuses them.
template <class T>
std::shared_ptr<T> readFrom(const ByteBuilder& bytes)
{
    auto object = std::make_shared<T>();
    return load(*object, bytes) ? object : nullptr;
}

}  // namespace TalvexTest
