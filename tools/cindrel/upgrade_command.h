// cindrel upgrade: material and options files of any version stored anew in the newest version,
// kept only where the new file converts to the same XML as the old.
#pragma once

#include <string>
#include <vector>

#include "command_line.h"

namespace CindrelTool {

struct UpgradeSettings {
    std::vector<std::string> paths;  // IN OUT, or the inputs of -o and --in-place
    std::string outputDir;
    bool inPlace = false;
    bool quiet = false;
    unsigned jobs = 0;  // worker processes; 0 for one per core
};

void addUpgradeCommand(CLI::App& command, CommandRun& chosen);

int runUpgrade(const UpgradeSettings& settings);

}  // namespace CindrelTool
