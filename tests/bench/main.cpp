// The benchmark: prints each figure as a ratio, with both costs and the limit.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "objc/string.h"
#include "objc/strong.h"
#include "ratio.h"
#include "support/phone.h"

namespace bench {

namespace {

/// Keeps the times that the framework measured and prints nothing.
class Keeper : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration) times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
    std::map<std::string, std::vector<double>> times;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

void run_in_pools(benchmark::State& state, void (*work)()) {
    constexpr int calls_to_a_pool = 100;
    while (state.KeepRunningBatch(calls_to_a_pool)) {
        objc::AutoreleasePool pool;
        for (int i = 0; i < calls_to_a_pool; ++i) work();
    }
}

}  // namespace

void compare(Ratio& ratio, void (*work)(), void (*other)()) {
    constexpr int repetitions = 9;
    Keeper keeper;
    for (int i = 0; i < repetitions; ++i) {
        benchmark::ClearRegisteredBenchmarks();
        benchmark::RegisterBenchmark("work", run_in_pools, work)->MinTime(0.02);
        benchmark::RegisterBenchmark("other", run_in_pools, other)->MinTime(0.02);
        benchmark::RunSpecifiedBenchmarks(&keeper);
    }
    ratio.cost = median(keeper.times["work"]) * 1e-9;
    ratio.cost_against = median(keeper.times["other"]) * 1e-9;
}

}  // namespace bench

int main() {
    objc::adopt_strings();
    setenv("HUECRAFT_LIBRARY", HUECRAFT_DYLIB, 0);
    std::vector<bench::Ratio> ratios;
    bench::measure_startup(ratios);  // in child processes, so before this one boots
    bench::measure_colours(ratios);
    bench::measure_hooks(ratios);

    bool within = true;
    std::printf("%-44s %12s %12s %7s %6s  %s\n", "what", "ns", "against ns", "ratio", "limit", "allocations");
    for (const auto& r : ratios) {
        const double ratio = r.cost / r.cost_against;
        const bool kept = ratio <= r.limit && r.allocations <= r.allowed_allocations;
        within &= kept;
        std::printf("%-44s %12.1f %12.1f %7.3f %6.2f  ", r.what.c_str(), r.cost * 1e9, r.cost_against * 1e9, ratio,
                    r.limit);
        if (r.allocations >= 0) std::printf("%ld of %ld", r.allocations, r.allowed_allocations);
        std::printf("%s\n    against %s\n", kept ? "" : "  OVER THE LIMIT", r.against.c_str());
    }
    return within ? 0 : 1;
}
