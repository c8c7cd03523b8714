#include "archive/file_path.h"
#include "output_plan.h"

#include <map>

using TalvexCore::fileNameBytes;

namespace CindrelTool {

namespace fs = std::filesystem;

std::vector<fs::path> planOutputs(const fs::path& outputDir, const std::vector<InputFile>& inputs,
                                  const OutputNames& names, const std::string& action,
                                  std::vector<std::string>& errors)
{
    std::vector<fs::path> targets(inputs.size());
    std::map<fs::path, std::size_t> taken;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        const InputFile& input = inputs[i];
        if (input.kind == FileKind::Unknown) continue;
        const fs::path dir = outputDir / input.relativeDir;
        std::size_t firstOwner = inputs.size();
        for (const std::string& name : names(input)) {
            const auto owner = taken.find(dir / TalvexCore::filePath(name));
            if (owner == taken.end()) {
                targets[i] = dir / TalvexCore::filePath(name);
                break;
            }
            if (firstOwner == inputs.size()) firstOwner = owner->second;
            // The same file name from another folder would take the next name too: refused.
            if (inputs[owner->second].path.filename() == input.path.filename()) break;
        }
        if (!targets[i].empty()) {
            taken.emplace(targets[i], i);
            continue;
        }
        const InputFile& owner = inputs[firstOwner];
        errors.push_back(fileNameBytes(input.path) + ": not " + action + ": its output " +
                         fileNameBytes(dir / TalvexCore::filePath(names(input).front())) + " is already the output of " +
                         fileNameBytes(owner.path) + " (give it another output folder)");
    }
    return targets;
}

std::vector<std::size_t> inputsToRun(const std::vector<InputFile>& inputs, const std::vector<fs::path>& targets,
                                     bool planned)
{
    std::vector<std::size_t> run;
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (!planned || !targets[i].empty() || inputs[i].kind == FileKind::Unknown) run.push_back(i);
    return run;
}

}  // namespace CindrelTool
