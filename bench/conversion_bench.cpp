// Converts a generated file of 10,000 layered materials (three layers each, with bitmap textures)
// with the cindrel command, and reports materials per second, the conversion's time against the
// time xmllint needs to parse the XML it wrote, and the conversion's peak memory against that XML.
// In this process: the conversion into a sink of 64 KiB pieces against moving the same XML,
// already formatted, through that sink. Through the Python module: getTalmatXml's time against
// xmllint's, and its extra peak memory against the text it returns.
#include <sys/resource.h>
#include <sys/wait.h>
#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "materials/diffuse_brdf.h"
#include "materials/glass_brdf.h"
#include "materials/glossy_brdf.h"
#include "materials/material_layered_brdf.h"
#include "materials/tal_mat_file.h"
#include "module/material_conversion.h"
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

// Takes the text in pieces of 64 KiB and discards them, as an output to a file would take them.
struct PieceSink {
    std::size_t taken = 0;
    void take(std::string& text, bool force)
    {
        if (text.empty() || (!force && text.size() < (1u << 16))) return;
        taken += text.size() + static_cast<unsigned char>(text[text.size() / 2]);
        text.clear();
    }
};

template <class Run>
double bestSeconds(int rounds, Run run)
{
    double best = 0;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        run();
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (round == 0 || seconds < best) best = seconds;
    }
    return best;
}

// The conversion into the sink against the same XML moved through it; false when over target.
bool reportConversionIntoPieces(const fs::path& input, const std::string& xml)
{
    PieceSink sink;
    const std::u16string path = input.u16string();
    const double convert = bestSeconds(3, [&] {
        std::string text;
        writeMaterialFileXml(path, text, [&sink](std::string& t) { sink.take(t, false); });
        sink.take(text, true);
    });
    const double move = bestSeconds(20, [&] {
        std::string text;
        for (std::size_t done = 0; done < xml.size(); done += 1u << 16) {
            text.append(xml, done, 1u << 16);
            sink.take(text, false);
        }
        sink.take(text, true);
    });
    const bool ok = convert < 12 * move;
    std::printf("in process: conversion %.3f s, moving its XML %.4f s\n", convert, move);
    std::printf("conversion / moving the XML  %8.1fx  (target: at most 12x)  %s\n", convert / move,
                ok ? "ok" : "OVER TARGET");
    return ok;
}

// getTalmatXml in a fresh interpreter: its time, and its peak memory above the interpreter's own
// before the call, against the text it returns and against xmllint's time on that text. The peak is
// the memory's own high-water mark, which starts anew with the program (the usage counters keep
// this process's peak across the fork).
bool reportPythonCommand(const fs::path& input, double parseSeconds)
{
#ifdef CINDREL_MODULE_DIR
    const fs::path report = input.parent_path() / "python.txt";
    const std::string script =
        "import sys, time\n"
        "sys.path.insert(0, sys.argv[1])\n"
        "import Cindrel\n"
        "def peak():\n"
        "    with open('/proc/self/status') as status:\n"
        "        return [int(line.split()[1]) for line in status if line.startswith('VmHWM:')][0]\n"
        "before = peak()\n"
        "start = time.time()\n"
        "text = Cindrel.getTalmatXml(sys.argv[2])\n"
        "seconds = time.time() - start\n"
        "after = peak()\n"
        "size = len(text.encode('utf-8'))\n"
        "print('%f %d %d' % (seconds, (after - before) * 1024 - size, size))\n";
    const RunResult run =
        runProgram({CINDREL_MODULE_PYTHON, "-c", script, CINDREL_MODULE_DIR, input.string()}, report.string());
    double seconds = 0, extra = 0, size = 0;
    std::ifstream in(report);
    if (run.status != 0 || !(in >> seconds >> extra >> size) || size <= 0) {
        std::fprintf(stderr, "conversion_bench: the Python command did not run\n");
        return false;
    }
    // The returned str is a text of one byte a character here: its size is its UTF-8 size.
    const bool timeOk = seconds < 0.15 * parseSeconds;
    const bool memoryOk = extra < 1.5 * size;
    std::printf("getTalmatXml        %8.3f s = %.2fx xmllint (target: at most 0.15x)  %s\n", seconds,
                seconds / parseSeconds, timeOk ? "ok" : "OVER TARGET");
    std::printf("getTalmatXml extra peak memory %.1f MiB = %.2fx the text (target: at most 1.5x)  %s\n",
                extra / (1 << 20), extra / size, memoryOk ? "ok" : "OVER TARGET");
    return timeOk && memoryOk;
#else
    (void)input;
    (void)parseSeconds;
    std::printf("getTalmatXml: the Python module is not built\n");
    return true;
#endif
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
    std::string xmlText;
    {
        std::ifstream in(xml, std::ios::binary);
        xmlText.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    reportConversionIntoPieces(input, xmlText);
    reportPythonCommand(input, bestParse.seconds);
    fs::remove_all(dir);
    return 0;
}
