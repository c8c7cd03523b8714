// Converts a generated file of 10,000 layered materials (three layers each, with bitmap textures)
// with the cindrel command, and reports materials per second, the conversion's time against the
// time xmllint needs to parse the XML it wrote, and the conversion's peak memory against that XML.
#include <sys/resource.h>
#include <sys/wait.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/tal_mat_file.h"
#include "textures/base_texture.h"

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

constexpr int materialCount = 10000;

std::u16string numbered(const char16_t* stem, int i)
{
    std::u16string name = stem;
    for (char c : std::to_string(i)) name.push_back(static_cast<char16_t>(c));
    return name;
}

MaterialPtr makeMaterial(int i)
{
    auto diffuse = std::make_shared<Diffuse_BRDF>();
    diffuse->color = {0.1f * (i % 10), 0.5f, 0.25f};
    diffuse->color_tex = textureFromFile(numbered(u"maps/albedo_", i) + u".png");
    auto gloss = std::make_shared<Phong_BRDF>();
    gloss->reflectionGlossiness = 0.5f + 0.0001f * i;
    gloss->reflectionGlossiness_tex = textureFromFile(numbered(u"maps/gloss_", i) + u".png");
    auto glass = std::make_shared<Glass_BRDF>();
    glass->ior = 1.3f + 0.00001f * i;
    glass->ior_texture = textureFromFile(numbered(u"maps/ior_", i) + u".png");
    auto material = std::make_shared<MaterialLayeredBRDF>();
    material->name = numbered(u"Material_", i);
    material->brdfs = {diffuse, gloss, glass};
    return material;
}

struct RunResult {
    double seconds = 0;
    long peakKiB = 0;
    int status = -1;
};

// Runs a program with its standard output sent to a file; wall time and peak resident memory.
RunResult runProgram(const std::vector<std::string>& argv, const std::string& outputPath)
{
    RunResult result;
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        const int fd = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        dup2(fd, 1);
        std::vector<char*> args;
        for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        execvp(args[0], args.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    result.peakKiB = usage.ru_maxrss;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

}  // namespace

int main()
{
    const fs::path dir = fs::temp_directory_path() / "cindrel_conversion_bench";
    fs::create_directories(dir);
    const fs::path input = dir / "library.talmat";
    const fs::path xml = dir / "library.xml";
    {
        TalMatFile file;
        for (int i = 0; i < materialCount; ++i) file.materials.push_back(makeMaterial(i));
        std::ofstream out(input, std::ios::binary);
        if (!file.save(out)) {
            std::fprintf(stderr, "conversion_bench: the generated library did not save\n");
            return 1;
        }
    }

    RunResult best;
    RunResult bestParse;
    for (int round = 0; round < 3; ++round) {
        const RunResult conversion = runProgram({CINDREL_TOOL_PATH, "-q", input.string()}, xml.string());
        const RunResult parse = runProgram({"xmllint", "--noout", xml.string()}, "/dev/null");
        if (conversion.status != 0 || parse.status != 0) {
            std::fprintf(stderr, "conversion_bench: cindrel exited %d, xmllint exited %d\n", conversion.status,
                         parse.status);
            return 1;
        }
        if (round == 0 || conversion.seconds < best.seconds) best = conversion;
        if (round == 0 || parse.seconds < bestParse.seconds) bestParse = parse;
    }
    const double xmlBytes = static_cast<double>(fs::file_size(xml));
    const double inputBytes = static_cast<double>(fs::file_size(input));
    std::printf("library: %d layered materials, 3 layers each with bitmap textures\n", materialCount);
    std::printf("material file %.1f MiB, XML %.1f MiB\n", inputBytes / (1 << 20), xmlBytes / (1 << 20));
    std::printf("conversion          %8.3f s  %10.0f materials/s\n", best.seconds, materialCount / best.seconds);
    std::printf("xmllint --noout     %8.3f s\n", bestParse.seconds);
    std::printf("conversion / parse  %8.2fx  (target: below 1x)  %s\n", best.seconds / bestParse.seconds,
                best.seconds < bestParse.seconds ? "ok" : "OVER TARGET");
    const double peakBytes = best.peakKiB * 1024.0;
    std::printf("peak memory         %8.1f MiB = %.2fx the XML (target: below 4x)  %s\n", peakBytes / (1 << 20),
                peakBytes / xmlBytes, peakBytes < 4 * xmlBytes ? "ok" : "OVER TARGET");
    fs::remove_all(dir);
    return 0;
}
