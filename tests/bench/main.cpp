// The benchmark: prints each figure as a ratio, with both costs and the limit.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "measuring/check.h"
#include "measuring/ratio.h"
#include "objc/string.h"
#include "support/themes.h"

namespace bench {

namespace {

/// In the unit that it is easily read in.
std::string time_of(double seconds) {
    char text[32];
    if (seconds < 1e-5)
        std::snprintf(text, sizeof text, "%.1f ns", seconds * 1e9);
    else if (seconds < 1e-2)
        std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
    else
        std::snprintf(text, sizeof text, "%.1f ms", seconds * 1e3);
    return text;
}

void print_heading() {
    std::printf("%-48s %11s %11s %7s %6s\n", "what", "takes", "against", "ratio", "limit");
}

void print(const Ratio& ratio) {
    std::printf("%-48s %11s %11s %7.3f ", ratio.what.c_str(), time_of(ratio.cost).c_str(),
                time_of(ratio.cost_against).c_str(), ratio.value());
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

}  // namespace bench

int main() {
    objc::adopt_strings();
    setenv("HUECRAFT_LIBRARY", HUECRAFT_DYLIB, 0);
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 0);  // no disk is to be measured
    std::vector<bench::Ratio> ratios;
    bench::measure_startup(ratios);
    bench::measure_backdrops(ratios);
    bench::measure_keyboard_pictures(ratios);
    bench::measure_command(ratios);
    bench::measure_opening(ratios);
    bench::measure_pane(ratios);

    test::Phone phone;
    test::arrange_theme(phone);
    phone.start();
    bench::check(phone.loaded_library(), "the library is loaded");
    bench::measure_colours(ratios);
    bench::measure_hooks(ratios);
    bench::measure_gradients(ratios);
    bench::measure_averages(ratios);
    bench::measure_picker(ratios);

    bench::print_heading();
    for (const bench::Ratio& ratio : ratios) bench::print(ratio);
    const auto failed =
        std::count_if(ratios.begin(), ratios.end(), [](const auto& ratio) { return ratio.fails(); });
    const auto known = std::count_if(ratios.begin(), ratios.end(),
                                     [](const auto& ratio) { return ratio.is_slow() && ratio.known; });
    std::printf("\n%zu rows; beyond their limits, as is known: %td; beyond them otherwise: %td\n",
                ratios.size(), known, failed);
    return failed ? 1 : 0;
}
