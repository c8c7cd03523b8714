// QuickArchive: the block store that every record is written to and read from.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "archive/load_failure.h"
#include "archive/load_trace.h"
#include "archive/value_types.h"

namespace TalvexCore {

// A growable run of 4096-byte blocks with independent read and write cursors. Reading past the
// end is no error: the cursor moves on and the destination is left as each word's read says.
// Copies share their blocks, also the zero blocks of a short stream that are made only when first
// written. Blocks start zero-filled, so bytes never written read as zero.
class QuickArchive {
public:
    static constexpr std::size_t BlockSize = 4096;
    using Block = std::array<uint8_t, BlockSize>;

    explicit QuickArchive(uint64_t blockCount);
    QuickArchive(const void* data, std::size_t size);
    QuickArchive(const QuickArchive&) = default;
    QuickArchive& operator=(const QuickArchive&) = default;
    virtual ~QuickArchive();

    void clear();

    uint64_t blockCount() const { return logicalBlocks; }
    uint64_t readPosition() const { return readCursor; }
    uint64_t writePosition() const { return writeCursor; }
    // The block at an index, or null for a block that holds nothing but zeros.
    const Block* blockAt(uint64_t index) const;

    void writeU8(uint8_t v) { writeScalar(v); }
    void writeI8(int8_t v) { writeScalar(v); }
    void writeBool(bool v) { writeScalar(static_cast<uint8_t>(v ? 1 : 0)); }
    void writeU32(uint32_t v) { writeScalar(v); }
    void writeI32(int32_t v) { writeScalar(v); }
    void writeF32(float v) { writeScalar(v); }
    void writeF64(double v) { writeScalar(v); }
    void writeCount(uint64_t n) { writeScalar(static_cast<uint32_t>(n)); }
    void writeColor(const Color& c);
    void writeVector(const Vector& v);
    void writeAColor(const AColor& c);
    void writeBytes16(const Bytes16& b) { writeRaw(b.data(), b.size()); }
    void writeRect(const Rect& r);
    void writeMatrix(const Matrix& m);
    void writeTransform(const Transform& t);
    void writeTransformD(const TransformD& t);
    void writeString(const std::string& s);
    void writeWString(const std::u16string& s);
    void writeRaw(const void* data, std::size_t n);
    void writeBuffer(const void* data, std::size_t n);

    void readU8(uint8_t& v) { readScalar(v); }
    void readI8(int8_t& v) { readScalar(v); }
    // The byte is stored as it stands: any byte but 0 is true; behind the end the value stays.
    void readBool(bool& v)
    {
        uint8_t b = v ? 1 : 0;
        readScalar(b);
        v = b != 0;
    }
    void readU32(uint32_t& v) { readScalar(v); }
    void readI32(int32_t& v) { readScalar(v); }
    void readF32(float& v) { readScalar(v); }
    void readF64(double& v) { readScalar(v); }
    void readCount(uint64_t& n)
    {
        uint32_t low = 0;
        readBytesZeroed(reinterpret_cast<uint8_t*>(&low), sizeof low);
        n = low;
    }
    // Words of several floats read into a zeroed temporary: bytes behind the end come out as 0.
    void readColor(Color& c) { readFloats(&c.r, 3); }
    void readVector(Vector& v) { readFloats(&v.x, 3); }
    void readAColor(AColor& c) { readFloats(&c.r, 4); }
    void readBytes16(Bytes16& b);
    void readRect(Rect& r);
    void readMatrix(Matrix& m)
    {
        for (Vector& v : m.v) readVector(v);
    }
    void readTransform(Transform& t)
    {
        readMatrix(t.m);
        readVector(t.offset);
    }
    void readTransformD(TransformD& t);
    // The length is trusted only as far as the data goes: the cursor moves by it, and only the
    // bytes that exist are copied, up to the first zero.
    void readString(std::string& s)
    {
        uint64_t n = 0;
        readCount(n);
        if (const char* text = textInBlock(n)) {
            const void* zero = __builtin_memchr(text, 0, n);
            s.assign(text, zero ? static_cast<std::size_t>(static_cast<const char*>(zero) - text) : n);
            return;
        }
        readStringStepwise(s, n);
    }
    void readWString(std::u16string& s);
    void readRaw(void* data, std::size_t n);
    // Reads a length and up to `capacity` bytes; returns the stored length (see the buffer word).
    uint64_t readBuffer(void* data, uint64_t capacity, bool rewindOnMismatch);
    // 1 and the byte, or 0 past the last block; the cursor moves in either case.
    int readByteChecked(uint8_t& byte);

    void pokeByte(uint64_t position, uint8_t value);
    int peekByte(uint64_t position, uint8_t& value) const;

    bool writeToStream(std::ostream& out) const;
    bool readFromStream(std::istream& in);
    bool writeToFile(const std::u16string& path) const;
    bool writeToFile(const std::string& path) const;
    bool readFromFile(const std::u16string& path);
    bool readFromFile(const std::string& path);

    // Limits against damaged or hostile data.
    // Bytes of stored data from the read cursor to the end of the last block that holds data.
    uint64_t dataLeft() const;
    // Whether `count` elements of at least `bytesEach` bytes can still stand in the data.
    bool countFits(uint64_t count, uint64_t bytesEach) const;
    // The deepest nesting of child records that is read or written: real files stay below ten
    // levels, and the bound keeps a hostile file's recursion far from the end of the stack.
    static constexpr int MaxNesting = 100;
    // Counts the depth of nested child records; false, noting the failure, once the depth passes
    // MaxNesting. Reading and writing share the bound, so that nothing is saved that cannot load.
    class NestingGuard {
    public:
        explicit NestingGuard(QuickArchive& archive);
        ~NestingGuard();
        NestingGuard(const NestingGuard&) = delete;
        NestingGuard& operator=(const NestingGuard&) = delete;
        explicit operator bool() const { return entered; }
    private:
        QuickArchive& archive;
        bool entered;
    };

    // Notes on a load. The first refusal is kept with its offset; the objects it lies in are added
    // as it travels outwards. Nothing is noted while a load goes well.
    void noteFailure(uint64_t offset, std::string reason);
    void noteObject(std::u16string object);
    const std::optional<LoadFailure>& failure() const { return firstFailure; }
    // Whether the reads went on past the last byte of data (the tolerant reads of a short file).
    bool readPastEnd() const { return readCursor > std::max<uint64_t>(writeCursor, receivedBytes); }
    // The trace that the reads of records tell where each object begins and ends; none by default,
    // and then a read pays one test of this pointer. Copies carry it along.
    void setLoadTrace(LoadTrace* trace) { loadTraceTarget = trace; }
    LoadTrace* loadTrace() const { return loadTraceTarget; }

private:
    struct ZeroBlocks {
        std::map<uint64_t, std::shared_ptr<Block>> made;
    };

    uint8_t* writableBlock(uint64_t index);
    uint8_t* zeroRunBlock(uint64_t index);
    const Block* storedBlock(uint64_t index) const;
    void writeByte(uint8_t b);
    void readByte(uint8_t& b);
    // A value inside one block that holds data is copied whole; anything else goes byte by byte.
    void readBytesKeeping(uint8_t* dest, std::size_t n)
    {
        const uint64_t index = readCursor >> 12;
        const uint64_t offset = readCursor & (BlockSize - 1);
        if (index < blocks.size() && offset + n <= BlockSize) {
            __builtin_memcpy(dest, blocks[index]->data() + offset, n);
            readCursor += n;
            return;
        }
        readBytesStepwise(dest, n);
    }
    void readBytesStepwise(uint8_t* dest, std::size_t n);
    void readBytesZeroed(uint8_t* dest, std::size_t n)
    {
        __builtin_memset(dest, 0, n);
        readBytesKeeping(dest, n);
    }
    void writeBytes(const uint8_t* data, std::size_t n)
    {
        const uint64_t index = writeCursor >> 12;
        const uint64_t offset = writeCursor & (BlockSize - 1);
        if (index < blocks.size() && offset + n <= BlockSize) {
            __builtin_memcpy(blocks[index]->data() + offset, data, n);
            writeCursor += n;
            return;
        }
        writeBytesStepwise(data, n);
    }
    void writeBytesStepwise(const uint8_t* data, std::size_t n);
    // Stored bytes from the read cursor, up to n, copied out; the cursor moves by n.
    std::string readStoredBytes(uint64_t n);
    void readStringStepwise(std::string& s, uint64_t n);
    // The n bytes at the read cursor where they lie in one stored block, the cursor moving past
    // them; null, the cursor unmoved, where they do not.
    const char* textInBlock(uint64_t n)
    {
        const uint64_t index = readCursor >> 12;
        const uint64_t offset = readCursor & (BlockSize - 1);
        if (index >= blocks.size() || offset + n > BlockSize) return nullptr;
        readCursor += n;
        return reinterpret_cast<const char*>(blocks[index]->data() + offset);
    }

    void readFloats(float* dest, std::size_t count)
    {
        float temp[4];
        readBytesZeroed(reinterpret_cast<uint8_t*>(temp), count * sizeof(float));
        for (std::size_t i = 0; i < count; ++i) dest[i] = temp[i];
    }

    template <class T>
    void writeScalar(T v)
    {
        writeBytes(reinterpret_cast<const uint8_t*>(&v), sizeof(T));
    }
    template <class T>
    void readScalar(T& v)
    {
        readBytesKeeping(reinterpret_cast<uint8_t*>(&v), sizeof(T));
    }

    // Blocks that hold data; blocks between their count and logicalBlocks hold only zeros and
    // are made when first written, in zeroRun, so a damaged block count costs no memory.
    std::vector<std::shared_ptr<Block>> blocks;
    std::shared_ptr<ZeroBlocks> zeroRun;
    uint64_t logicalBlocks = 0;
    uint64_t readCursor = 0;
    uint64_t writeCursor = 0;
    uint64_t receivedBytes = 0;  // from a stream
    int nesting = 0;
    std::optional<LoadFailure> firstFailure;
    LoadTrace* loadTraceTarget = nullptr;
};

}  // namespace TalvexCore
