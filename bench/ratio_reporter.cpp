#include "ratio_reporter.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace {

class CollectingReporter : public benchmark::ConsoleReporter {
public:
    std::map<std::string, double> timePerIteration;
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                timePerIteration[run.benchmark_name()] = run.GetAdjustedRealTime();
        ConsoleReporter::ReportRuns(runs);
    }
};

}  // namespace

int runWithRatios(int argc, char** argv, const std::vector<BenchRatio>& ratios)
{
    benchmark::Initialize(&argc, argv);
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\n%-60s %10s %10s\n", "ratio", "measured", "target");
    for (const BenchRatio& r : ratios) {
        const auto m = reporter.timePerIteration.find(r.measured);
        const auto b = reporter.timePerIteration.find(r.baseline);
        if (m == reporter.timePerIteration.end() || b == reporter.timePerIteration.end() || b->second <= 0) continue;
        const double ratio = m->second / b->second;
        std::printf("%-60s %9.2fx %9.2fx %s\n", r.label.c_str(), ratio, r.target,
                    ratio <= r.target ? "ok" : "OVER TARGET");
    }
    benchmark::Shutdown();
    return 0;
}
