// Runs the registered benchmarks and reports each measured case as a ratio to its baseline.
#pragma once

#include <string>
#include <vector>

struct BenchRatio {
    std::string label;     // what the ratio says
    std::string measured;  // benchmark name
    std::string baseline;  // benchmark name of the baseline, run in the same process
    double target;         // the ratio the case should stay under
};

int runWithRatios(int argc, char** argv, const std::vector<BenchRatio>& ratios);
