// The conversion, the command's own work: files and folders to their XML, on standard output or
// into an output folder.
#pragma once

#include "batch_command.h"
#include "command_line.h"

namespace CindrelTool {

// Without an output folder, the documents go to standard output.
struct ConversionSettings : BatchSettings {
    bool passDamaged = false;
};

// Adds the conversion's options and arguments to the command itself; it runs when no subcommand
// is given.
void addConversion(CLI::App& command, CommandRun& chosen);

int runConversion(const ConversionSettings& settings);

}  // namespace CindrelTool
