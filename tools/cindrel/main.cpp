// cindrel: converts material and render-options files to their XML asset text, one file or thousands.
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <map>
#include <new>
#include <string>
#include <vector>

#include "archive/file_path.h"
#include "archive/regular_file.h"
#include "input_files.h"
#include "module/material_conversion.h"
#include "module/options_conversion.h"
#include "output_file.h"
#include "utf8_console.h"
#include "utf8_output.h"

namespace fs = std::filesystem;
using namespace CindrelTool;
using TalvexCore::ConversionNotes;
using TalvexCore::ConversionOutcome;

namespace {

constexpr const char* versionText = "cindrel 0.1.0";

const char* usageText =
    "Usage: cindrel [-o DIR] [-q] [--pass-damaged] FILE|FOLDER...\n"
    "\n"
    "Converts material files (.talmat, .numat) and render-options files (.talopt, .nuopt) to\n"
    "their XML asset text, the same text the Python commands getTalmatXml and getTaloptXml give.\n"
    "\n"
    "  FILE        a material or options file; its XML goes to standard output as UTF-8\n"
    "  FOLDER      every material and options file below it, in name order\n"
    "  -o DIR      write DIR/NAME.xml for each file instead (folders keep their sub-folders),\n"
    "              and print one line per file\n"
    "  -q          no progress and no notes on standard error, only errors\n"
    "  --pass-damaged\n"
    "              pass a damaged binary file through as text, as the Python commands do,\n"
    "              with a warning, instead of failing on it\n"
    "  -h, --help  show this text\n"
    "  --version   show the version\n"
    "\n"
    "A file that is not a binary file of its kind is taken to be XML already: its text passes\n"
    "through unchanged, and standard error says so. A file whose header says it is binary but\n"
    "which does not load is damaged: the error names what failed, where and why, and no XML is\n"
    "written for it. Warnings tell of files that loaded although cut short, and of documents with\n"
    "characters that XML 1.0 does not allow. With -o, each document is written whole under a\n"
    "temporary name and then renamed, so a failed write leaves no file; two inputs that would\n"
    "have one output name are refused, not overwritten. Every failure is reported against its\n"
    "file and the batch goes on.\n"
    "\n"
    "The exit status is 0 when every file was converted or passed through, 1 when any file\n"
    "failed, and 2 for a usage error.\n";

struct Settings {
    std::vector<std::string> inputs;
    fs::path outputDir;
    bool toDirectory = false;
    bool quiet = false;
    bool passDamaged = false;
};

int usageError(const std::string& message)
{
    std::fprintf(stderr, "cindrel: %s\nTry 'cindrel --help' for more information.\n", message.c_str());
    return 2;
}

// Writes the XML of one file through `output`; what the conversion made of it and found wrong.
ConversionOutcome convertFile(const InputFile& input, Utf8Output& output, ConversionNotes& notes)
{
    const std::u16string path = TalvexCore::widePath(input.path);
    std::string text;
    const auto sink = [&output](std::string& t) { output.take(t); };
    ConversionOutcome outcome;
    if (input.kind == FileKind::Material) {
        outcome = TalvexCore::writeMaterialFileXml(path, text, sink, &notes);
    } else {
        outcome = TalvexCore::writeOptionsFileXml(path, text, sink);
        if (outcome == ConversionOutcome::Unreadable)
            notes.unreadableReason = TalvexCore::RegularFile(path).failureReason();
    }
    output.take(text, true);
    return outcome;
}

// A path in a message: the bytes of its name, UTF-8 on Windows.
std::string shown(const fs::path& path)
{
    return TalvexCore::fileNameBytes(path);
}

const char* kindName(FileKind kind)
{
    return kind == FileKind::Material ? "material" : "options";
}

class Progress {
public:
    Progress(std::size_t total, bool enabled) : total(total), enabled(enabled && total > 1 && isatty(2)) {}
    void show(std::size_t index, const fs::path& path)
    {
        if (!enabled) return;
        std::fprintf(stderr, "\r\033[K[%zu/%zu] %s", index + 1, total, shown(path.filename()).c_str());
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

// The output file of each input, in the output folder's tree. wood.talmat and wood.talopt side by
// side become wood.xml and wood.talopt.xml; two inputs of the same name that would land on one
// output (a/x.talmat and b/x.talmat given as files) are refused: the later one gets an empty path
// and a message, and nothing is overwritten.
std::vector<fs::path> planOutputs(const Settings& settings, const std::vector<InputFile>& inputs,
                                  std::vector<std::string>& errors)
{
    std::vector<fs::path> targets(inputs.size());
    std::map<fs::path, std::size_t> taken;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const InputFile& input = inputs[i];
        if (input.kind == FileKind::Unknown) continue;
        const fs::path dir = settings.outputDir / input.relativeDir;
        fs::path candidate = dir / input.path.stem();
        candidate += ".xml";
        auto owner = taken.find(candidate);
        if (owner != taken.end() && inputs[owner->second].path.filename() != input.path.filename()) {
            candidate = dir / input.path.filename();
            candidate += ".xml";
            owner = taken.find(candidate);
        }
        if (owner != taken.end()) {
            errors.push_back(shown(input.path) + ": not converted: its output " + shown(candidate) +
                             " is already the output of " + shown(inputs[owner->second].path) +
                             " (convert it into another folder)");
            continue;
        }
        taken.emplace(candidate, i);
        targets[i] = candidate;
    }
    return targets;
}

class Batch {
public:
    Batch(const Settings& settings, std::size_t total)
        : settings(settings), progress(total, !settings.quiet && settings.toDirectory), standardOutput(stdout)
    {
    }

    // Converts one file; a failure of any kind is reported against the file and the batch goes on.
    void convert(std::size_t index, const InputFile& input, const fs::path& target)
    {
        progress.show(index, input.path);
        try {
            convertOrReport(input, target);
        } catch (const std::bad_alloc&) {
            error(input.path, "not enough memory to convert it");
        } catch (const std::exception& e) {
            error(input.path, e.what());
        }
    }

    void error(const fs::path& path, const std::string& message)
    {
        progress.clear();
        std::fprintf(stderr, "cindrel: %s: %s\n", shown(path).c_str(), message.c_str());
        failed = true;
    }

    void note(const fs::path& path, const std::string& message)
    {
        if (settings.quiet) return;
        progress.clear();
        std::fprintf(stderr, "cindrel: %s: %s\n", shown(path).c_str(), message.c_str());
    }

    // Closes standard output; the exit status of the whole batch.
    int finish()
    {
        progress.clear();
        if (!standardOutput.finish()) {
            std::fprintf(stderr, "cindrel: write to standard output failed: %s\n",
                         std::strerror(standardOutput.error()));
            failed = true;
        }
        return failed ? 1 : 0;
    }

private:
    void convertOrReport(const InputFile& input, const fs::path& target)
    {
        if (input.kind == FileKind::Unknown) {
            error(input.path, "not a material or options file (.talmat, .numat, .talopt, .nuopt)");
            return;
        }
        ConversionNotes notes;
        if (!settings.toDirectory) {
            // A damaged file's text is empty (its first byte is a zero), so nothing reaches the
            // output before the report decides.
            standardOutput.resetCounts();
            report(input, convertFile(input, standardOutput, notes), notes, standardOutput, {});
            return;
        }
        std::error_code ec;
        fs::create_directories(target.parent_path(), ec);
        OutputFile file(target);
        if (!file.open()) {
            error(input.path, "cannot write " + shown(target) + ": " + file.error());
            return;
        }
        Utf8Output output(file.file());
        const ConversionOutcome outcome = convertFile(input, output, notes);
        output.finish();
        if (outcome == ConversionOutcome::Unreadable || rejected(outcome, notes)) {
            file.abandon();
            report(input, outcome, notes, output, target);
            return;
        }
        if (!file.commit(output.error())) {
            error(input.path, "cannot write " + shown(target) + ": " + file.error());
            return;
        }
        report(input, outcome, notes, output, target);
    }

    // A file whose header says it is binary but which does not load is damaged: an error, unless
    // its pass-through text is asked for.
    bool rejected(ConversionOutcome outcome, const ConversionNotes& notes) const
    {
        return outcome == ConversionOutcome::PlainText && notes.binaryHeader && !settings.passDamaged;
    }

    void report(const InputFile& input, ConversionOutcome outcome, const ConversionNotes& notes,
                const Utf8Output& output, const fs::path& target)
    {
        if (outcome == ConversionOutcome::Unreadable) {
            error(input.path, notes.unreadableReason);
            return;
        }
        const std::string damage = std::string("damaged binary ") + kindName(input.kind) + " file: " +
                                   (notes.failure ? describe(*notes.failure) : std::string("it does not load"));
        if (rejected(outcome, notes)) {
            error(input.path, damage + "; no XML written");
            return;
        }
        if (outcome == ConversionOutcome::PlainText && notes.binaryHeader)
            note(input.path, "warning: " + damage + "; passed through as text");
        else if (outcome == ConversionOutcome::PlainText)
            note(input.path, std::string("not a binary ") + kindName(input.kind) + " file; passed through as text");
        if (outcome == ConversionOutcome::Binary && notes.readPastEnd)
            note(input.path, "warning: the load read past the end of the file's data: it may be cut short, and "
                             "values read there are not the file's");
        if (output.forbiddenCharacters() > 0)
            note(input.path, "warning: the document holds " + std::to_string(output.forbiddenCharacters()) +
                                 " character(s) that XML 1.0 does not allow; they are kept as they are");
        if (settings.toDirectory) {
            progress.clear();
            std::printf("%s -> %s (%s)\n", shown(input.path).c_str(), shown(target).c_str(),
                        outcome == ConversionOutcome::Binary ? "converted" : "passed through as text");
            std::fflush(stdout);
        }
    }

    const Settings& settings;
    Progress progress;
    Utf8Output standardOutput;
    bool failed = false;
};

int run(const Settings& settings)
{
    std::vector<std::string> errors;
    const std::vector<InputFile> inputs = collectInputs(settings.inputs, errors);
    std::vector<fs::path> targets;
    if (settings.toDirectory) targets = planOutputs(settings, inputs, errors);
    for (const std::string& error : errors) std::fprintf(stderr, "cindrel: %s\n", error.c_str());

    Batch batch(settings, inputs.size());
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (settings.toDirectory && targets[i].empty() && inputs[i].kind != FileKind::Unknown) continue;
        batch.convert(i, inputs[i], settings.toDirectory ? targets[i] : fs::path());
    }
    const int status = batch.finish();
    return errors.empty() ? status : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    Utf8Console console(argc, argv);
    argc = console.argc();
    argv = console.argv();
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
        } else if (!optionsEnded && argument == "--pass-damaged") {
            settings.passDamaged = true;
        } else if (!optionsEnded && (argument == "-o" || argument.rfind("--output=", 0) == 0)) {
            if (argument == "-o") {
                if (++i >= argc) return usageError("-o needs a folder");
                settings.outputDir = TalvexCore::filePath(argv[i]);
            } else {
                settings.outputDir = TalvexCore::filePath(argument.substr(9));
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
