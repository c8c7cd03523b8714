// The inspect subcommand on the command line.
#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "load_report_command.h"
#include "load_report_subcommand.h"

namespace CindrelTool {

void addInspectCommand(CLI::App& command, CommandRun& chosen)
{
    CLI::App* inspect = command.add_subcommand("inspect", "show what each file holds and why a load stops");
    inspect->footer(
        "  cindrel inspect [--json] FILE|FOLDER...\n"
        "\n"
        "For each file: its container and version, then each object of the load as an indented tree\n"
        "(class, record version, byte offset and length), and where the load stopped: the object, the\n"
        "offset and the reason. --json gives the same as one JSON document per file, one per line.\n"
        "Exit status: 0 when every file loads or passes through as text, 1 when any file is damaged or\n"
        "cannot be read, 2 for a usage error.");
    struct Settings {
        std::vector<std::string> paths;
        bool json = false;
        bool quiet = false;
    };
    auto settings = std::make_shared<Settings>();
    inspect->add_option("FILE", settings->paths, "material or options files, or folders: every such file below them")
        ->type_name("")
        ->required();
    inspect->add_flag("--json", settings->json, "one JSON document per file, one per line");
    inspect->add_flag("-q,--quiet", settings->quiet, "report only the files that fail, a line each");
    inspect->callback([settings, &chosen] {
        chosen = [settings] { return runInspect(settings->paths, settings->json, settings->quiet); };
    });
}

}  // namespace CindrelTool
