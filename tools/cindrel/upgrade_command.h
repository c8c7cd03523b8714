// cindrel upgrade: material and options files of any version stored anew in the newest version,
// kept only where the new file converts to the same XML as the old.
#pragma once

#include "batch_command.h"
#include "command_line.h"

namespace CindrelTool {

// The inputs are IN OUT, or the inputs of -o and of --in-place.
struct UpgradeSettings : BatchSettings {
    bool inPlace = false;
};

void addUpgradeCommand(CLI::App& command, CommandRun& chosen);

int runUpgrade(const UpgradeSettings& settings);

}  // namespace CindrelTool
