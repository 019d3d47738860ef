#include "table.h"

#include <cmath>
#include <cstdio>

namespace bench {

namespace {

void print(const Ratio& ratio) {
    std::printf("%-48s %11s %11s %7.3f ", ratio.what.c_str(), time_in_words(ratio.cost).c_str(),
                time_in_words(ratio.cost_against).c_str(), ratio.value().value);
    if (ratio.limit)
        std::printf("%6.2f", *ratio.limit);
    else
        std::printf("%6s", "");
    if (ratio.counted)
        std::printf("  %s: %zu, %zu allowed", ratio.counted->what, ratio.counted->counted,
                    ratio.counted->allowed);
    if (ratio.is_slow() || ratio.counts_too_many()) std::printf("  OVER THE LIMIT");
    std::printf("\n    against %s\n", ratio.against.c_str());
    if (ratio.is_slow() && ratio.known) std::printf("    as is known: %s\n", ratio.known);
}

}  // namespace

std::string time_in_words(double seconds) {
    char text[32];
    if (seconds < 1e-5)
        std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
    else if (seconds < 1e-2)
        std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
    else
        std::snprintf(text, sizeof text, "%.1f ms", seconds * 1e3);
    return text;
}

std::string bytes_in_words(double bytes) {
    char text[32];
    if (std::fabs(bytes) < 1e6)
        std::snprintf(text, sizeof text, "%.1f KB", bytes / 1e3);
    else
        std::snprintf(text, sizeof text, "%.1f MB", bytes / 1e6);
    return text;
}

void print(const std::vector<Ratio>& ratios) {
    if (ratios.empty()) return;
    std::printf("%-48s %11s %11s %7s %6s\n", "what", "takes", "against", "ratio", "limit");
    for (const Ratio& ratio : ratios) print(ratio);
}

void print(const std::vector<Cost>& costs) {
    if (costs.empty()) return;
    std::printf("\n%-48s %11s %9s %13s %10s\n", "the whole cost", "takes", "a second", "instructions",
                "memory");
    std::string event;
    for (const Cost& cost : costs) {
        if (cost.event != event) std::printf("%s\n", (event = cost.event).c_str());
        std::printf("  %-46s", cost.to.c_str());
        if (cost.seconds)
            std::printf(" %11s %9.1f", time_in_words(*cost.seconds).c_str(), 1 / *cost.seconds);
        else
            std::printf(" %11s %9s", "", "");
        std::printf(" %13s", cost.instructions ? std::to_string(*cost.instructions).c_str() : "");
        std::printf(" %10s\n", cost.bytes ? bytes_in_words(*cost.bytes).c_str() : "");
    }
}

}  // namespace bench
