// RecordBytes: spells out a record word by word, for the examples whose versions the model no longer writes.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace MakeExamples {

class RecordBytes {
public:
    std::string bytes;

    RecordBytes& u8(uint8_t v) { bytes.push_back(static_cast<char>(v)); return *this; }
    RecordBytes& u32(uint32_t v) { return raw(&v, 4); }
    RecordBytes& i32(int32_t v) { return raw(&v, 4); }
    RecordBytes& f32(float v) { return raw(&v, 4); }
    RecordBytes& f64(double v) { return raw(&v, 8); }
    RecordBytes& tag(uint32_t version) { return u32(version << 16); }
    RecordBytes& floats(std::initializer_list<float> values)
    {
        for (float v : values) f32(v);
        return *this;
    }
    // A string word: byte length, then the UTF-8 bytes.
    RecordBytes& text(const std::string& s)
    {
        u32(static_cast<uint32_t>(s.size()));
        bytes += s;
        return *this;
    }
    RecordBytes& absent() { return u8(0); }
    RecordBytes& raw(const void* data, std::size_t n)
    {
        bytes.append(static_cast<const char*>(data), n);
        return *this;
    }
    RecordBytes& append(const RecordBytes& other)
    {
        bytes += other.bytes;
        return *this;
    }
};

}  // namespace MakeExamples
