#include "archive/file_path.h"
#include "batch_runner.h"

#include <cstdio>
#include <algorithm>
#include <cstring>
#include <thread>

#include "command_line.h"
#include "fresh_model_state.h"
#include "progress.h"
#include "worker_pool.h"

using TalvexCore::fileNameBytes;

namespace CindrelTool {

int runBatch(std::size_t count, unsigned jobs, bool progress,
             const std::function<std::filesystem::path(std::size_t)>& pathOf,
             const std::function<int(std::size_t)>& job)
{
    if (count == 1) return job(0);
    if (jobs == 0) jobs = std::max(1u, std::thread::hardware_concurrency());
    Progress shown(count, progress);
    bool failed = false;
    WorkerPool pool(jobs, [&pathOf](std::size_t index) {
        std::error_code unknown;
        const std::uintmax_t size = std::filesystem::file_size(pathOf(index), unknown);
        return unknown ? 0 : size;
    });
    if (count > 0) shown.show(0, pathOf(0));
    const FreshModelState fresh;
    const bool started = pool.run(
        count, job, [&fresh] { fresh.restore(); },
        [&](std::size_t index, int status, const std::string& abnormalEnd) {
            if (!abnormalEnd.empty()) {
                shown.clear();
                std::fprintf(stderr, "cindrel: %s: its worker process %s\n", fileNameBytes(pathOf(index)).c_str(), abnormalEnd.c_str());
            }
            failed = failed || status != exitSuccess;
            if (index + 1 < count) shown.show(index + 1, pathOf(index + 1));
        },
        [&shown] { shown.clear(); });
    shown.clear();
    if (!started) {
        std::fprintf(stderr, "cindrel: cannot start a worker process: %s; the files after the last one reported "
                             "were left as they are\n", std::strerror(pool.startError()));
        failed = true;
    }
    if (pool.outputError() != 0) {
        std::fprintf(stderr, "cindrel: write to standard output failed: %s\n", std::strerror(pool.outputError()));
        failed = true;
    }
    return failed ? exitFailure : exitSuccess;
}

}  // namespace CindrelTool
