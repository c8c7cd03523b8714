#include "upgrade_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <memory>
#include <mutex>
#include <new>
#include <sstream>

#include "archive/file_path.h"
#include "archive/text_conversion.h"
#include "batch_command.h"
#include "file_conversion.h"
#include "input_files.h"
#include "materials/tal_mat_file.h"
#include "module/model_state_lock.h"
#include "options/all_options.h"
#include "options/tal_opt_file.h"
#include "output_file.h"
#include "output_plan.h"

using TalvexCore::fileNameBytes;

namespace CindrelTool {

namespace fs = std::filesystem;
using TalvexCore::ConversionNotes;
using TalvexCore::ConversionOutcome;

namespace {

// Loads the file and writes it in the newest version into `file`; false when it does not load or
// cannot be written.
bool saveNewest(const InputFile& input, OutputFile& file)
{
    const std::u16string path = TalvexCore::widePath(input.path);
    const std::lock_guard<std::mutex> held(TalvexCore::modelStateLock());
    if (input.kind == FileKind::Material) {
        TalvexCore::TalMatFile materials;
        std::ostringstream bytes;
        if (!materials.load(path) || !materials.save(bytes)) return false;
        const std::string& written = bytes.str();
        return std::fwrite(written.data(), 1, written.size(), file.file()) == written.size();
    }
    TalvexCore::AllOptions options;
    TalvexCore::TalOptFile options_file;
    return options_file.load(options, path) &&
           options_file.save(options, TalvexCore::widePath(file.temporaryName()));
}

// Where two texts first differ, for the message of a refused upgrade.
std::string firstDifference(const std::string& a, const std::string& b)
{
    std::size_t at = 0;
    while (at < a.size() && at < b.size() && a[at] == b[at]) ++at;
    const std::size_t line = 1 + static_cast<std::size_t>(std::count(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
    return "line " + std::to_string(line);
}

class Upgrade {
public:
    explicit Upgrade(const UpgradeSettings& settings) : settings(settings) {}

    // Upgrades one file into `target`; the exit status. A failure leaves no output behind.
    int run(const InputFile& input, const fs::path& target)
    {
        try {
            return upgrade(input, target) ? exitSuccess : exitFailure;
        } catch (const std::bad_alloc&) {
            reportError(input.path, "not enough memory to upgrade it");
        } catch (const std::exception& e) {
            reportError(input.path, e.what());
        }
        return exitFailure;
    }

private:
    bool refuse(const InputFile& input, const std::string& message)
    {
        reportError(input.path, message);
        return false;
    }

    bool upgrade(const InputFile& input, const fs::path& target)
    {
        if (input.kind == FileKind::Unknown) return refuse(input, unknownKindReason(input.path));
        std::error_code ec;
        if (!settings.inPlace && fs::equivalent(input.path, target, ec))
            return refuse(input, "not upgraded: the output " + fileNameBytes(target) +
                                   " is the file itself (give --in-place to replace it)");

        std::string before;
        ConversionNotes notes;
        const ConversionOutcome outcome = convertInput(input, before, {}, notes);
        if (outcome == ConversionOutcome::Unreadable) return refuse(input, notes.unreadableReason);
        if (outcome == ConversionOutcome::PlainText && notes.binaryHeader)
            return refuse(input, damageText(input.kind, notes) + "; not upgraded");
        if (outcome == ConversionOutcome::PlainText)
            return refuse(input, std::string("not a binary ") + kindName(input.kind) + " file; nothing to upgrade");

        if (!target.parent_path().empty()) fs::create_directories(target.parent_path(), ec);
        if (ec)
            return refuse(input, "cannot make the folder " + fileNameBytes(target.parent_path()) + ": " + ec.message());
        OutputFile file(target);
        if (!file.open()) return refuse(input, "cannot write " + fileNameBytes(target) + ": " + file.error());
        if (!saveNewest(input, file))
            return refuse(input, std::string("the ") + kindName(input.kind) +
                                   " file does not save in the newest version; not upgraded");
        std::fflush(file.file());

        // The saved file, converted as any file would be, must give the original's XML.
        std::string after;
        ConversionNotes savedNotes;
        const InputFile saved{file.temporaryName(), {}, input.kind};
        const auto savedOutcome = convertInput(saved, after, {}, savedNotes);
        if (savedOutcome != ConversionOutcome::Binary || after != before)
            return refuse(input, "the newest version converts to other XML (from " + firstDifference(before, after) +
                                   " on); not upgraded");
        if (!file.commit(0)) return refuse(input, "cannot write " + fileNameBytes(target) + ": " + file.error());
        std::printf("upgraded %s -> %s, same XML\n", fileNameBytes(input.path).c_str(), fileNameBytes(target).c_str());
        std::fflush(stdout);
        return true;
    }

    const UpgradeSettings& settings;
};

}  // namespace

int runUpgrade(const UpgradeSettings& settings)
{
    if (settings.inPlace && !settings.outputDir.empty()) return usageError("upgrade: --in-place and -o exclude each other");
    std::vector<std::string> paths = settings.inputs;
    fs::path outputDir = TalvexCore::filePath(settings.outputDir);
    fs::path singleTarget;
    if (!settings.inPlace && outputDir.empty()) {
        if (paths.size() != 2) return usageError("upgrade: give IN OUT, or -o DIR IN..., or --in-place IN...");
        std::error_code ec;
        if (fs::is_directory(TalvexCore::filePath(paths[1]), ec)) outputDir = TalvexCore::filePath(paths[1]);
        else if (fs::is_directory(TalvexCore::filePath(paths[0]), ec)) return usageError("upgrade: a folder upgrades into a folder: -o DIR");
        else singleTarget = TalvexCore::filePath(paths[1]);
        paths.pop_back();
    }

    std::vector<std::string> errors;
    const std::vector<InputFile> inputs = collectInputs(paths, errors);
    std::vector<fs::path> targets(inputs.size());
    if (settings.inPlace) {
        for (std::size_t i = 0; i < inputs.size(); ++i) targets[i] = inputs[i].path;
    } else if (!singleTarget.empty()) {
        if (!targets.empty()) targets[0] = singleTarget;
    } else {
        const auto names = [](const InputFile& input) { return std::vector<std::string>{fileNameBytes(input.path.filename())}; };
        targets = planOutputs(outputDir, inputs, names, "upgraded", errors);
    }
    return runPlannedBatch(inputs, targets, true, errors, settings.jobs, !settings.quiet,
                           [&](const InputFile& input, const fs::path& target) { return Upgrade(settings).run(input, target); });
}

void addUpgradeCommand(CLI::App& command, CommandRun& chosen)
{
    CLI::App* upgrade = command.add_subcommand("upgrade", "store files of any version in the newest version");
    upgrade->footer(
        "  cindrel upgrade IN OUT\n"
        "  cindrel upgrade -o DIR IN|FOLDER...\n"
        "  cindrel upgrade --in-place IN|FOLDER...\n"
        "\n"
        "Each file is loaded, saved in the newest version, and both are converted: the new file is kept only\n"
        "when it gives the same XML as the original, and a line says so (\"upgraded IN -> OUT, same XML\").\n"
        "Otherwise, or when the input is damaged, not binary or unreadable, that file fails, nothing is\n"
        "written for it, and the batch goes on. Folders are searched as for the conversion, and -o keeps\n"
        "their sub-folders. An input is never written over unless --in-place is given; each output\n"
        "appears whole or not at all. Exit status: 0 when every file was upgraded, 1 when any failed,\n"
        "2 for a usage error.");
    auto settings = std::make_shared<UpgradeSettings>();
    addBatchOptions(*upgrade, *settings,
                    {"IN", "material or options files, or folders: every such file below them",
                     "write DIR/NAME for each file", "no progress on standard error"},
                    [upgrade, &settings] {
                        upgrade->add_flag("--in-place", settings->inPlace, "replace each file by its upgrade");
                    })
        ->required();
    upgrade->callback([settings, &chosen] { chosen = [settings] { return runUpgrade(*settings); }; });
}

}  // namespace CindrelTool
