// The writer emitting 100,000 float parameters against appending the same text already formatted.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "ratio_reporter.h"
#include "xml/asset_xml_writer.h"

using namespace TalvexCore;

namespace {

constexpr int parameterCount = 100000;

float valueAt(int i)
{
    return static_cast<float>(i) * 0.37f + 0.001f;
}

void emit(AssetXmlWriter& writer)
{
    for (int i = 0; i < parameterCount; ++i) writer.writeFloat("color_tex_mult", valueAt(i));
}

// The same parameters, formatted once beforehand into one run of text, one view per parameter.
struct Preformatted {
    std::u16string text;
    std::vector<std::u16string_view> pieces;
};

const Preformatted& preformatted()
{
    static const Preformatted result = [] {
        Preformatted p;
        std::vector<std::size_t> ends;
        AssetXmlWriter writer(p.text);
        for (int i = 0; i < parameterCount; ++i) {
            writer.writeFloat("color_tex_mult", valueAt(i));
            ends.push_back(p.text.size());
        }
        std::size_t start = 0;
        for (std::size_t end : ends) {
            p.pieces.emplace_back(p.text.data() + start, end - start);
            start = end;
        }
        return p;
    }();
    return result;
}

void BM_AppendPreformatted(benchmark::State& state)
{
    const auto& pieces = preformatted().pieces;
    for (auto _ : state) {
        std::u16string text;
        for (const auto& piece : pieces) text += piece;
        benchmark::DoNotOptimize(text.data());
    }
}

void BM_WriterFloats(benchmark::State& state)
{
    for (auto _ : state) {
        std::u16string text;
        AssetXmlWriter writer(text);
        emit(writer);
        benchmark::DoNotOptimize(text.data());
    }
}

BENCHMARK(BM_AppendPreformatted)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriterFloats)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    return runWithRatios(argc, argv, {{"writer, 100,000 float parameters / appending preformatted text",
                                       "BM_WriterFloats", "BM_AppendPreformatted", 3.0}});
}
