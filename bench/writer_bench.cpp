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

// The same parameters, formatted once beforehand.
const std::vector<std::u16string>& preformatted()
{
    static const std::vector<std::u16string> pieces = [] {
        std::vector<std::u16string> result;
        for (int i = 0; i < parameterCount; ++i) {
            std::u16string text;
            AssetXmlWriter writer(text);
            writer.writeFloat("color_tex_mult", valueAt(i));
            result.push_back(std::move(text));
        }
        return result;
    }();
    return pieces;
}

void BM_AppendPreformatted(benchmark::State& state)
{
    const auto& pieces = preformatted();
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
