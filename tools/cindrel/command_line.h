// The command line: the conversion on the command itself, and one registration function for each
// subcommand, in a file of its own. A registration adds its options to the parser and, when its
// command is the one given, sets what runs once the whole line is parsed.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace CindrelTool {

// The command chosen on the line; its exit status.
using CommandRun = std::function<int()>;

// -j N, --jobs N: worker processes for a batch, by default one for each core.
void addJobsOption(CLI::App& command, unsigned& jobs);

// "cindrel: PATH: message" on standard error.
void reportError(const std::filesystem::path& path, const std::string& message);
// A usage error on standard error, with where to find help; its exit status.
int usageError(const std::string& message);

// Exit status of a command whose files all went through, and of one where any failed.
inline constexpr int exitSuccess = 0;
inline constexpr int exitFailure = 1;
inline constexpr int exitUsage = 2;

}  // namespace CindrelTool
