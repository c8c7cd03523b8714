// A batch of a few hundred example files converted by the command with one worker process and with
// one for each core: the speed-up, time with -j1 / time with -j N. The two alternate round by round,
// so that other work on the machine weighs on both alike; the spread is that of the rounds' ratios.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr int copies = 12;  // of the example library: 300 files
constexpr int rounds = 9;   // of each case; the best time is taken

// Runs the command with standard output and error discarded; its wall time in seconds.
double timeCommand(const std::vector<std::string>& arguments)
{
    std::fflush(stdout);  // or the child would print it again
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = ::fork();
    if (pid == 0) {
        std::freopen("/dev/null", "w", stdout);
        std::freopen("/dev/null", "w", stderr);
        std::vector<char*> argv;
        for (const std::string& a : arguments) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

struct Comparison {
    double one = 1e30, many = 1e30;  // the best times
    double lowest = 1e30, highest = 0;  // of the speed-up in one round
};

Comparison compare(const std::vector<std::string>& one, const std::vector<std::string>& many, const fs::path& output)
{
    Comparison result;
    for (int i = 0; i < rounds; ++i) {
        fs::remove_all(output);
        const double a = timeCommand(one);
        fs::remove_all(output);
        const double b = timeCommand(many);
        result.one = std::min(result.one, a);
        result.many = std::min(result.many, b);
        result.lowest = std::min(result.lowest, a / b);
        result.highest = std::max(result.highest, a / b);
    }
    return result;
}

}  // namespace

int main()
{
    const fs::path root = fs::temp_directory_path() / ("cindrel_batch_bench." + std::to_string(::getpid()));
    const fs::path library = root / "library", output = root / "out";
    std::size_t files = 0;
    for (int c = 0; c < copies; ++c) {
        const fs::path folder = library / ("copy" + std::to_string(c));
        fs::create_directories(folder);
        for (const auto& entry : fs::directory_iterator(fs::path(CINDREL_SOURCE_DIR) / "examples")) {
            fs::copy_file(entry.path(), folder / entry.path().filename());
            ++files;
        }
    }
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    const std::string all = std::to_string(cores);
    std::printf("%zu files, %u cores, best of %d runs each\n\n", files, cores, rounds);
    std::printf("%-38s %9s %9s %9s %14s\n", "batch", "-j1", ("-j" + all).c_str(), "speed-up", "rounds");
    // CINDREL_TOOL times another build of the command, e.g. one from before a change.
    const char* other = std::getenv("CINDREL_TOOL");
    const std::string tool = other ? other : CINDREL_TOOL_PATH;
    for (const bool toFolder : {true, false}) {
        std::vector<std::string> arguments{tool, "-q"};
        if (toFolder) arguments.insert(arguments.end(), {"-o", output.string()});
        arguments.push_back(library.string());
        auto with = [&](const std::string& jobs) {
            std::vector<std::string> a = arguments;
            a.insert(a.begin() + 1, {"-j", jobs});
            return a;
        };
        const Comparison c = compare(with("1"), with(all), output);
        std::printf("%-38s %8.3fs %8.3fs %8.2fx %6.2f-%.2fx\n",
                    toFolder ? "into a folder (-o), each file synced" : "to standard output", c.one, c.many,
                    c.one / c.many, c.lowest, c.highest);
    }
    fs::remove_all(root);
    return 0;
}
