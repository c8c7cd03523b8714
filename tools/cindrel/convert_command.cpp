#include "archive/file_path.h"
#include "convert_command.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <new>

#include "batch_command.h"
#include "file_conversion.h"
#include "input_files.h"
#include "output_file.h"
#include "output_plan.h"
#include "utf8_output.h"

using TalvexCore::fileNameBytes;

namespace CindrelTool {

namespace fs = std::filesystem;
using TalvexCore::ConversionNotes;
using TalvexCore::ConversionOutcome;

namespace {

// Writes the XML of one file through `output`; what the conversion made of it.
ConversionOutcome convertFile(const InputFile& input, Utf8Output& output, ConversionNotes& notes)
{
    std::string text;
    const ConversionOutcome outcome = convertInput(input, text, [&output](std::string& t) { output.take(t); }, notes);
    output.take(text, true);
    return outcome;
}

// The documents of several files on standard output: each begins with a line naming its file, and
// ends with a line end, so that a reader can split them.
std::string documentHeader(const fs::path& path)
{
    return "==> " + fileNameBytes(path) + " <==\n";
}

// Converts files and reports on each; one object for the files converted in one process.
class Batch {
public:
    Batch(const ConversionSettings& settings, bool headers) : settings(settings), headers(headers), standardOutput(stdout) {}

    // Converts one file; a failure of any kind is reported against the file and the batch goes on.
    void convert(const InputFile& input, const fs::path& target)
    {
        try {
            convertOrReport(input, target);
        } catch (const std::bad_alloc&) {
            error(input.path, "not enough memory to convert it");
        } catch (const std::exception& e) {
            error(input.path, e.what());
        }
    }

    // Closes standard output; the exit status.
    int finish()
    {
        if (!standardOutput.finish()) {
            std::fprintf(stderr, "cindrel: write to standard output failed: %s\n",
                         std::strerror(standardOutput.error()));
            failed = true;
        }
        return failed ? exitFailure : exitSuccess;
    }

private:
    void error(const fs::path& path, const std::string& message)
    {
        reportError(path, message);
        failed = true;
    }

    void note(const fs::path& path, const std::string& message)
    {
        if (!settings.quiet) reportError(path, message);
    }

    void convertOrReport(const InputFile& input, const fs::path& target)
    {
        if (input.kind == FileKind::Unknown) {
            error(input.path, unknownKindReason(input.path));
            return;
        }
        ConversionNotes notes;
        if (target.empty()) {
            // A damaged file's text is empty (its first byte is a zero), so nothing reaches the
            // output before the report decides; the header goes out with the first piece.
            standardOutput.startDocument(headers ? documentHeader(input.path) : std::string());
            const ConversionOutcome outcome = convertFile(input, standardOutput, notes);
            if (outcome != ConversionOutcome::Unreadable && !rejected(outcome, notes))
                standardOutput.endDocument(headers);
            report(input, outcome, notes, standardOutput, {});
            return;
        }
        std::error_code ec;
        fs::create_directories(target.parent_path(), ec);
        if (ec) {
            error(input.path, "cannot make the folder " + fileNameBytes(target.parent_path()) + ": " + ec.message());
            return;
        }
        OutputFile file(target);
        if (!file.open()) {
            error(input.path, "cannot write " + fileNameBytes(target) + ": " + file.error());
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
            error(input.path, "cannot write " + fileNameBytes(target) + ": " + file.error());
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
        const std::string damage = damageText(input.kind, notes);
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
        if (!target.empty()) {
            std::printf("%s -> %s (%s)\n", fileNameBytes(input.path).c_str(), fileNameBytes(target).c_str(),
                        outcome == ConversionOutcome::Binary ? "converted" : "passed through as text");
            std::fflush(stdout);
        }
    }

    const ConversionSettings& settings;
    bool headers;
    Utf8Output standardOutput;
    bool failed = false;
};

}  // namespace

int runConversion(const ConversionSettings& settings)
{
    std::vector<std::string> errors;
    const std::vector<InputFile> inputs = collectInputs(settings.inputs, errors);
    std::vector<fs::path> targets(inputs.size());
    if (!settings.outputDir.empty()) {
        const auto names = [](const InputFile& input) {
            return std::vector<std::string>{fileNameBytes(input.path.stem()) + ".xml", fileNameBytes(input.path.filename()) + ".xml"};
        };
        targets = planOutputs(TalvexCore::filePath(settings.outputDir), inputs, names, "converted", errors);
    }
    const bool headers = settings.outputDir.empty() && inputs.size() > 1;
    return runPlannedBatch(inputs, targets, !settings.outputDir.empty(), errors, settings.jobs,
                           !settings.quiet && !settings.outputDir.empty(),
                           [&](const InputFile& input, const fs::path& target) {
                               Batch batch(settings, headers);
                               batch.convert(input, target);
                               return batch.finish();
                           });
}

void addConversion(CLI::App& command, CommandRun& chosen)
{
    auto settings = std::make_shared<ConversionSettings>();
    addBatchOptions(command, *settings,
                    {"FILE", "a material or options file, or a folder: every such file in it",
                     "write DIR/NAME.xml for each file, one line each", "no progress and no notes, only errors"},
                    [&command, &settings] {
                        command.add_flag("--pass-damaged", settings->passDamaged,
                                         "pass a damaged binary file through as text, as Python does");
                    });
    chosen = [settings] {
        if (settings->inputs.empty()) return usageError("no file or folder given");
        return runConversion(*settings);
    };
}

}  // namespace CindrelTool
