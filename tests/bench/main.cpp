// The benchmark: prints each figure as a ratio, with both costs and the limit.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include "check.h"
#include "objc/string.h"
#include "objc/strong.h"
#include "ratio.h"
#include "support/themes.h"

namespace bench {

namespace {

/// Keeps the times that the framework measured and prints nothing.
class Keeper : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                times[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
    std::map<std::string, std::vector<double>> times;
};

void run_in_pools(benchmark::State& state, void (*work)()) {
    constexpr int calls_to_a_pool = 100;
    while (state.KeepRunningBatch(calls_to_a_pool)) {
        objc::AutoreleasePool pool;
        for (int i = 0; i < calls_to_a_pool; ++i) work();
    }
}

void print(const Ratio& ratio) {
    std::printf("%-42s %11.1f %11.1f %7.3f ", ratio.what.c_str(), ratio.cost * 1e9, ratio.cost_against * 1e9,
                ratio.value());
    if (ratio.limit)
        std::printf("%6.2f ", *ratio.limit);
    else
        std::printf("%6s ", "");
    if (ratio.allocations)
        std::printf(" %zu, %zu allowed", ratio.allocations->counted, ratio.allocations->allowed);
    std::printf("%s\n    against %s\n", ratio.is_kept() ? "" : "  OVER THE LIMIT", ratio.against.c_str());
}

}  // namespace

double median(std::vector<double> values) {
    check(!values.empty(), "there are values to take the median of");
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compare(Ratio& ratio, void (*work)(), void (*other)()) {
    constexpr int repetitions = 15;
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

    test::Phone phone;
    test::arrange_theme(phone);
    phone.start();
    bench::check(phone.library(), "the library is loaded");
    bench::measure_colours(ratios);
    bench::measure_hooks(ratios);

    std::printf("%-42s %11s %11s %7s %6s  %s\n", "what", "ns", "against ns", "ratio", "limit", "allocations");
    for (const bench::Ratio& ratio : ratios) bench::print(ratio);
    return std::all_of(ratios.begin(), ratios.end(), [](const auto& ratio) { return ratio.is_kept(); }) ? 0
                                                                                                        : 1;
}
