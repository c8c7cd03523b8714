// The writer emitting 100,000 float parameters against appending the same text already formatted,
// as wide text and as UTF-8.
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
template <class Text>
struct Preformatted {
    Text text;
    std::vector<std::basic_string_view<typename Text::value_type>> pieces;
};

template <class Text>
const Preformatted<Text>& preformatted()
{
    static const Preformatted<Text> result = [] {
        Preformatted<Text> p;
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

template <class Text>
void BM_AppendPreformatted(benchmark::State& state)
{
    const auto& pieces = preformatted<Text>().pieces;
    for (auto _ : state) {
        Text text;
        for (const auto& piece : pieces) text += piece;
        benchmark::DoNotOptimize(text.data());
    }
}

template <class Text>
void BM_WriterFloats(benchmark::State& state)
{
    for (auto _ : state) {
        Text text;
        AssetXmlWriter writer(text);
        emit(writer);
        benchmark::DoNotOptimize(text.data());
    }
}

BENCHMARK(BM_AppendPreformatted<std::u16string>)->Name("BM_AppendPreformatted")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriterFloats<std::u16string>)->Name("BM_WriterFloats")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AppendPreformatted<std::string>)->Name("BM_AppendPreformattedUtf8")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_WriterFloats<std::string>)->Name("BM_WriterFloatsUtf8")->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    return runWithRatios(argc, argv, {{"writer, 100,000 float parameters / appending preformatted text",
                                       "BM_WriterFloats", "BM_AppendPreformatted", 3.0},
                                      {"UTF-8 writer, 100,000 float parameters / appending preformatted UTF-8",
                                       "BM_WriterFloatsUtf8", "BM_AppendPreformattedUtf8", 3.0}});
}
