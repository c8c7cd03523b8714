// cindrel: converts material and render-options files to their XML asset text, one file or thousands.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "command_line.h"
#include "convert_command.h"
#include "load_report_subcommand.h"
#include "upgrade_command.h"
#include "utf8_console.h"

using namespace CindrelTool;

namespace {

constexpr const char* versionText = "cindrel 0.1.0";

const char* descriptionText =
    "Converts material files (.talmat, .numat) and render-options files (.talopt, .nuopt) to their XML\n"
    "asset text, the same text the Python commands getTalmatXml and getTaloptXml give.";

const char* footerText =
    "With one FILE its XML goes to standard output as UTF-8. With several, each document on standard\n"
    "output begins with a line \"==> PATH <==\" naming its file (a line no converted document\n"
    "holds) and ends with a line end; split at those lines, or use -o for one file each.\n"
    "\n"
    "A file that is not a binary file of its kind is taken to be XML already: its text passes through\n"
    "unchanged, and standard error says so. A file whose header says it is binary but which does not\n"
    "load is damaged: the error names what failed, where and why, and no XML is written for it.\n"
    "Warnings tell of files that loaded although cut short, and of documents with characters that\n"
    "XML 1.0 does not allow. With -o, each document is written whole under a temporary name and then\n"
    "renamed, so a failed write leaves no file; two inputs that would have one output name are\n"
    "refused, not overwritten. Every failure is reported against its file and the batch goes on.\n"
    "\n"
    "A batch runs on all cores: each file converts in a worker process of its own, as it would\n"
    "alone, and the output comes in the order of the files whatever -j is. A file named like a\n"
    "subcommand is given as ./upgrade or ./inspect.\n"
    "\n"
    "Exit status: 0 when every file was converted or passed through, 1 when any file failed or a\n"
    "folder held no file to convert, 2 for a usage error.\n"
    "\n"
    "Run 'cindrel SUBCOMMAND --help' for a subcommand.";

}  // namespace

int main(int argc, char** argv)
{
    Utf8Console console(argc, argv);
    argc = console.argc();
    argv = console.argv();
    CLI::App command(descriptionText, "cindrel");
    command.allow_windows_style_options(false);  // "/work/x.talmat" is a path, on Windows too
    command.footer(footerText);
    command.set_version_flag("--version", versionText);
    command.require_subcommand(0, 1);

    CommandRun chosen;
    addConversion(command, chosen);
    addUpgradeCommand(command, chosen);
    addInspectCommand(command, chosen);

    try {
        command.parse(argc, argv);
    } catch (const CLI::CallForHelp& e) {
        return command.exit(e);
    } catch (const CLI::CallForAllHelp& e) {
        return command.exit(e);
    } catch (const CLI::CallForVersion&) {
        std::puts(versionText);
        return exitSuccess;
    } catch (const CLI::ParseError& e) {
        return usageError(e.what());
    }
    try {
        return chosen();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "cindrel: %s\n", e.what());
        return exitFailure;
    }
}
