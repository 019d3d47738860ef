// The colour picker's first picture and nothing else: boots a phone, loads the library, presents the picker,
// waits until its panel is in its place, writes a PNG.
#include <cstdio>

#include "objc/send.h"
#include "simulator.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: %s <library> <root folder> <picture>\n", argv[0]);
        return 2;
    }
    sim_options options{};
    options.size = sizeof options;
    options.root = argv[2];
    options.executable = "/Applications/Preferences.app/Preferences";
    sim_library* library = nullptr;
    constexpr double until_it_rests = 2;
    constexpr NSInteger over_full_screen = 5;
    if (sim_boot(&options) == SIM_OK && sim_load(argv[1], &library) == SIM_OK) {
        id picker = objc::send<"new", id>(reinterpret_cast<id>(objc_getClass("HCColorPickerController")));
        objc::send<"setModalPresentationStyle:">(picker, over_full_screen);  // the page is drawn, too
        if (sim_present(picker) == SIM_OK && sim_advance_clock(until_it_rests) == SIM_OK &&
            sim_take_picture(argv[3], 0) == SIM_OK)
            return 0;
    }
    std::fprintf(stderr, "%s: %s\n", argv[0], sim_last_error());
    return 1;
}
