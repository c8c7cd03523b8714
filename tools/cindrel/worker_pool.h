// WorkerPool: the files of a batch handled in worker processes, on all cores, output in file order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace CindrelTool {

// Conversions take one lock around the model's process-wide state (the scene's materials, the
// document's sun) from load to the last line of the document, so threads would only wait on each
// other. The pool forks worker processes instead; each takes runs of consecutive files from this
// process and for each file runs `beforeEach` (which puts the process-wide state back as it was)
// and the job, and sends back what the job wrote to standard output and standard error.
//
// That output reaches this process's own in the order of the jobs, whatever order they finish
// in: the first unfinished job streams straight through, the others' waits in their workers'
// pipes, and what is read ahead of its turn is held here until then.
// The result does not depend on the number of workers. A worker that dies takes only its file
// with it: the file is reported as ended abnormally and a new worker goes on with the rest.
class WorkerPool {
public:
    // Runs in a worker; its exit status. Output goes through stdout and stderr.
    using Job = std::function<int(std::size_t index)>;
    // Runs here, in job order, after a job's output has been passed on: the job's exit status, or
    // -1 and how its worker ended when it died under it.
    using Ended = std::function<void(std::size_t index, int status, const std::string& abnormalEnd)>;

    // The bytes of a job's input: small files go to a worker several at a time.
    using JobSize = std::function<std::uintmax_t(std::size_t index)>;

    WorkerPool(unsigned workers, JobSize sizeOf) : workers(workers == 0 ? 1 : workers), sizeOf(std::move(sizeOf)) {}

    // Runs jobs 0 .. count-1. `beforeOutput` runs here before anything of a job's is written (to
    // clear a progress line). False, with the system's error number in startError(), when no
    // worker can be started: the jobs not yet begun are not run.
    bool run(std::size_t count, const Job& job, const std::function<void()>& beforeEach, const Ended& ended,
             const std::function<void()>& beforeOutput);
    int startError() const { return startFailure; }
    // The system's error number of the first write to standard output or error that failed, or 0;
    // the batch goes on, and what could not be written is dropped.
    int outputError() const { return writeFailure; }

private:
    unsigned workers;
    JobSize sizeOf;
    int startFailure = 0;
    int writeFailure = 0;
};

// Jobs ahead of the first unfinished one are begun for each worker up to this many, or up to this
// many bytes of input, so that the output held back for its turn stays bounded.
inline constexpr std::size_t jobsAheadPerWorker = 4;
inline constexpr std::uintmax_t bytesAheadPerWorker = 1 << 18;

}  // namespace CindrelTool
