// The output file of each input of a batch, in an output folder's tree, never one file for two inputs.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "input_files.h"

namespace CindrelTool {

// The names an input's output may take, best first (wood.xml, then wood.talmat.xml).
using OutputNames = std::function<std::vector<std::string>(const InputFile&)>;

// Each input lands in `outputDir` under the folder it was found in, under the first of its names
// that no earlier input holds. Two inputs of one file name (a/x.talmat and b/x.talmat given as
// files) are refused: the later one gets an empty path and a message, and nothing is overwritten.
// Inputs of no known kind get an empty path and no message. `action` names what is refused
// ("converted").
std::vector<std::filesystem::path> planOutputs(const std::filesystem::path& outputDir,
                                               const std::vector<InputFile>& inputs, const OutputNames& names,
                                               const std::string& action, std::vector<std::string>& errors);

// The inputs a batch goes through: every one, less those a plan (when `planned`) refused and
// reported already.
std::vector<std::size_t> inputsToRun(const std::vector<InputFile>& inputs,
                                     const std::vector<std::filesystem::path>& targets, bool planned);

}  // namespace CindrelTool
