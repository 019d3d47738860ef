// The benchmark: prints each figure as a ratio, with both costs and the limit.
#include <benchmark/benchmark.h>
#include <unistd.h>

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
                nanoseconds[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }
    std::map<std::string, std::vector<double>> nanoseconds;
};

void run_in_pools(benchmark::State& state, Work work) {
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

double undisturbed(std::vector<double> costs) {
    check(!costs.empty(), "something was measured");
    std::sort(costs.begin(), costs.end());
    return costs[costs.size() / 4];
}

std::vector<double> seconds_of(const std::vector<Work>& works) {
    constexpr int rounds = 15;
    Keeper keeper;
    for (int round = 0; round < rounds; ++round) {
        benchmark::ClearRegisteredBenchmarks();
        for (size_t i = 0; i < works.size(); ++i)
            benchmark::RegisterBenchmark(std::to_string(i).c_str(), run_in_pools, works[i])->MinTime(0.02);
        benchmark::RunSpecifiedBenchmarks(&keeper);
    }
    std::vector<double> seconds;
    for (size_t i = 0; i < works.size(); ++i)
        seconds.push_back(undisturbed(keeper.nanoseconds[std::to_string(i)]) * 1e-9);
    return seconds;
}

Ratio compared(Ratio ratio, Work work, Work other) {
    const auto seconds = seconds_of({work, other});
    ratio.cost = seconds[0];
    ratio.cost_against = seconds[1];
    return ratio;
}

}  // namespace bench

int main() {
    objc::adopt_strings();
    setenv("HUECRAFT_LIBRARY", HUECRAFT_DYLIB, 0);
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 0);  // no disk is to be measured
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
