// cindrel: converts material and render-options files to their XML asset text, one file or thousands.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "archive/text_conversion.h"
#include "input_files.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"
#include "utf8_output.h"

namespace fs = std::filesystem;
using namespace CindrelTool;
using TalvexCore::ConversionOutcome;

namespace {

constexpr const char* versionText = "cindrel 0.1.0";

const char* usageText =
    "Usage: cindrel [-o DIR] [-q] FILE|FOLDER...\n"
    "\n"
    "Converts material files (.talmat, .numat) and render-options files (.talopt, .nuopt) to\n"
    "their XML asset text, the same text the Python commands getTalmatXml and getTaloptXml give.\n"
    "\n"
    "  FILE        a material or options file; its XML goes to standard output as UTF-8\n"
    "  FOLDER      every material and options file below it, in name order\n"
    "  -o DIR      write DIR/NAME.xml for each file instead (folders keep their sub-folders),\n"
    "              and print one line per file\n"
    "  -q          no progress and no notes on standard error, only errors\n"
    "  -h, --help  show this text\n"
    "  --version   show the version\n"
    "\n"
    "A file that is not a binary file of its kind is taken to be XML already: its text passes\n"
    "through unchanged, and standard error says so. The exit status is 0 when every file was\n"
    "converted or passed through, 1 when any file could not be read, and 2 for a usage error.\n";

struct Settings {
    std::vector<std::string> inputs;
    fs::path outputDir;
    bool toDirectory = false;
    bool quiet = false;
};

int usageError(const std::string& message)
{
    std::fprintf(stderr, "cindrel: %s\nTry 'cindrel --help' for more information.\n", message.c_str());
    return 2;
}

// Writes the XML of one file through `output`; what the conversion made of it.
ConversionOutcome convertFile(const InputFile& input, Utf8Output& output)
{
    const std::u16string path = TalvexCore::narrowToWide(input.path.string());
    std::u16string text;
    const auto sink = [&output](std::u16string& t) { output.take(t); };
    const ConversionOutcome outcome = input.kind == FileKind::Material
                                          ? TalvexCore::writeMaterialFileXml(path, text, sink)
                                          : TalvexCore::writeOptionsFileXml(path, text, sink);
    output.take(text, true);
    return outcome;
}

// Why a path cannot be read, in the system's words.
std::string unreadableReason(const fs::path& path)
{
    std::FILE* file = std::fopen(path.string().c_str(), "rb");
    if (file == nullptr) return std::strerror(errno);
    std::fclose(file);
    std::error_code ec;
    if (fs::is_directory(path, ec)) return "is a folder";
    return "cannot be read";
}

class Progress {
public:
    Progress(std::size_t total, bool enabled) : total(total), enabled(enabled && total > 1 && isatty(2)) {}
    void show(std::size_t index, const fs::path& path)
    {
        if (!enabled) return;
        std::fprintf(stderr, "\r\033[K[%zu/%zu] %s", index + 1, total, path.filename().string().c_str());
        std::fflush(stderr);
    }
    void clear()
    {
        if (enabled) std::fprintf(stderr, "\r\033[K");
    }

private:
    std::size_t total;
    bool enabled;
};

fs::path outputPathFor(const Settings& settings, const InputFile& input, std::set<fs::path>& used)
{
    const fs::path dir = settings.outputDir / input.relativeDir;
    fs::path candidate = dir / (input.path.stem().string() + ".xml");
    // wood.talmat and wood.talopt side by side must not overwrite each other.
    if (!used.insert(candidate).second) {
        candidate = dir / (input.path.filename().string() + ".xml");
        used.insert(candidate);
    }
    return candidate;
}

int run(const Settings& settings)
{
    std::vector<std::string> errors;
    const std::vector<InputFile> inputs = collectInputs(settings.inputs, errors);
    bool failed = !errors.empty();
    for (const std::string& error : errors) std::fprintf(stderr, "cindrel: %s\n", error.c_str());

    Progress progress(inputs.size(), !settings.quiet && settings.toDirectory);
    std::set<fs::path> usedOutputs;
    Utf8Output standardOutput(stdout);
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const InputFile& input = inputs[i];
        const std::string name = input.path.string();
        progress.show(i, input.path);
        if (input.kind == FileKind::Unknown) {
            progress.clear();
            std::fprintf(stderr, "cindrel: %s: not a material or options file (.talmat, .numat, .talopt, .nuopt)\n",
                         name.c_str());
            failed = true;
            continue;
        }
        std::error_code ec;
        if (!fs::exists(input.path, ec) || fs::is_directory(input.path, ec)) {
            progress.clear();
            std::fprintf(stderr, "cindrel: %s: %s\n", name.c_str(), unreadableReason(input.path).c_str());
            failed = true;
            continue;
        }

        ConversionOutcome outcome;
        fs::path target;
        if (settings.toDirectory) {
            target = outputPathFor(settings, input, usedOutputs);
            fs::create_directories(target.parent_path(), ec);
            std::FILE* file = std::fopen(target.string().c_str(), "wb");
            if (file == nullptr) {
                progress.clear();
                std::fprintf(stderr, "cindrel: %s: cannot write: %s\n", target.string().c_str(), std::strerror(errno));
                failed = true;
                continue;
            }
            Utf8Output output(file);
            outcome = convertFile(input, output);
            const bool written = output.finish();
            if (std::fclose(file) != 0 || !written) {
                progress.clear();
                std::fprintf(stderr, "cindrel: %s: write failed\n", target.string().c_str());
                failed = true;
                continue;
            }
        } else {
            outcome = convertFile(input, standardOutput);
        }

        if (outcome == ConversionOutcome::Unreadable) {
            progress.clear();
            std::fprintf(stderr, "cindrel: %s: %s\n", name.c_str(), unreadableReason(input.path).c_str());
            failed = true;
            continue;
        }
        const char* how = outcome == ConversionOutcome::Binary ? "converted" : "passed through as text";
        if (outcome == ConversionOutcome::PlainText && !settings.quiet) {
            progress.clear();
            std::fprintf(stderr, "cindrel: %s: not a binary %s file; passed through as text\n", name.c_str(),
                         input.kind == FileKind::Material ? "material" : "options");
        }
        if (settings.toDirectory) {
            progress.clear();
            std::printf("%s -> %s (%s)\n", name.c_str(), target.string().c_str(), how);
            std::fflush(stdout);
        }
    }
    progress.clear();
    if (!standardOutput.finish()) {
        std::fprintf(stderr, "cindrel: write to standard output failed\n");
        failed = true;
    }
    return failed ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv)
{
    Settings settings;
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && (argument == "-h" || argument == "--help")) {
            std::fputs(usageText, stdout);
            return 0;
        } else if (!optionsEnded && argument == "--version") {
            std::puts(versionText);
            return 0;
        } else if (!optionsEnded && argument == "-q") {
            settings.quiet = true;
        } else if (!optionsEnded && (argument == "-o" || argument.rfind("--output=", 0) == 0)) {
            if (argument == "-o") {
                if (++i >= argc) return usageError("-o needs a folder");
                settings.outputDir = argv[i];
            } else {
                settings.outputDir = argument.substr(9);
            }
            settings.toDirectory = true;
        } else if (!optionsEnded && argument.size() > 1 && argument[0] == '-') {
            return usageError("unknown option '" + argument + "'");
        } else {
            settings.inputs.push_back(argument);
        }
    }
    if (settings.inputs.empty()) return usageError("no file or folder given");
    try {
        return run(settings);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "cindrel: %s\n", e.what());
        return 1;
    }
}
