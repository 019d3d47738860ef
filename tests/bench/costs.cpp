// What theming costs a process by itself: its start, a keyboard's appearances, and the memory that it holds.
//
// Every process is forked before anything of the phone exists, boots a phone over its own files, loads the
// library and shows a keyboard several times. The processes that are compared take turns.
#include <functional>

#include "measuring/check.h"
#include "measuring/child.h"
#include "measuring/cost.h"
#include "measuring/instructions.h"
#include "measuring/memory.h"
#include "measuring/noise_picture.h"
#include "measuring/process.h"
#include "measuring/timing.h"
#include "support/base64.h"
#include "support/themes.h"

namespace bench {

namespace {

/// A phone's files, and the executable that the process claims to run.
struct Situation {
    std::string name;
    std::function<void(const test::Phone&)> arrange;
    const char* executable = test::notes;
    size_t image_size = 0;
};

constexpr const char* colours =
    "<key>_TextColor</key><string>#FFB84D</string><key>_HighlightColor</key><string>#35539B</string>";

Situation themed(std::string name, const std::string& background, size_t image_size = 0) {
    return {std::move(name),
            [=](const test::Phone& phone) { test::arrange_theme_of(phone, colours + background); },
            test::notes, image_size};
}

Situation image_of(std::string name, size_t bytes) {
    return themed(std::move(name),
                  "<key>_BackgroundType</key><integer>3</integer><key>_Image</key><data>" +
                      test::in_base64(noise_picture(bytes)) + "</data>",
                  bytes);
}

const Situation unaccepted{"not accepted, as its path says",
                           [](const test::Phone& phone) { test::arrange_theme(phone); },
                           "/usr/libexec/locationd"};
const Situation off{"theming off", [](const test::Phone& phone) { test::arrange_theme(phone, false); }};

std::vector<Situation> kinds_of_themes() {
    constexpr size_t of_a_photo = 200'000;
    const std::string two =
        "<key>_Colors</key><array><string>#1B2440</string><string>#6A3D9A</string></array>";
    return {themed("labels alone", "<key>_BackgroundType</key><integer>0</integer>" + two),
            themed("flat", "<key>_BackgroundType</key><integer>1</integer>" + two),
            themed("gradient", "<key>_BackgroundType</key><integer>2</integer>" + two +
                                   "<key>_GradientDirection</key><integer>8</integer>"),
            image_of("an image of 200 KB", of_a_photo)};
}

/// What one process measures.
struct Figures {
    double start, dirtied, first, later, held;
};
constexpr size_t figures = sizeof(Figures) / sizeof(double);

std::vector<double> in_one_process(const Situation& situation, bool shows) {
    test::Phone phone;
    situation.arrange(phone);
    begin_without_memory_at_hand();
    phone.boot({.executable = situation.executable});
    dirty_bytes();  // its own first use is not to count
    processor_seconds();
    const size_t dirty = dirty_bytes();
    double before = processor_seconds();
    phone.load();
    const double start = processor_seconds() - before;
    const auto dirtied = static_cast<double>(dirty_bytes() - dirty);
    check(phone.loaded_library(), "the library is loaded");
    if (!shows) return {start, dirtied, 0, 0, 0};

    auto appear = [] {
        objc::AutoreleasePool pool;
        const double shown = processor_seconds();
        check(sim_show_keyboard(nullptr) == SIM_OK, "the keyboard appears");
        return processor_seconds() - shown;
    };
    const double first = appear();
    constexpr int times = 5;
    std::vector<double> later(times);
    for (double& each : later) each = appear();
    return {start, dirtied, first, median(later), static_cast<double>(live_bytes())};
}

/// The figures of every process, by figure.
struct Columns {
    std::vector<double> start, dirtied, first, later, held;
};

/// A phone cannot be booted in a process that has had one, so nothing is made before all are forked.
std::vector<Columns> measured(const std::vector<Situation>& situations, int rounds, bool shows) {
    std::vector<Columns> all(situations.size());
    for (int round = 0; round < rounds; ++round)
        for (size_t i = 0; i < situations.size(); ++i) {
            const auto one = in_child(figures, [&] { return in_one_process(situations[i], shows); });
            all[i].start.push_back(one[0]);
            all[i].dirtied.push_back(one[1]);
            all[i].first.push_back(one[2]);
            all[i].later.push_back(one[3]);
            all[i].held.push_back(one[4]);
        }
    return all;
}

size_t counted(Work work, const Situation& situation) {
    const test::Phone phone;
    situation.arrange(phone);
    return instructions_of(work, std::getenv("HUECRAFT_LIBRARY"), phone, situation.executable);
}

constexpr const char* starts = "a process starts";
constexpr const char* first_time = "a keyboard appears for the first time";
constexpr const char* again = "a keyboard appears again";
constexpr const char* draws = "a picture of the keyboard is drawn";
constexpr const char* holds = "theming is held in memory after six appearances";

/// The seconds of each of some pictures, after the first; every one is of other colours.
double picture_by_warm_phone(const Situation& situation) {
    test::Phone phone;
    situation.arrange(phone);
    phone.start();
    const std::string picture = phone.host("/picture.png").string();
    constexpr int pictures = 10;
    double before = 0;
    for (int i = 0; i <= pictures; ++i) {
        if (i == 1) before = processor_seconds();
        objc::AutoreleasePool pool;
        test::recolour_theme(test::color(i % 2, 0.5, 0), test::color(0, i % 3 / 2.0, 1));
        check(sim_show_keyboard(nullptr) == SIM_OK && sim_take_picture(picture.c_str(), 0) == SIM_OK,
              "the keyboard is drawn");
    }
    return (processor_seconds() - before) / pictures;
}

Measured beyond(const std::vector<double>& themed, const std::vector<double>& unthemed) {
    const Measured with = median(themed), without = median(unthemed);
    return {with.value - without.value, with.low - without.high, with.high - without.low};
}

}  // namespace

void measure_starts_and_appearances(std::vector<Cost>& costs) {
    std::vector<Situation> situations = kinds_of_themes();
    situations.insert(situations.begin(), off);
    constexpr int starting_rounds = 41, rounds = 31;
    const std::vector<Situation> starting{unaccepted, off, situations[3]};
    const auto started = measured(starting, starting_rounds, false);
    for (size_t i = 0; i < starting.size(); ++i)
        costs.push_back({.event = starts,
                         .to = starting[i].name,
                         .seconds = undisturbed(started[i].start),
                         .instructions = counted(Work::loading, starting[i]),
                         .bytes = median(started[i].dirtied)});

    const auto shown = measured(situations, rounds, true);
    for (size_t i = 0; i < situations.size(); ++i)
        costs.push_back({.event = first_time,
                         .to = situations[i].name,
                         .seconds = undisturbed(shown[i].first),
                         .instructions = counted(Work::showing_a_keyboard, situations[i])});
    for (size_t i = 0; i < situations.size(); ++i)
        costs.push_back({.event = again, .to = situations[i].name, .seconds = undisturbed(shown[i].later)});
    for (size_t i = 1; i < situations.size(); ++i)
        costs.push_back(
            {.event = holds, .to = situations[i].name, .bytes = beyond(shown[i].held, shown[0].held)});
}

void measure_image_sizes(std::vector<Cost>& costs) {
    constexpr size_t kilobyte = 1000;
    std::vector<Situation> situations{off};
    for (const auto& [name, size] : {std::pair{"1 KB", size_t{1}},
                                     {"10 KB", 10},
                                     {"100 KB", 100},
                                     {"1 MB", 1000},
                                     {"5 MB", 5000},
                                     {"20 MB", 20000}})
        situations.push_back(image_of(std::string("an image of ") + name, size * kilobyte));
    constexpr int rounds = 9;
    const auto shown = measured(situations, rounds, true);
    auto rows = [&](const char* event, auto figure) {
        for (size_t i = 1; i < situations.size(); ++i) {
            Cost cost{.event = event, .to = situations[i].name, .size = situations[i].image_size};
            figure(cost, shown[i]);
            costs.push_back(cost);
        }
    };
    rows(starts, [](Cost& cost, const Columns& of) {
        cost.seconds = undisturbed(of.start);
        cost.bytes = median(of.dirtied);
    });
    rows(first_time, [](Cost& cost, const Columns& of) { cost.seconds = undisturbed(of.first); });
    rows(again, [](Cost& cost, const Columns& of) { cost.seconds = undisturbed(of.later); });
    rows(holds, [&](Cost& cost, const Columns& of) { cost.bytes = beyond(of.held, shown[0].held); });
}

void measure_pictures_a_second(std::vector<Cost>& costs) {
    constexpr int rounds = 21;
    const Situation gradient = kinds_of_themes()[2];
    const test::Phone phone;
    gradient.arrange(phone);
    const Command process{HUECRAFT_KEYBOARD_PICTURE, std::getenv("HUECRAFT_LIBRARY"),
                          phone.host("/").string(), test::notes, phone.host("/picture.png").string()};
    std::vector<double> by_process, by_phone;
    for (int round = 0; round < rounds; ++round) {
        by_process.push_back(run(process).processor);
        by_phone.push_back(in_child(1, [&] { return std::vector{picture_by_warm_phone(gradient)}; })[0]);
    }
    costs.push_back({.event = draws, .to = "a process for each", .seconds = undisturbed(by_process)});
    costs.push_back({.event = draws, .to = "a phone that is warm", .seconds = undisturbed(by_phone)});
}

}  // namespace bench
