// Typed reads of a 1 MiB mixed record against a plain copy of the same bytes into the same values.
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "archive/quick_archive.h"
#include "ratio_reporter.h"

using namespace TalvexCore;

namespace {

constexpr std::size_t recordBytes = 1 << 20;

// One unit of the mixed record: the words a material record is made of.
void writeUnit(QuickArchive& out)
{
    out.writeU32(0x40000);
    out.writeColor({0.5f, 0.25f, 1.0f});
    out.writeF32(1.5f);
    out.writeBool(true);
    out.writeI32(-7);
    out.writeString("BRDFDiffuse");
    out.writeTransform({});
    out.writeF64(2.5);
    out.writeAColor({1, 1, 1, 1});
    out.writeCount(3);
}

struct Unit {
    uint32_t tag;
    Color color;
    float f;
    bool b;
    int32_t i;
    std::string name;
    Transform t;
    double d;
    AColor a;
    uint64_t n;
};

void readUnit(QuickArchive& in, Unit& u)
{
    in.readU32(u.tag);
    in.readColor(u.color);
    in.readF32(u.f);
    in.readBool(u.b);
    in.readI32(u.i);
    in.readString(u.name);
    in.readTransform(u.t);
    in.readF64(u.d);
    in.readAColor(u.a);
    in.readCount(u.n);
}

// The baseline: the same values copied straight out of a flat run of the same bytes.
template <class T>
const uint8_t* copyOut(const uint8_t* p, T& value)
{
    std::memcpy(&value, p, sizeof(T));
    return p + sizeof(T);
}

const uint8_t* copyUnit(const uint8_t* p, Unit& u)
{
    p = copyOut(p, u.tag);
    p = copyOut(p, u.color);
    p = copyOut(p, u.f);
    uint8_t b;
    p = copyOut(p, b);
    u.b = b != 0;
    p = copyOut(p, u.i);
    uint32_t length;
    p = copyOut(p, length);
    u.name.assign(reinterpret_cast<const char*>(p), length);
    p += length;
    p = copyOut(p, u.t);
    p = copyOut(p, u.d);
    p = copyOut(p, u.a);
    uint32_t n;
    p = copyOut(p, n);
    u.n = n;
    return p;
}

struct Fixture {
    QuickArchive archive{1};
    std::size_t units = 0;
    std::vector<uint8_t> bytes;
    Fixture()
    {
        while (archive.writePosition() < recordBytes) {
            writeUnit(archive);
            ++units;
        }
        bytes.resize(archive.writePosition());
        for (uint64_t i = 0; i < bytes.size(); ++i) archive.peekByte(i, bytes[i]);
    }
};

const Fixture& fixture()
{
    static const Fixture f;
    return f;
}

void BM_PlainCopy(benchmark::State& state)
{
    const Fixture& f = fixture();
    Unit u{};
    for (auto _ : state) {
        const uint8_t* p = f.bytes.data();
        for (std::size_t i = 0; i < f.units; ++i) {
            p = copyUnit(p, u);
            benchmark::DoNotOptimize(u);
        }
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * f.bytes.size()));
}

void BM_TypedReads(benchmark::State& state)
{
    const Fixture& f = fixture();
    Unit u{};
    for (auto _ : state) {
        QuickArchive in(f.archive);
        for (std::size_t i = 0; i < f.units; ++i) {
            readUnit(in, u);
            benchmark::DoNotOptimize(u);
        }
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * f.bytes.size()));
}

BENCHMARK(BM_PlainCopy);
BENCHMARK(BM_TypedReads);

}  // namespace

int main(int argc, char** argv)
{
    return runWithRatios(argc, argv, {{"typed archive reads / plain copy (1 MiB mixed record)", "BM_TypedReads",
                                       "BM_PlainCopy", 4.0}});
}
