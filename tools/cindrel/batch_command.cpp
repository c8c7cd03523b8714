#include "batch_command.h"

#include <CLI/CLI.hpp>
#include <cstdio>

#include "batch_runner.h"
#include "output_plan.h"

namespace CindrelTool {

CLI::Option* addBatchOptions(CLI::App& command, BatchSettings& settings, const BatchHelp& help,
                             const std::function<void()>& ownOptions)
{
    CLI::Option* inputs = command.add_option(help.inputsName, settings.inputs, help.inputs)->type_name("");
    command.add_option("-o,--output", settings.outputDir, help.output)->type_name("DIR");
    command.add_flag("-q,--quiet", settings.quiet, help.quiet);
    ownOptions();
    addJobsOption(command, settings.jobs);
    return inputs;
}

int runPlannedBatch(const std::vector<InputFile>& inputs, const std::vector<std::filesystem::path>& targets,
                    bool planned, const std::vector<std::string>& errors, unsigned jobs, bool progress,
                    const std::function<int(const InputFile&, const std::filesystem::path&)>& job)
{
    for (const std::string& error : errors) std::fprintf(stderr, "cindrel: %s\n", error.c_str());
    const std::vector<std::size_t> work = inputsToRun(inputs, targets, planned);
    const int status = runBatch(work.size(), jobs, progress, [&](std::size_t k) { return inputs[work[k]].path; },
                                [&](std::size_t k) { return job(inputs[work[k]], targets[work[k]]); });
    return errors.empty() ? status : exitFailure;
}

}  // namespace CindrelTool
