// cindrel inspect: what each file holds, object by object, and where and why its load stops.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace CindrelTool {

// Inspects each file named, folders searched as the conversion searches them: its container and
// version, then each object of the load as an indented tree (class, record version, offset, length),
// and where the load stopped and why. `json` gives one JSON document per file, one per line;
// `quiet` reports only the files that fail. The report goes to standard output, a folder that cannot
// be read to standard error. The exit status is 1 when any file is damaged or cannot be read, else 0.
int runInspect(const std::vector<std::string>& paths, bool json, bool quiet);
int runInspect(const std::vector<std::string>& paths, bool json, bool quiet, std::ostream& out, std::ostream& err);

}  // namespace CindrelTool
