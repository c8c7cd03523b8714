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

// In a worker, stdout and stderr become streams that send what is written as frames.
struct FrameStream {
    int fd;
    uint32_t kind;
};

ssize_t sendFrame(void* cookie, const char* data, std::size_t size)
{
    const auto* stream = static_cast<FrameStream*>(cookie);
    const std::size_t sent = std::min<std::size_t>(size, UINT32_MAX);
    std::string frame(sizeof(FrameHeader) + sent, '\0');
    const FrameHeader header{stream->kind, static_cast<uint32_t>(sent)};
    std::memcpy(frame.data(), &header, sizeof header);
    std::memcpy(frame.data() + sizeof header, data, sent);
    return writeAll(stream->fd, frame.data(), frame.size()) ? static_cast<ssize_t>(sent) : -1;
}

std::FILE* openFrameStream(FrameStream& stream)
{
    std::FILE* file = ::fopencookie(&stream, "w", {nullptr, sendFrame, nullptr, nullptr});
    if (file) std::setvbuf(file, nullptr, _IOFBF, 1 << 16);
    return file;
}

[[noreturn]] void serve(int tasks, int results, const WorkerPool::Job& job, const std::function<void()>& beforeEach)
{
    FrameStream out{results, standardOutput}, err{results, standardError};
    std::FILE* framedOut = openFrameStream(out);
    std::FILE* framedErr = openFrameStream(err);
    if (!framedOut || !framedErr) ::_exit(70);
    ::signal(SIGPIPE, SIG_DFL);
    stdout = framedOut;
    stderr = framedErr;
    uint64_t index = 0;
    while (readAll(tasks, &index, sizeof index)) {
        beforeEach();
        int status = 1;
        try {
            status = job(static_cast<std::size_t>(index));
        } catch (...) {
        }
        std::fflush(framedOut);
        std::fflush(framedErr);
        const FrameHeader end{jobEnd, static_cast<uint32_t>(status)};
        if (!writeAll(results, &end, sizeof end)) break;
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

// Jobs sent to a worker ahead of the one it is on, so that it never waits for the next.
constexpr std::size_t jobsQueuedPerWorker = 2;

struct Worker {
    pid_t pid = -1;
    int tasks = -1;    // write end: the indices of its jobs
    int results = -1;  // read end: its frames
    std::deque<std::size_t> jobs;  // sent to it, the first under way
    std::string unread;  // bytes of a frame not yet whole
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

    ~Pool()
    {
        for (Worker& worker : workers) stop(worker);
    }

    bool run(std::size_t count, const WorkerPool::Ended& ended, const std::function<void()>& beforeOutput)
    {
        this->beforeOutput = &beforeOutput;
        while (head < count) {
            while (workers.size() < size && next < count && start()) {}
            if (workers.empty()) return false;
            for (Worker& worker : workers)
                while (worker.jobs.size() < jobsQueuedPerWorker && hasWork(count)) assign(worker, takeWork());

            Pending& first = pending[head];
            for (int stream = 0; stream < 2; ++stream) pass(stream, first.held[stream].data(), first.held[stream].size());
            first.held[0].clear();
            first.held[1].clear();
            if (first.done) {
                ended(head, first.status, first.abnormalEnd);
                pending.erase(head++);
                continue;
            }
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
    bool hasWork(std::size_t count) const
    {
        return !givenBack.empty() || (next < count && next < head + size * jobsAheadPerWorker);
    }

    std::size_t takeWork()
    {
        if (givenBack.empty()) return next++;
        const std::size_t index = givenBack.front();
        givenBack.pop_front();
        return index;
    }

    void assign(Worker& worker, std::size_t index)
    {
        const uint64_t sent = index;
        pending[index];
        worker.jobs.push_back(index);
        // A worker that cannot take it has died: its end, read from its results, reports the job.
        writeAll(worker.tasks, &sent, sizeof sent);
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

    // Takes the whole frames at the front of what a worker sent.
    void takeFrames(Worker& worker)
    {
        std::size_t at = 0;
        while (worker.unread.size() - at >= sizeof(FrameHeader)) {
            FrameHeader header;
            std::memcpy(&header, worker.unread.data() + at, sizeof header);
            if (header.kind == jobEnd) {
                Pending& job = pending[worker.jobs.front()];
                job.done = true;
                job.status = static_cast<int>(header.value);
                worker.jobs.pop_front();
                at += sizeof header;
                continue;
            }
            if (worker.unread.size() - at - sizeof header < header.value) break;
            deliver(worker.jobs.front(), header.kind == standardOutput ? 0 : 1, worker.unread.data() + at + sizeof header,
                    header.value);
            at += sizeof header + header.value;
        }
        worker.unread.erase(0, at);
    }

    // Waits for what any worker sends and takes it; false when that fails.
    bool wait()
    {
        std::vector<pollfd> polled;
        for (const Worker& worker : workers) polled.push_back({worker.results, POLLIN, 0});
        if (::poll(polled.data(), polled.size(), -1) < 0) return errno == EINTR || failStart();
        char buffer[1 << 16];
        for (std::size_t i = polled.size(); i-- > 0;) {
            if (polled[i].revents == 0) continue;
            Worker& worker = workers[i];
            const ssize_t got = ::read(worker.results, buffer, sizeof buffer);
            if (got < 0 && errno == EINTR) continue;
            if (got > 0) {
                worker.unread.append(buffer, static_cast<std::size_t>(got));
                takeFrames(worker);
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
        }
        return true;
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
    std::vector<Worker> workers;
    std::map<std::size_t, Pending> pending;
    std::size_t head = 0;  // the first job not yet passed on
    std::size_t next = 0;  // the first job not yet begun
    std::deque<std::size_t> givenBack;
};

}  // namespace

bool WorkerPool::run(std::size_t count, const Job& job, const std::function<void()>& beforeEach, const Ended& ended,
                     const std::function<void()>& beforeOutput)
{
    // A worker that dies must not take this process with it when its next file is sent.
    const auto pipeHandler = ::signal(SIGPIPE, SIG_IGN);
    Pool pool(workers, job, beforeEach, startFailure, writeFailure);
    const bool ran = pool.run(count, ended, beforeOutput);
    ::signal(SIGPIPE, pipeHandler);
    return ran;
}

}  // namespace CindrelTool

#endif
