// The benchmark: prints each figure as a ratio, with both costs and the limit, and what theming costs by
// itself.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>

#include "measuring/check.h"
#include "measuring/cost.h"
#include "measuring/ratio.h"
#include "objc/string.h"
#include "report/comparison.h"
#include "report/figures.h"
#include "report/page.h"
#include "report/table.h"
#include "support/themes.h"

namespace bench {

namespace {

template <class Row>
struct Subject {
    const char* name;
    void (*measure)(std::vector<Row>&);
};

constexpr Subject<Ratio> of_processes[] = {
    {"startup", measure_startup}, {"backdrops", measure_backdrops}, {"pictures", measure_keyboard_pictures},
    {"command", measure_command}, {"opening", measure_opening},     {"pane", measure_pane}};
constexpr Subject<Cost> of_costs[] = {{"costs", measure_starts_and_appearances},
                                      {"costs", measure_image_sizes},
                                      {"costs", measure_pictures_a_second}};
/// With one phone for all, which is started after the others: their processes are copies of this one.
constexpr Subject<Ratio> on_the_phone[] = {{"colours", measure_colours},
                                           {"hooks", measure_hooks},
                                           {"gradients", measure_gradients},
                                           {"averages", measure_averages},
                                           {"picker", measure_picker}};

struct Request {
    std::vector<std::string> subjects;
    bool json = false;
    std::string compared_with, page;

    /// All of them when none is asked for.
    bool asks_for(const char* subject) const {
        return subjects.empty() || std::ranges::find(subjects, subject) != subjects.end();
    }
};

std::vector<std::string> subject_names() {
    std::vector<std::string> names;
    for (const auto& subject : of_processes) names.emplace_back(subject.name);
    names.emplace_back(of_costs->name);
    for (const auto& subject : on_the_phone) names.emplace_back(subject.name);
    return names;
}

template <class Row>
void measure(std::span<const Subject<Row>> subjects, const Request& request, std::vector<Row>& rows) {
    for (const Subject<Row>& subject : subjects)
        if (request.asks_for(subject.name)) subject.measure(rows);
}

void measure(const Request& request, std::vector<Ratio>& ratios, std::vector<Cost>& costs) {
    measure<Ratio>(of_processes, request, ratios);
    measure<Cost>(of_costs, request, costs);
    if (std::ranges::none_of(on_the_phone, [&](const auto& one) { return request.asks_for(one.name); }))
        return;
    test::Phone phone;
    test::arrange_theme(phone);
    phone.start();
    check(phone.loaded_library(), "the library is loaded");
    measure<Ratio>(on_the_phone, request, ratios);
}

/// The exit status.
int run(const Request& request) {
    // Read first: what is wrong with it is said before minutes have passed.
    std::optional<Measurements> then;
    if (!request.compared_with.empty()) then = read_run(request.compared_with);
    std::vector<Ratio> ratios;
    std::vector<Cost> costs;
    measure(request, ratios, costs);

    const Measurements now = run_of(ratios, costs);
    if (request.json) {
        std::fputs(json_of(now).c_str(), stdout);
    } else {
        print(ratios);
        print(costs);
    }
    if (!request.page.empty()) write_page(request.page, now.processor, costs);
    const auto failed = std::ranges::count_if(ratios, &Ratio::fails);
    const auto known =
        std::ranges::count_if(ratios, [](const auto& ratio) { return ratio.is_slow() && ratio.known; });
    std::FILE* talk = request.json ? stderr : stdout;
    std::fprintf(talk, "\n%zu rows; beyond their limits, as is known: %td; beyond them otherwise: %td\n",
                 ratios.size() + costs.size(), known, failed);
    if (!then) return failed ? 1 : 0;
    const Comparison comparison = compare(*then, now, !request.subjects.empty());
    std::fprintf(talk, "\n%s", in_words(comparison).c_str());
    return failed || !comparison.dearer.empty() ? 1 : 0;
}

}  // namespace

}  // namespace bench

int main(int argc, char** argv) try {
    bench::Request request;
    CLI::App command("Measures, in ratios.", "bench");
    command.add_option("SUBJECT", request.subjects)->check(CLI::IsMember(bench::subject_names()));
    command.add_flag("--json", request.json);
    command.add_option("--compare", request.compared_with);
    command.add_option("--page", request.page);
    command.parse(argc, argv);
    objc::adopt_strings();
    setenv("HUECRAFT_LIBRARY", HUECRAFT_DYLIB, 0);
    if (access("/dev/shm", W_OK) == 0) setenv("TMPDIR", "/dev/shm", 0);  // no disk is to be measured
    return bench::run(request);
} catch (const CLI::CallForHelp&) {
    std::puts("see ./dev bench --help");
    return 0;
} catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "bench: %s (see ./dev bench --help)\n", error.what());
    return 2;
} catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 2;
}
