#include "archive/quick_archive.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <fstream>
#include <istream>
#include <ostream>

#include "archive/file_path.h"
#include "archive/regular_file.h"
#include "archive/text_conversion.h"

static_assert(std::endian::native == std::endian::little, "values are stored as they lie in memory");

namespace TalvexCore {

namespace {

constexpr uint64_t blockIndex(uint64_t position) { return position >> 12; }
constexpr uint64_t blockOffset(uint64_t position) { return position & 0xFFF; }

std::shared_ptr<QuickArchive::Block> newBlock()
{
    return std::make_shared<QuickArchive::Block>();  // value-initialised: all zero
}

}  // namespace

QuickArchive::QuickArchive(uint64_t blockCount)
{
    if (blockCount > blocks.max_size()) throw std::length_error("vector<T> too long");
    blocks.reserve(blockCount);
    for (uint64_t i = 0; i < blockCount; ++i) blocks.push_back(newBlock());
    logicalBlocks = blockCount;
}

QuickArchive::QuickArchive(const void* data, std::size_t size)
{
    writeRaw(data, size);
    readCursor = 0;
}

QuickArchive::~QuickArchive() = default;

void QuickArchive::clear()
{
    blocks.clear();
    zeroRun.reset();
    receivedBytes = 0;
    firstFailure.reset();
    logicalBlocks = 0;
    readCursor = 0;
    writeCursor = 0;
}

const QuickArchive::Block* QuickArchive::blockAt(uint64_t index) const
{
    return storedBlock(index);
}

const QuickArchive::Block* QuickArchive::storedBlock(uint64_t index) const
{
    if (index < blocks.size()) return blocks[index].get();
    if (index >= logicalBlocks || !zeroRun) return nullptr;
    const auto made = zeroRun->made.find(index);
    return made == zeroRun->made.end() ? nullptr : made->second.get();
}

uint8_t* QuickArchive::zeroRunBlock(uint64_t index)
{
    std::shared_ptr<Block>& block = zeroRun->made[index];
    if (!block) block = newBlock();
    return block->data();
}

uint8_t* QuickArchive::writableBlock(uint64_t index)
{
    if (index < blocks.size()) return blocks[index]->data();
    if (index < logicalBlocks) return zeroRunBlock(index);
    // Growing past the zero run: its blocks are made where every copy sees them, then taken in.
    for (uint64_t i = blocks.size(); i < logicalBlocks; ++i) {
        zeroRunBlock(i);
        blocks.push_back(zeroRun->made[i]);
    }
    zeroRun.reset();
    while (blocks.size() <= index) blocks.push_back(newBlock());
    logicalBlocks = index + 1;
    return blocks[index]->data();
}

void QuickArchive::writeByte(uint8_t b)
{
    const uint64_t position = writeCursor++;
    writableBlock(blockIndex(position))[blockOffset(position)] = b;
}

void QuickArchive::readByte(uint8_t& b)
{
    const uint64_t position = readCursor++;
    const uint64_t index = blockIndex(position);
    if (index < blocks.size()) {
        b = (*blocks[index])[blockOffset(position)];
    } else if (index < logicalBlocks) {
        const Block* block = storedBlock(index);
        b = block ? (*block)[blockOffset(position)] : 0;
    }
}

void QuickArchive::writeBytesStepwise(const uint8_t* data, std::size_t n)
{
    while (n > 0) {
        const uint64_t index = blockIndex(writeCursor);
        const uint64_t offset = blockOffset(writeCursor);
        const std::size_t run = std::min<std::size_t>(n, BlockSize - offset);
        std::memcpy(writableBlock(index) + offset, data, run);
        writeCursor += run;
        data += run;
        n -= run;
    }
}

void QuickArchive::readBytesStepwise(uint8_t* dest, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) readByte(dest[i]);
}

void QuickArchive::writeColor(const Color& c)
{
    const float v[3] = {c.r, c.g, c.b};
    writeBytes(reinterpret_cast<const uint8_t*>(v), sizeof v);
}

void QuickArchive::writeVector(const Vector& vec)
{
    const float v[3] = {vec.x, vec.y, vec.z};
    writeBytes(reinterpret_cast<const uint8_t*>(v), sizeof v);
}

void QuickArchive::writeAColor(const AColor& c)
{
    const float v[4] = {c.r, c.g, c.b, c.a};
    writeBytes(reinterpret_cast<const uint8_t*>(v), sizeof v);
}

void QuickArchive::writeRect(const Rect& r)
{
    const int32_t v[4] = {r.left, r.top, r.right, r.bottom};
    writeBytes(reinterpret_cast<const uint8_t*>(v), sizeof v);
}

void QuickArchive::writeMatrix(const Matrix& m)
{
    for (const Vector& v : m.v) writeVector(v);
}

void QuickArchive::writeTransform(const Transform& t)
{
    writeMatrix(t.m);
    writeVector(t.offset);
}

void QuickArchive::writeTransformD(const TransformD& t)
{
    writeMatrix(t.m);
    writeVector({static_cast<float>(t.offset[0]), static_cast<float>(t.offset[1]),
                 static_cast<float>(t.offset[2])});
}

void QuickArchive::writeString(const std::string& s)
{
    writeCount(s.size());
    writeBytes(reinterpret_cast<const uint8_t*>(s.data()), s.size());
}

void QuickArchive::writeWString(const std::u16string& s)
{
    writeString(wideToNarrow(s));
}

void QuickArchive::writeRaw(const void* data, std::size_t n)
{
    writeBytes(static_cast<const uint8_t*>(data), n);
}

void QuickArchive::writeBuffer(const void* data, std::size_t n)
{
    writeCount(n);
    writeRaw(data, n);
}

void QuickArchive::readBytes16(Bytes16& b)
{
    readBytesZeroed(b.data(), b.size());
}

void QuickArchive::readRect(Rect& r)
{
    int32_t v[4];
    readBytesZeroed(reinterpret_cast<uint8_t*>(v), sizeof v);
    // The size wraps as two's complement does when the edges lie far apart.
    const auto span = [](int32_t from, int32_t to) {
        return static_cast<int32_t>(static_cast<uint32_t>(to) - static_cast<uint32_t>(from));
    };
    r = {v[0], v[1], v[2], v[3], span(v[0], v[2]), span(v[1], v[3]), 0, 0};
}

void QuickArchive::readTransformD(TransformD& t)
{
    readMatrix(t.m);
    Vector offset;
    readVector(offset);
    t.offset = {offset.x, offset.y, offset.z};
}

std::string QuickArchive::readStoredBytes(uint64_t n)
{
    // Only bytes that exist are copied: a damaged length costs no more memory than the data.
    const uint64_t stored = std::min(n, dataLeft());
    std::string bytes(static_cast<std::size_t>(stored), '\0');
    readBytesKeeping(reinterpret_cast<uint8_t*>(bytes.data()), bytes.size());
    readCursor += n - stored;
    return bytes;
}

void QuickArchive::readStringStepwise(std::string& s, uint64_t n)
{
    std::string bytes = readStoredBytes(n);
    bytes.resize(std::strlen(bytes.c_str()));  // the text ends at its first zero byte
    s = std::move(bytes);
}

// Decoded into the string's own room, from the block itself where the text lies in one.
void QuickArchive::readWString(std::u16string& s)
{
    uint64_t n = 0;
    readCount(n);
    s.clear();
    if (const char* text = textInBlock(n)) {
        appendNarrowAsWide(s, std::string_view(text, n));
        return;
    }
    std::string narrow;
    readStringStepwise(narrow, n);
    appendNarrowAsWide(s, narrow);
}

void QuickArchive::readRaw(void* data, std::size_t n)
{
    readBytesKeeping(static_cast<uint8_t*>(data), n);
}

uint64_t QuickArchive::readBuffer(void* data, uint64_t capacity, bool rewindOnMismatch)
{
    const uint64_t start = readCursor;
    uint64_t stored = 0;
    readCount(stored);
    readRaw(data, static_cast<std::size_t>(std::min(capacity, stored)));
    if (stored != capacity && rewindOnMismatch) {
        readCursor = start;
        return stored;
    }
    if (stored > capacity) readCursor += stored - capacity;
    return stored;
}

int QuickArchive::readByteChecked(uint8_t& byte)
{
    const bool inside = blockIndex(readCursor) < logicalBlocks;
    readByte(byte);
    return inside ? 1 : 0;
}

void QuickArchive::pokeByte(uint64_t position, uint8_t value)
{
    writableBlock(blockIndex(position))[blockOffset(position)] = value;
}

int QuickArchive::peekByte(uint64_t position, uint8_t& value) const
{
    const uint64_t index = blockIndex(position);
    if (index >= logicalBlocks) return 0;
    const Block* block = storedBlock(index);
    value = block ? (*block)[blockOffset(position)] : 0;
    return 1;
}

bool QuickArchive::writeToStream(std::ostream& out) const
{
    const uint32_t count = static_cast<uint32_t>(logicalBlocks);
    out.write(reinterpret_cast<const char*>(&count), sizeof count);
    static const Block zeros{};
    for (uint64_t i = 0; i < logicalBlocks; ++i) {
        const Block* block = blockAt(i);
        out.write(reinterpret_cast<const char*>((block ? *block : zeros).data()), BlockSize);
    }
    return true;
}

bool QuickArchive::readFromStream(std::istream& in)
{
    clear();
    uint32_t count = 0;
    in.read(reinterpret_cast<char*>(&count), sizeof count);
    // Blocks behind the end of the stream are left as zeros that take no memory.
    for (uint64_t i = 0; i < count && in.good(); ++i) {
        // Filled from the stream rather than zeroed first; only a short last block's rest is zeroed.
        auto block = std::make_shared_for_overwrite<Block>();
        in.read(reinterpret_cast<char*>(block->data()), BlockSize);
        const auto got = static_cast<std::size_t>(in.gcount());
        if (got == 0) break;
        std::fill(block->begin() + static_cast<std::ptrdiff_t>(got), block->end(), uint8_t{0});
        receivedBytes += got;
        blocks.push_back(std::move(block));
    }
    logicalBlocks = count;
    if (logicalBlocks > blocks.size()) zeroRun = std::make_shared<ZeroBlocks>();  // shared by copies
    return count > 0;
}

bool QuickArchive::writeToFile(const std::u16string& path) const
{
    std::ofstream out(filePath(path), std::ios::binary);
    return out.is_open() && writeToStream(out);
}

bool QuickArchive::writeToFile(const std::string& path) const
{
    return writeToFile(fileNameToWide(path));
}

bool QuickArchive::readFromFile(const std::u16string& path)
{
    RegularFile file(path);
    return file.isOpen() && readFromStream(file.stream());
}

bool QuickArchive::readFromFile(const std::string& path)
{
    RegularFile file(path);
    return file.isOpen() && readFromStream(file.stream());
}

uint64_t QuickArchive::dataLeft() const
{
    const uint64_t end = static_cast<uint64_t>(blocks.size()) * BlockSize;
    return readCursor < end ? end - readCursor : 0;
}

bool QuickArchive::countFits(uint64_t count, uint64_t bytesEach) const
{
    return count <= dataLeft() / std::max<uint64_t>(bytesEach, 1);
}

QuickArchive::NestingGuard::NestingGuard(QuickArchive& a) : archive(a), entered(a.nesting < MaxNesting)
{
    if (entered) ++archive.nesting;
    else archive.noteFailure(archive.readCursor, "records nested deeper than " + std::to_string(MaxNesting) + " levels");
}

void QuickArchive::noteFailure(uint64_t offset, std::string reason)
{
    if (!firstFailure) firstFailure = LoadFailure{offset, std::move(reason), {}};
}

void QuickArchive::noteObject(std::u16string object)
{
    if (firstFailure) firstFailure->objects.push_back(std::move(object));
}

QuickArchive::NestingGuard::~NestingGuard()
{
    if (entered) --archive.nesting;
}

}  // namespace TalvexCore
