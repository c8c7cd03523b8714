// What the commands that go through a batch of files share: their options, and how a batch whose
// outputs are planned runs.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "command_line.h"
#include "input_files.h"

namespace CLI {
class Option;
}

namespace CindrelTool {

struct BatchSettings {
    std::vector<std::string> inputs;  // files and folders
    std::string outputDir;  // -o; empty when not given
    bool quiet = false;
    unsigned jobs = 0;  // worker processes; 0 for one per core
};

// The help of a command's own inputs, output folder and quiet.
struct BatchHelp {
    const char* inputsName;  // "FILE"
    const char* inputs;
    const char* output;
    const char* quiet;
};

// Adds the inputs, -o, -q and -j to `command`, and between -q and -j what `ownOptions` adds.
// The inputs' option, to require it.
CLI::Option* addBatchOptions(CLI::App& command, BatchSettings& settings, const BatchHelp& help,
                             const std::function<void()>& ownOptions);

// Reports `errors` (the inputs' and the plan's), then runs `job` on each input with its target,
// less those the plan refused (when `planned`); the exit status, a failure too when any error
// was reported.
int runPlannedBatch(const std::vector<InputFile>& inputs, const std::vector<std::filesystem::path>& targets,
                    bool planned, const std::vector<std::string>& errors, unsigned jobs, bool progress,
                    const std::function<int(const InputFile&, const std::filesystem::path&)>& job);

}  // namespace CindrelTool
