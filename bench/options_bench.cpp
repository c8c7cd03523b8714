// Converts an options file of the newest version to its XML, per call, against reading the same
// file's bytes into memory in the same process.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "archive/text_conversion.h"
#include "module/options_conversion.h"
#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "ratio_reporter.h"
#include "textures/acolor_texture.h"
#include "textures/base_texture.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

// A studio setup with textures in the environment and a full channel list, saved once.
const std::u16string& optionsFile()
{
    static const std::u16string path = [] {
        const fs::path file = fs::temp_directory_path() / "cindrel_options_bench.talopt";
        AllOptions o;
        o.gi_tex = textureFromFile(u"hdri/studio.hdr");
        o.bg_tex = std::make_shared<AColorTexture>(AColor{0.5f, 0.7f, 1.0f, 1});
        o.channels = {126, 125, 117, 101, 102, 103, 108, 109, 123, 132};
        o.folder = u"//farm/share";
        TalOptFile().save(o, narrowToWide(file.string()));
        return narrowToWide(file.string());
    }();
    return path;
}

void BM_ReadBytes(benchmark::State& state)
{
    const std::string path = wideToNarrow(optionsFile());
    for (auto _ : state) {
        std::ifstream in(path, std::ios::binary);
        std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        benchmark::DoNotOptimize(bytes.data());
    }
}

void BM_ConvertOptions(benchmark::State& state)
{
    const std::u16string& path = optionsFile();
    for (auto _ : state) {
        std::string text = optionsFileToXml(path);
        benchmark::DoNotOptimize(text.data());
    }
}

}  // namespace

BENCHMARK(BM_ReadBytes);
BENCHMARK(BM_ConvertOptions);

int main(int argc, char** argv)
{
    return runWithRatios(argc, argv, {{"options file to XML / reading its bytes (newest version, 4096 bytes)",
                                       "BM_ConvertOptions", "BM_ReadBytes", 150.0}});
}
