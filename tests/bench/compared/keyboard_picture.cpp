// One keyboard's picture and nothing else: boots a phone as the executable, loads the library, shows the
// keyboard, writes a PNG.
#include <cstdio>

#include "simulator.h"

int main(int argc, char** argv) {
    if (argc == 1) return 0;  // the libraries are loaded, which takes a while
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: %s [<library> <root folder> <executable> [<picture>]]\n", argv[0]);
        return 2;
    }
    sim_options options{};
    options.size = sizeof options;
    options.root = argv[2];
    options.executable = argv[3];
    sim_library* library = nullptr;
    if (sim_boot(&options) == SIM_OK && sim_load(argv[1], &library) == SIM_OK &&
        (argc == 4 || (sim_show_keyboard(nullptr) == SIM_OK && sim_take_picture(argv[4], 0) == SIM_OK)))
        return 0;
    std::fprintf(stderr, "%s: %s\n", argv[0], sim_last_error());
    return 1;
}
