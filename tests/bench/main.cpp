// The benchmark: prints each figure as a ratio, with both costs and the limit.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

#include "measuring/check.h"
#include "measuring/ratio.h"
#include "objc/string.h"
#include "support/themes.h"

namespace bench {

namespace {

struct Subject {
    std::string_view name;
    void (*measure)(std::vector<Ratio>&);
};

constexpr Subject of_processes[] = {
    {"startup", measure_startup}, {"backdrops", measure_backdrops}, {"pictures", measure_keyboard_pictures},
    {"command", measure_command}, {"opening", measure_opening},     {"pane", measure_pane}};
/// With one phone for all, which is started after the others: their processes are copies of this one.
constexpr Subject on_the_phone[] = {{"colours", measure_colours},
                                    {"hooks", measure_hooks},
                                    {"gradients", measure_gradients},
                                    {"averages", measure_averages},
                                    {"picker", measure_picker}};

/// All of them when none was asked for.
void measure(std::span<const Subject> subjects, const std::vector<std::string_view>& asked,
             std::vector<Ratio>& ratios) {
    for (const Subject& subject : subjects)
        if (asked.empty() || std::ranges::find(asked, subject.name) != asked.end()) subject.measure(ratios);
}

bool are_subjects(const std::vector<std::string_view>& asked) {
    for (const std::string_view name : asked)
        if (std::ranges::find(of_processes, name, &Subject::name) == std::end(of_processes) &&
            std::ranges::find(on_the_phone, name, &Subject::name) == std::end(on_the_phone)) {
            std::fprintf(stderr, "huecraft_bench: there is no subject \"%s\"; there are",
                         std::string(name).c_str());
            for (const Subject& one : of_processes)
                std::fprintf(stderr, " %s", std::string(one.name).c_str());
            for (const Subject& one : on_the_phone)
                std::fprintf(stderr, " %s", std::string(one.name).c_str());
            std::fprintf(stderr, "\n");
            return false;
        }
    return true;
}

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

int main(int argc, char** argv) {
    objc::adopt_strings();
    setenv("HUECRAFT_LIBRARY", HUECRAFT_DYLIB, 0);
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 0);  // no disk is to be measured
    const std::vector<std::string_view> asked(argv + 1, argv + argc);
    if (!bench::are_subjects(asked)) return 2;
    std::vector<bench::Ratio> ratios;
    bench::measure(bench::of_processes, asked, ratios);
    test::Phone phone;
    test::arrange_theme(phone);
    phone.start();
    bench::check(phone.loaded_library(), "the library is loaded");
    bench::measure(bench::on_the_phone, asked, ratios);

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
