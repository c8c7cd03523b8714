#include "worker_pool.h"

#ifdef _WIN32

#include <cstdio>

namespace CindrelTool {

// Windows has no fork: the files are converted here, one after the other, which gives the same
// output in the same order. The process-wide state is put back before each file as in a worker.
bool WorkerPool::run(std::size_t count, const Job& job, const std::function<void()>& beforeEach, const Ended& ended,
                     const std::function<void()>& beforeOutput)
{
    for (std::size_t index = 0; index < count; ++index) {
        beforeEach();
        beforeOutput();
        const int status = job(index);
        std::fflush(stdout);
        std::fflush(stderr);
        ended(index, status, std::string());
    }
    return true;
}

}  // namespace CindrelTool

#else

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <map>
#include <vector>

namespace CindrelTool {

namespace {

// A worker sends frames: a header, then for output that many bytes. The end of a job carries its
// exit status.
struct FrameHeader {
    uint32_t kind;  // standardOutput, standardError or jobEnd
    uint32_t value;  // the byte count of output, or the exit status
};
constexpr uint32_t standardOutput = 1;
constexpr uint32_t standardError = 2;
constexpr uint32_t jobEnd = 0;

// What a worker is given to do: `count` consecutive jobs from `first`.
struct Run {
    uint64_t first;
    uint64_t count;
};

bool writeAll(int fd, const void* data, std::size_t size, int* failure = nullptr)
{
    const char* bytes = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(fd, bytes, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (failure && *failure == 0) *failure = written < 0 ? errno : EIO;
            return false;
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

bool readAll(int fd, void* data, std::size_t size)
{
    char* bytes = static_cast<char*>(data);
    while (size > 0) {
        const ssize_t got = ::read(fd, bytes, size);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        bytes += got;
        size -= static_cast<std::size_t>(got);
    }
    return true;
}

// A worker's frames wait here and go out in one write at the end of each job, or sooner once they
// fill a pipe's worth: a small file costs one write, and a file that ends its worker has sent all
// the files before it.
struct Outbox {
    int fd;
    std::string frames;

    bool add(uint32_t kind, const char* data, uint32_t size)
    {
        header({kind, size});
        frames.append(data, size);
        return frames.size() < (1 << 16) || send();
    }

    bool endJob(int status)
    {
        header({jobEnd, static_cast<uint32_t>(status)});
        return send();
    }

    void header(const FrameHeader& header)
    {
        frames.append(reinterpret_cast<const char*>(&header), sizeof header);
    }

    bool send()
    {
        const bool sent = writeAll(fd, frames.data(), frames.size());
        frames.clear();
        return sent;
    }
};

// In a worker, stdout and stderr become streams that put what is written into the outbox as frames.
struct FrameStream {
    Outbox* outbox;
    uint32_t kind;
};

ssize_t sendFrame(void* cookie, const char* data, std::size_t size)
{
    const auto* stream = static_cast<FrameStream*>(cookie);
    const std::size_t sent = std::min<std::size_t>(size, UINT32_MAX);
    return stream->outbox->add(stream->kind, data, static_cast<uint32_t>(sent)) ? static_cast<ssize_t>(sent) : -1;
}

std::FILE* openFrameStream(FrameStream& stream)
{
    std::FILE* file = ::fopencookie(&stream, "w", {nullptr, sendFrame, nullptr, nullptr});
    if (file) std::setvbuf(file, nullptr, _IOFBF, 1 << 16);
    return file;
}

[[noreturn]] void serve(int tasks, int results, const WorkerPool::Job& job, const std::function<void()>& beforeEach)
{
    Outbox outbox{results, {}};
    FrameStream out{&outbox, standardOutput}, err{&outbox, standardError};
    std::FILE* framedOut = openFrameStream(out);
    std::FILE* framedErr = openFrameStream(err);
    if (!framedOut || !framedErr) ::_exit(70);
    ::signal(SIGPIPE, SIG_DFL);
    stdout = framedOut;
    stderr = framedErr;
    Run run;
    while (readAll(tasks, &run, sizeof run)) {
        for (uint64_t index = run.first; index < run.first + run.count; ++index) {
            beforeEach();
            int status = 1;
            try {
                status = job(static_cast<std::size_t>(index));
            } catch (...) {
            }
            std::fflush(framedOut);
            std::fflush(framedErr);
            if (!outbox.endJob(status)) ::_exit(0);
        }
    }
    ::_exit(0);
}

std::string describeEnd(int status)
{
    if (WIFSIGNALED(status))
        return "died of signal " + std::to_string(WTERMSIG(status)) + " (" + strsignal(WTERMSIG(status)) + ")";
    if (WIFEXITED(status)) return "exited with status " + std::to_string(WEXITSTATUS(status)) + " before the file's end";
    return "ended before the file's end";
}

// Runs sent to a worker: the one it is on and the next, so that it never waits.
constexpr std::size_t runsQueuedPerWorker = 2;
// A run holds consecutive files up to this many bytes of input (a larger file is a run alone) and
// this many files: a small file costs less to convert than a round trip through the pipes.
constexpr std::uintmax_t runBytes = 1 << 16;
constexpr std::size_t runFiles = 64;
// What this process reads from a worker's results at a time: a pipe's worth.
constexpr std::size_t readBytes = 1 << 16;
constexpr std::size_t pipeBytes = 1 << 20;

struct Worker {
    pid_t pid = -1;
    int tasks = -1;    // write end: its runs
    int results = -1;  // read end: its frames
    std::deque<std::size_t> jobs;  // sent to it, the first under way
    std::deque<std::size_t> runEnds;  // the last job of each run sent to it and not yet ended
    // Where its frames stand: the bytes of a header not yet whole, or the output still to come of
    // the frame under way and its stream.
    char header[sizeof(FrameHeader)];
    std::size_t headerBytes = 0;
    std::size_t frameLeft = 0;
    int frameStream = 0;
};

// A job begun and not yet passed on: its output held for its turn, and how it ended.
struct Pending {
    std::string held[2];
    bool done = false;
    int status = 0;
    std::string abnormalEnd;
};

class Pool {
public:
    Pool(unsigned size, const WorkerPool::Job& job, const std::function<void()>& beforeEach, int& startFailure,
         int& writeFailure)
        : size(size), job(job), beforeEach(beforeEach), startFailure(startFailure), writeFailure(writeFailure)
    {
    }

    // The bytes of input of each job, summed: bytesBefore[i] for jobs 0 .. i-1.
    void weigh(std::size_t count, const WorkerPool::JobSize& sizeOf)
    {
        bytesBefore.assign(count + 1, 0);
        for (std::size_t i = 0; i < count; ++i) bytesBefore[i + 1] = bytesBefore[i] + sizeOf(i);
    }

    ~Pool()
    {
        for (Worker& worker : workers) stop(worker);
    }

    bool run(std::size_t count, const WorkerPool::Ended& ended, const std::function<void()>& beforeOutput)
    {
        this->beforeOutput = &beforeOutput;
        this->ended = &ended;
        this->count = count;
        while (head < count) {
            while (workers.size() < size && next < count && start()) {}
            if (workers.empty()) return false;
            for (Worker& worker : workers)
                while (worker.runEnds.size() < runsQueuedPerWorker && hasWork()) assign(worker, takeRun());
            if (!wait()) return false;
        }
        return true;
    }

private:
    bool start()
    {
        int tasks[2], results[2];
        if (::pipe2(tasks, O_CLOEXEC) != 0) return failStart();
        if (::pipe2(results, O_CLOEXEC) != 0) {
            ::close(tasks[0]);
            ::close(tasks[1]);
            return failStart();
        }
        // What stdio holds would otherwise be written twice, once by each process.
        std::fflush(stdout);
        std::fflush(stderr);
        const pid_t pid = ::fork();
        if (pid < 0) {
            for (int fd : {tasks[0], tasks[1], results[0], results[1]}) ::close(fd);
            return failStart();
        }
        if (pid == 0) {
            // The other workers' pipes stay with this process alone, or they would never see their end.
            for (const Worker& other : workers) {
                ::close(other.tasks);
                ::close(other.results);
            }
            ::close(tasks[1]);
            ::close(results[0]);
            serve(tasks[0], results[1], job, beforeEach);
        }
        ::close(tasks[0]);
        ::close(results[1]);
        // A worker goes on to its next files while its output waits in the pipe, up to this much.
        ::fcntl(results[0], F_SETPIPE_SZ, static_cast<int>(pipeBytes));
        Worker worker;
        worker.pid = pid;
        worker.tasks = tasks[1];
        worker.results = results[0];
        workers.push_back(std::move(worker));
        return true;
    }

    bool failStart()
    {
        if (startFailure == 0) startFailure = errno;
        return false;
    }

    // A job to begin: one given back by a worker that died before it, else the next, within the
    // window ahead of the first job not yet passed on.
    bool hasWork() const
    {
        if (!givenBack.empty()) return true;
        return next < count && (next < head + size * jobsAheadPerWorker ||
                                bytesBefore[next] - bytesBefore[head] < size * bytesAheadPerWorker);
    }

    // The jobs to send together: one given back alone, else consecutive ones from the next. Near
    // the batch's end runs shrink, so that every worker has its share to the last.
    Run takeRun()
    {
        if (!givenBack.empty()) {
            const std::size_t index = givenBack.front();
            givenBack.pop_front();
            return {index, 1};
        }
        const std::size_t share = std::max<std::size_t>(1, (count - next) / (size * runsQueuedPerWorker));
        const std::size_t most = std::min({runFiles, share, count - next});
        std::size_t length = 1;
        while (length < most && bytesBefore[next + length + 1] - bytesBefore[next] <= runBytes) ++length;
        const Run run{next, length};
        next += length;
        return run;
    }

    void assign(Worker& worker, const Run& run)
    {
        for (std::size_t index = run.first; index < run.first + run.count; ++index) {
            pending[index];
            worker.jobs.push_back(index);
        }
        worker.runEnds.push_back(run.first + run.count - 1);
        // A worker that cannot take it has died: its end, read from its results, reports the jobs.
        writeAll(worker.tasks, &run, sizeof run);
    }

    void pass(int stream, const char* data, std::size_t size)
    {
        if (size == 0) return;
        if (*beforeOutput) (*beforeOutput)();
        if (writeAll(stream + 1, data, size, &writeFailure) || errno != EPIPE) return;
        // The reader has gone: the batch ends as a command writing to a closed pipe ends.
        ::signal(SIGPIPE, SIG_DFL);
        ::raise(SIGPIPE);
    }

    void deliver(std::size_t index, int stream, const char* data, std::size_t size)
    {
        if (index == head) pass(stream, data, size);
        else pending[index].held[stream].append(data, size);
    }

    // Takes what a worker sent: output is passed on or held as it comes, a frame's bytes need not
    // have come whole.
    void take(Worker& worker, const char* data, std::size_t size)
    {
        while (size > 0) {
            if (worker.frameLeft > 0) {
                const std::size_t part = std::min(size, worker.frameLeft);
                deliver(worker.jobs.front(), worker.frameStream, data, part);
                worker.frameLeft -= part;
                data += part;
                size -= part;
                continue;
            }
            const std::size_t part = std::min(size, sizeof(FrameHeader) - worker.headerBytes);
            std::memcpy(worker.header + worker.headerBytes, data, part);
            worker.headerBytes += part;
            data += part;
            size -= part;
            if (worker.headerBytes < sizeof(FrameHeader)) return;
            worker.headerBytes = 0;
            FrameHeader header;
            std::memcpy(&header, worker.header, sizeof header);
            if (header.kind != jobEnd) {
                worker.frameLeft = header.value;
                worker.frameStream = header.kind == standardOutput ? 0 : 1;
                continue;
            }
            Pending& job = pending[worker.jobs.front()];
            job.done = true;
            job.status = static_cast<int>(header.value);
            if (!worker.runEnds.empty() && worker.runEnds.front() == worker.jobs.front()) worker.runEnds.pop_front();
            worker.jobs.pop_front();
            // The rest of what was read may be the next job's: it goes straight on when that job
            // is first.
            advance();
        }
    }

    // Passes on the output held for the first job not yet passed on, and while that job has
    // ended, reports it and goes on to the next.
    void advance()
    {
        while (head < count) {
            Pending& first = pending[head];
            for (int stream = 0; stream < 2; ++stream) pass(stream, first.held[stream].data(), first.held[stream].size());
            first.held[0].clear();
            first.held[1].clear();
            if (!first.done) return;
            (*ended)(head, first.status, first.abnormalEnd);
            pending.erase(head++);
        }
    }

    // Waits for what the worker of the first job not yet passed on sends, and takes it; false when
    // that fails. The others' output waits in their pipes, so that it reaches this process when
    // it can go straight on, and a worker far ahead waits until its output is wanted.
    bool wait()
    {
        // A job given back and not yet sent again has no worker yet: then any worker's is taken.
        const bool sent = std::any_of(workers.begin(), workers.end(), [this](const Worker& w) { return owns(w, head); });
        std::vector<pollfd> polled;
        for (const Worker& worker : workers)
            polled.push_back({worker.results, static_cast<short>(!sent || owns(worker, head) ? POLLIN : 0), 0});
        if (::poll(polled.data(), polled.size(), -1) < 0) return errno == EINTR || failStart();
        for (std::size_t i = polled.size(); i-- > 0;) {
            if (polled[i].revents == 0) continue;
            Worker& worker = workers[i];
            const ssize_t got = ::read(worker.results, buffer.data(), buffer.size());
            if (got < 0 && errno == EINTR) continue;
            if (got > 0) {
                take(worker, buffer.data(), static_cast<std::size_t>(got));
                continue;
            }
            const int status = stop(worker);
            if (!worker.jobs.empty()) {
                Pending& job = pending[worker.jobs.front()];
                job.done = true;
                job.status = -1;
                job.abnormalEnd = describeEnd(status);
                worker.jobs.pop_front();
                // The jobs it had not begun go to the others.
                givenBack.insert(givenBack.end(), worker.jobs.begin(), worker.jobs.end());
                std::sort(givenBack.begin(), givenBack.end());
            }
            workers.erase(workers.begin() + static_cast<std::ptrdiff_t>(i));
            advance();
        }
        return true;
    }

    static bool owns(const Worker& worker, std::size_t index)
    {
        return std::find(worker.jobs.begin(), worker.jobs.end(), index) != worker.jobs.end();
    }

    // Closes a worker's pipes and waits for it; its wait status.
    int stop(Worker& worker)
    {
        if (worker.tasks >= 0) ::close(worker.tasks);
        if (worker.results >= 0) ::close(worker.results);
        worker.tasks = worker.results = -1;
        int status = 0;
        while (worker.pid > 0 && ::waitpid(worker.pid, &status, 0) < 0 && errno == EINTR) {}
        worker.pid = -1;
        return status;
    }

    unsigned size;
    const WorkerPool::Job& job;
    const std::function<void()>& beforeEach;
    int& startFailure;
    int& writeFailure;
    const std::function<void()>* beforeOutput = nullptr;
    const WorkerPool::Ended* ended = nullptr;
    std::size_t count = 0;
    std::vector<Worker> workers;
    std::map<std::size_t, Pending> pending;
    std::size_t head = 0;  // the first job not yet passed on
    std::size_t next = 0;  // the first job not yet begun
    std::deque<std::size_t> givenBack;
    std::vector<std::uintmax_t> bytesBefore;
    std::vector<char> buffer = std::vector<char>(readBytes);
};

}  // namespace

bool WorkerPool::run(std::size_t count, const Job& job, const std::function<void()>& beforeEach, const Ended& ended,
                     const std::function<void()>& beforeOutput)
{
    // A worker that dies must not take this process with it when its next file is sent.
    const auto pipeHandler = ::signal(SIGPIPE, SIG_IGN);
    Pool pool(workers, job, beforeEach, startFailure, writeFailure);
    pool.weigh(count, sizeOf);
    const bool ran = pool.run(count, ended, beforeOutput);
    ::signal(SIGPIPE, pipeHandler);
    return ran;
}

}  // namespace CindrelTool

#endif
