// The inspect subcommand on the command line.
#pragma once

#include "command_line.h"

namespace CindrelTool {

void addInspectCommand(CLI::App& command, CommandRun& chosen);

}  // namespace CindrelTool
