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

#include <atomic>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "generated_library.h"
#include "materials/material_layouts.h"
#include "materials/tal_mat_file.h"
#include "module/material_conversion.h"

// Every heap allocation of this program is counted, so that the conversion's allocations can be
// told per file, per material, per asset and per parameter.
namespace {
std::atomic<std::size_t> allocations{0};

void* countedAllocation(std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
    throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t size) { return countedAllocation(size); }
void* operator new[](std::size_t size) { return countedAllocation(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    return std::malloc(size == 0 ? 1 : size);
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

namespace fs = std::filesystem;
using namespace TalvexCore;

namespace {

constexpr int materialCount = 10000;

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

// One conversion into the sink, as the in-process case runs it.
void convertIntoPieces(const fs::path& input, PieceSink& sink)
{
    std::string text;
    writeMaterialFileXml(input.u16string(), text, [&sink](std::string& t) { sink.take(t, false); });
    sink.take(text, true);
}

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

// The conversion into the sink against the same XML moved through it; false when over target. The
// runs take turns, so that a spell of a slower machine weighs on both sides of the ratio alike.
bool reportConversionIntoPieces(const fs::path& input, const std::string& xml)
{
    PieceSink sink;
    const auto convertOnce = [&] { convertIntoPieces(input, sink); };
    const auto moveOnce = [&] {
        std::string text;
        for (std::size_t done = 0; done < xml.size(); done += 1u << 16) {
            text.append(xml, done, 1u << 16);
            sink.take(text, false);
        }
        sink.take(text, true);
    };
    const auto loadOnce = [&] {
        TalMatFile file;
        file.load(input.u16string());
    };
    double convert = bestSeconds(1, convertOnce), move = bestSeconds(3, moveOnce), load = bestSeconds(1, loadOnce);
    for (int round = 1; round < 9; ++round) {
        convert = std::min(convert, bestSeconds(1, convertOnce));
        move = std::min(move, bestSeconds(3, moveOnce));
        load = std::min(load, bestSeconds(1, loadOnce));
    }
    const bool ok = convert < 12 * move;
    std::printf("in process: conversion %.3f s (the load alone %.3f s), moving its XML %.4f s\n", convert, load,
                move);
    std::printf("conversion / moving the XML  %8.1fx  (target: at most 12x)  %s\n", convert / move,
                ok ? "ok" : "OVER TARGET");
    return ok;
}

std::size_t occurrences(const std::string& text, std::string_view word)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + word.size())) ++count;
    return count;
}

// Heap allocations of one conversion of a generated library: the load alone, and the whole
// conversion less the load; assets and parameters counted in its XML.
struct Allocations {
    std::size_t load = 0;
    std::size_t emit = 0;
    std::size_t assets = 0;
    std::size_t parameters = 0;
};

Allocations countAllocations(const fs::path& input)
{
    Allocations counted;
    const std::string xml = materialFileToXml(input.u16string());
    counted.assets = occurrences(xml, "<Asset ");
    counted.parameters = occurrences(xml, "<parameter ");
    PieceSink sink;
    convertIntoPieces(input, sink);  // anything made once per process is made before counting
    std::size_t before = allocations.load();
    {
        TalMatFile file;
        file.load(input.u16string());
    }
    counted.load = allocations.load() - before;
    before = allocations.load();
    convertIntoPieces(input, sink);
    counted.emit = allocations.load() - before - counted.load;
    return counted;
}

// Allocations of a one-material and a hundred-material library: what a file costs whatever its
// size, and what each further material, asset and parameter adds; false when emitting allocates
// for each asset or parameter.
bool reportAllocations(const fs::path& dir)
{
    Allocations one, hundred;
    for (const auto& [count, result] : {std::pair{1, &one}, std::pair{100, &hundred}}) {
        const fs::path input = dir / ("library_" + std::to_string(count) + ".talmat");
        if (!writeGeneratedLibrary(input, count)) return false;
        *result = countAllocations(input);
    }
    const double loadEach = (hundred.load - static_cast<double>(one.load)) / 99;
    const double emitEach = (hundred.emit - static_cast<double>(one.emit)) / 99;
    const double assetsEach = (hundred.assets - static_cast<double>(one.assets)) / 99;
    const double parametersEach = (hundred.parameters - static_cast<double>(one.parameters)) / 99;
    std::printf("allocations of one conversion: 1 material: load %zu, emit %zu; 100 materials: load %zu, emit %zu\n",
                one.load, one.emit, hundred.load, hundred.emit);
    std::printf("each further material (%.0f assets, %.0f parameters): load %.1f, emit %.1f allocations\n",
                assetsEach, parametersEach, loadEach, emitEach);
    // What may remain is the growth of buffers the writer keeps (urls, the document's text): a
    // handful for the 99 further materials, against one for each of their 1,386 assets.
    const bool ok = hundred.emit - one.emit <= 4;
    std::printf("emit allocations per asset %.4f, per parameter %.5f  (target: 0; a kept buffer may grow once)  %s\n",
                emitEach / assetsEach, emitEach / parametersEach, ok ? "ok" : "OVER TARGET");
    return ok;
}

#ifdef CINDREL_MODULE_DIR
// Runs a script in a fresh interpreter with the module's folder and the input as its arguments, and
// reads back the `count` numbers it prints, the last of them above zero; none, and a message naming
// `what`, when it did not run.
// The script's report goes into `folder`, one of the bench's own: an input may lie in the sources.
std::vector<double> pythonNumbers(const std::string& script, const fs::path& input, const fs::path& folder,
                                  std::size_t count, const char* what)
{
    const fs::path report = folder / "python.txt";
    const RunResult run =
        runProgram({CINDREL_MODULE_PYTHON, "-c", script, CINDREL_MODULE_DIR, input.string()}, report.string());
    std::vector<double> numbers(count);
    std::ifstream in(report);
    bool ok = run.status == 0;
    for (double& number : numbers) ok = ok && static_cast<bool>(in >> number);
    if (ok && numbers.back() > 0) return numbers;
    std::fprintf(stderr, "conversion_bench: the Python command did not run on %s\n", what);
    return {};
}
#endif

// getTalmatXml in a fresh interpreter: its time, and its peak memory above the interpreter's own
// before the call, against the text it returns and against xmllint's time on that text. The peak is
// the memory's own high-water mark, which starts anew with the program (the usage counters keep
// this process's peak across the fork).
bool reportPythonCommand(const fs::path& input, double parseSeconds)
{
#ifdef CINDREL_MODULE_DIR
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
    const std::vector<double> numbers = pythonNumbers(script, input, input.parent_path(), 3, "the generated library");
    if (numbers.empty()) return false;
    const double seconds = numbers[0], extra = numbers[1], size = numbers[2];
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

// getTalmatXml on a one-material file against opening and reading that file in Python, each the
// best of many runs in one interpreter: a small call must cost less than reading its file. The two
// run in turns, so that a spell of a slower machine reaches both sides of the ratio.
bool reportSmallPythonCall(const fs::path& input, const fs::path& folder, const char* what)
{
#ifdef CINDREL_MODULE_DIR
    const std::string script =
        "import sys, timeit\n"
        "sys.path.insert(0, sys.argv[1])\n"
        "import Cindrel\n"
        "path = sys.argv[2]\n"
        "def read():\n"
        "    with open(path, 'rb') as f:\n"
        "        return f.read()\n"
        "call = lambda: Cindrel.getTalmatXml(path)\n"
        "call()\n"
        "bestCall = bestRead = float('inf')\n"
        "for turn in range(30):\n"
        "    bestCall = min(bestCall, timeit.timeit(call, number=1000) / 1000)\n"
        "    bestRead = min(bestRead, timeit.timeit(read, number=1000) / 1000)\n"
        "print('%.9f %.9f' % (bestCall, bestRead))\n";
    const std::vector<double> numbers = pythonNumbers(script, input, folder, 2, what);
    if (numbers.empty()) return false;
    const double call = numbers[0], read = numbers[1];
    const bool ok = call < read;
    std::printf("getTalmatXml, %-26s %6.1f us = %.2fx opening and reading the file (target: below 1x)  %s\n", what,
                call * 1e6, call / read, ok ? "ok" : "OVER TARGET");
    return ok;
#else
    (void)input;
    (void)folder;
    (void)what;
    return true;
#endif
}

// The call on the generated material (three layers with bitmap textures, 25 KB of XML), and on the
// bundled single-layer example (16 KB).
bool reportSmallPythonCalls(const fs::path& dir)
{
    const fs::path generated = dir / "one_material.talmat";
    if (!writeGeneratedLibrary(generated, 1)) return false;
    const bool generatedOk = reportSmallPythonCall(generated, dir, "one generated material");
    const fs::path example = fs::path(CINDREL_SOURCE_DIR) / "examples" / "single_layer.talmat";
    return reportSmallPythonCall(example, dir, "the single-layer example") && generatedOk;
}

}  // namespace

int main(int argc, char** argv)
{
    // For instruction counts: a library written, or one file converted into the sink; or one of
    // the reports alone.
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "--write" && argc == 4) return writeGeneratedLibrary(argv[3], std::atoi(argv[2])) ? 0 : 1;
    if (mode == "--convert" && (argc == 3 || argc == 4)) {
        // More rounds than one let a profile see the conversion with the memory already mapped.
        PieceSink sink;
        for (int round = 0, rounds = argc == 4 ? std::atoi(argv[3]) : 1; round < rounds; ++round)
            convertIntoPieces(argv[2], sink);
        return sink.taken > 0 ? 0 : 1;
    }
    // A report alone, in a folder of its own made for it.
    const auto alone = [](const char* folder, bool (*report)(const fs::path&)) {
        const fs::path dir = fs::temp_directory_path() / folder;
        fs::create_directories(dir);
        const bool ok = report(dir);
        fs::remove_all(dir);
        return ok ? 0 : 1;
    };
    if (mode == "--allocations" && argc == 2) return alone("cindrel_allocation_count", reportAllocations);
    if (mode == "--small-call" && argc == 2) return alone("cindrel_small_call", reportSmallPythonCalls);
    if (mode == "--in-process" && argc == 3) {
        const std::string xml = materialFileToXml(fs::path(argv[2]).u16string());
        return reportConversionIntoPieces(argv[2], xml) ? 0 : 1;
    }
    if (argc > 1) {
        std::fprintf(stderr,
                     "usage: conversion_bench [--write MATERIALS FILE | --convert FILE [ROUNDS] | --allocations |"
                     " --in-process FILE | --small-call]\n");
        return 2;
    }

    const fs::path dir = fs::temp_directory_path() / "cindrel_conversion_bench";
    fs::create_directories(dir);
    const fs::path input = dir / "library.talmat";
    const fs::path xml = dir / "library.xml";
    if (!writeGeneratedLibrary(input, materialCount)) {
        std::fprintf(stderr, "conversion_bench: the generated library did not save\n");
        return 1;
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
    reportSmallPythonCalls(dir);
    reportAllocations(dir);
    fs::remove_all(dir);
    return 0;
}
