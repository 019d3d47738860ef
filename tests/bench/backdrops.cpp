// What theming a backdrop view costs, in sends, beyond what it asks of the system.
//
// Measured with the ELF build, which sends as the work by hand does: the dylib goes through the simulator's
// objc_msgSend, which takes longer than a look-up of one's own.
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "compared/backdrop_phone.h"
#include "measuring/check.h"
#include "measuring/child.h"
#include "measuring/instructions.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"

namespace bench {

namespace {

struct Sends {
    size_t themed = 0, by_hand = 0;
};

Sends sends_of(Background background) {
    const std::string command = "'" HUECRAFT_SEND_COUNTER "' " + std::string(name_of(background));
    const std::unique_ptr<FILE, decltype(&pclose)> output(popen(command.c_str(), "r"), &pclose);
    check(output != nullptr, "the counting program starts");
    Sends sends;
    check(std::fscanf(output.get(), "%zu %zu", &sends.themed, &sends.by_hand) == 2,
          "the counting program answers");
    check(sends.themed > sends.by_hand, "the library's own sends are counted");
    return sends;
}

/// The instructions of building one view.
struct Instructions {
    size_t themed, by_hand, least;
};

Instructions instructions_of(Background background) {
    constexpr size_t views = 100;
    auto building = [&](const std::string& function, const char* way) {
        return instructions_in({"bench::" + function + "*"}, "huecraft_backdrop_builder",
                               {std::string(name_of(background)), way}) /
               views;
    };
    setenv("HUECRAFT_LIBRARY", HUECRAFT_COUNTED_LIBRARY, 1);
    // What memory takes is then the same each time.
    setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=65535", 1);
    const Instructions counted{building("build_themed_views", "themed"),
                               building("build_views_by_hand", "by_hand"),
                               building("build_views_with_the_least", "least")};
    unsetenv("GLIBC_TUNABLES");
    setenv("HUECRAFT_LIBRARY", HUECRAFT_SHARED_OBJECT, 1);
    return counted;
}

/// How many instructions the library may take beyond the work by hand, and beyond the least.
struct Allowed {
    size_t beyond_by_hand, beyond_least;
};
constexpr Allowed allowed(Background background) {
    return background == Background::flat ? Allowed{1300, 4750} : Allowed{2250, 8400};
}

/// What one call of each takes; of what is beyond the work by hand, what theming takes, what as many sends as
/// are allowed take, and what the library cannot do without takes alone; and the least that themes a view.
struct Costs {
    Measured themed, by_hand, unthemed, beyond, allowed_sends, must_be, least;
};
constexpr size_t figures = sizeof(Costs) / sizeof(Measured);

// All take thousands of nanoseconds and differ by a hundred or two. So the rounds are compared one by one,
// and the middle one counts.
std::vector<double> costs_in_one_process(Background background, size_t own_sends) {
    const BackdropPhone phone(background);
    know_sends(own_sends);
    constexpr int rounds = 51;
    constexpr double views = 100;
    const auto costs = rounds_of(
        rounds, {build_themed_views, build_views_by_hand, build_unthemed_views, build_views_by_hand_and_send,
                 build_views_by_hand_with_what_must_be, build_views_with_the_least});
    auto beyond_work_by_hand = [&](size_t work) {
        std::vector<double> beyond;
        for (size_t round = 0; round < rounds; ++round)
            beyond.push_back((costs[work][round] - costs[1][round]) / views);
        return median(beyond);
    };
    return {median(costs[0]) / views, median(costs[1]) / views, median(costs[2]) / views,
            beyond_work_by_hand(0),   beyond_work_by_hand(3),   beyond_work_by_hand(4),
            median(costs[5]) / views};
}

// Where a process has its memory is worth more than the difference: it is the middle one of many processes.
Costs costs_of(Background background, size_t own_sends) {
    constexpr int processes = 25;
    std::vector<double> measured[figures];
    for (int i = 0; i < processes; ++i) {
        const auto costs = in_child(figures, [=] { return costs_in_one_process(background, own_sends); });
        for (size_t figure = 0; figure < figures; ++figure) measured[figure].push_back(costs[figure]);
    }
    return {median(measured[0]), median(measured[1]), median(measured[2]), median(measured[3]),
            median(measured[4]), median(measured[5]), median(measured[6])};
}

void measure(Background background, std::vector<Ratio>& ratios) {
    const Sends sends = sends_of(background);
    const size_t own_sends = sends.themed - sends.by_hand;
    const Costs costs = costs_of(background, own_sends);
    const auto [themed, by_hand, least] = instructions_of(background);
    const auto [beyond_by_hand, beyond_least] = allowed(background);
    const Measured send = costs.allowed_sends.scaled(1.0 / sends_allowed);
    const std::string what = "theming a backdrop view, " + std::string(name_of(background));
    ratios.push_back(
        {.what = what,
         .against = "a send; the system's operations for it, done by hand, are taken off",
         .limit = sends_allowed,
         .cost = costs.beyond,
         .cost_against = send,
         .counted = Counted{"sends", own_sends, sends_allowed},
         .known = "so many sends are not exceeded, but there are the colours' digits to read as well"});
    ratios.push_back({.what = "  its class, its sends and its colours' digits alone",
                      .against = "a send",
                      .cost = costs.must_be,
                      .cost_against = send});
    ratios.push_back({.what = "  building the view",
                      .against = "building it with those operations done by hand",
                      .cost = costs.themed,
                      .cost_against = costs.by_hand,
                      .counted = Counted{"instructions more", themed - by_hand, beyond_by_hand}});
    ratios.push_back({.what = "  building the view",
                      .against = "the least that comes to the same view",
                      .cost = costs.themed,
                      .cost_against = costs.least,
                      .counted = Counted{"instructions more", themed - least, beyond_least}});
    ratios.push_back({.what = "  building the view",
                      .against = "building it unthemed",
                      .cost = costs.themed,
                      .cost_against = costs.unthemed});
}

}  // namespace

void measure_backdrops(std::vector<Ratio>& ratios) {
    const std::string library = std::getenv("HUECRAFT_LIBRARY");
    setenv("HUECRAFT_LIBRARY", HUECRAFT_SHARED_OBJECT, 1);
    measure(Background::flat, ratios);
    measure(Background::gradient, ratios);
    setenv("HUECRAFT_LIBRARY", library.c_str(), 1);
}

}  // namespace bench
