#include "archive/file_path.h"
#include "command_line.h"

#include <CLI/CLI.hpp>
#include <cstdio>

using TalvexCore::fileNameBytes;

namespace CindrelTool {

void addJobsOption(CLI::App& command, unsigned& jobs)
{
    command.add_option("-j,--jobs", jobs, "N worker processes (default: one per core)")
        ->type_name("N")
        ->check(CLI::Range(1u, 1024u));
}

void reportError(const std::filesystem::path& path, const std::string& message)
{
    std::fprintf(stderr, "cindrel: %s: %s\n", fileNameBytes(path).c_str(), message.c_str());
}

int usageError(const std::string& message)
{
    std::fprintf(stderr, "cindrel: %s\nTry 'cindrel --help' for more information.\n", message.c_str());
    return exitUsage;
}

}  // namespace CindrelTool
