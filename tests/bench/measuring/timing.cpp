// How long something takes: small works through Google Benchmark, large ones by the processor's clock.
#include "timing.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <map>
#include <string>

#include "check.h"

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

void run(benchmark::State& state, SmallWork work) {
    for ([[maybe_unused]] auto _ : state) work();
}

}  // namespace

double processor_seconds() {
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The range is of order statistics: how many of n costs stay below the true quantile is binomial.
static Measured quantile(std::vector<double> costs, size_t quarters) {
    check(!costs.empty(), "something was measured");
    std::sort(costs.begin(), costs.end());
    const auto n = static_cast<double>(costs.size()), share = static_cast<double>(quarters) / 4;
    constexpr double deviations = 1.96;  // of the normal distribution, for 95 %
    const double reach = deviations * std::sqrt(n * share * (1 - share));
    auto at = [&](double rank) { return costs[static_cast<size_t>(std::clamp(rank, 0.0, n - 1))]; };
    return {costs[costs.size() * quarters / 4], at(std::floor(n * share - reach)),
            at(std::ceil(n * share + reach))};
}

Measured undisturbed(std::vector<double> costs) { return quantile(std::move(costs), 1); }
Measured median(std::vector<double> costs) { return quantile(std::move(costs), 2); }

std::vector<Measured> seconds_of(const std::vector<SmallWork>& works) {
    constexpr int rounds = 31;
    constexpr double calls = 100, seconds_of_a_run = 0.01;
    Keeper keeper;
    for (int round = 0; round < rounds; ++round) {
        benchmark::ClearRegisteredBenchmarks();
        for (size_t i = 0; i < works.size(); ++i)
            benchmark::RegisterBenchmark(std::to_string(i).c_str(), run, works[i])->MinTime(seconds_of_a_run);
        benchmark::RunSpecifiedBenchmarks(&keeper);
    }
    std::vector<Measured> seconds;
    for (size_t i = 0; i < works.size(); ++i)
        seconds.push_back(undisturbed(keeper.nanoseconds[std::to_string(i)]).scaled(1e-9 / calls));
    return seconds;
}

Ratio compared(Ratio ratio, SmallWork work, SmallWork other) {
    const auto seconds = seconds_of({work, other});
    ratio.cost = seconds[0];
    ratio.cost_against = seconds[1];
    return ratio;
}

std::vector<std::vector<double>> rounds_of(int rounds, const std::vector<std::function<void()>>& works) {
    std::vector<std::vector<double>> costs(works.size());
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < works.size(); ++i) {
            objc::AutoreleasePool pool;
            works[i]();  // what the work before it has left in the caches is not to count
            const double before = processor_seconds();
            works[i]();
            costs[i].push_back(processor_seconds() - before);
        }
    return costs;
}

std::vector<Measured> seconds_of(int rounds, const std::vector<std::function<void()>>& works) {
    std::vector<Measured> seconds;
    for (const auto& costs : rounds_of(rounds, works)) seconds.push_back(undisturbed(costs));
    return seconds;
}

}  // namespace bench
