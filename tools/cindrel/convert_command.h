// The conversion, the command's own work: files and folders to their XML, on standard output or
// into an output folder.
#pragma once

#include <string>
#include <vector>

#include "command_line.h"

namespace CindrelTool {

struct ConversionSettings {
    std::vector<std::string> inputs;
    std::string outputDir;  // empty: standard output
    bool quiet = false;
    bool passDamaged = false;
    unsigned jobs = 0;  // worker processes; 0 for one per core
};

// Adds the conversion's options and arguments to the command itself; it runs when no subcommand
// is given.
void addConversion(CLI::App& command, CommandRun& chosen);

int runConversion(const ConversionSettings& settings);

}  // namespace CindrelTool
