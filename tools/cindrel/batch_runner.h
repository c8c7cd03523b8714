// A batch of files run one by one here, or on all cores in worker processes, with its progress.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>

namespace CindrelTool {

// Runs job(0) .. job(count-1), each returning an exit status, and gives the batch's: 1 when any
// job failed. A single file runs in this process; a batch runs in `jobs` worker processes (0: one
// per core), each file with the model's state as fresh, its output passed on in the order of the
// files. With
// `progress`, a terminal's standard error shows which file is under way (`pathOf`).
int runBatch(std::size_t count, unsigned jobs, bool progress,
             const std::function<std::filesystem::path(std::size_t)>& pathOf,
             const std::function<int(std::size_t)>& job);

}  // namespace CindrelTool
