// The demo: makes themes on a simulated phone, and shows an application's keyboard without and with each.
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "contact_sheet.h"
#include "hook_table.h"
#include "objc/strong.h"
#include "overview.h"
#include "photo.h"
#include "support/phone.h"
#include "support/pictures.h"
#include "support/provenance.h"
#include "themes.h"

namespace demo {

using namespace tools;
namespace {

namespace fs = std::filesystem;

struct State {
    const char* name;
    const char* description;
    const char* plane;
    const char* pressed_key;
};

constexpr State states[] = {
    {"letters", "letters", "letters", nullptr},
    {"pressed", "letters, with a key held down", "letters", "g"},
    {"shifted", "capital letters", "shifted", nullptr},
    {"numbers", "numbers and signs", "numbers", nullptr},
    {"emoji", "emoji", "emoji", nullptr},
};

struct Demo {
    fs::path folder, library;

    fs::path device() const { return folder / "device"; }
    fs::path picture(const std::string& look, const State& state) const {
        return folder / (look + "-" + state.name + ".png");
    }

    void arrange() const;
    void make_themes() const;
    void choose(const Theme& theme) const;
    void draw(const std::string& look, const std::string& description, const std::string& theme,
              bool with_hook_table) const;
    void draw_overview() const;
    void draw_photo() const;
};

std::string look_of(const Theme& theme) {
    std::string look = theme.name;
    for (char& c : look) c = static_cast<char>(std::tolower(c));
    return look;
}

void Demo::arrange() const {
    if (!fs::exists(library))
        throw Failure("the library " + library.string() +
                      " does not exist: build the target \"dylib\" first");
    fs::remove_all(device());
    fs::create_directories(device() / "var/mobile/Library/Preferences/HuecraftConfiguration");
}

void Demo::make_themes() const {
    in_child_process("making the themes", [this] {
        boot(device(), settings);
        load(library);
        objc::AutoreleasePool pool;
        demo::make_themes();
    });
}

void Demo::choose(const Theme& theme) const {
    in_child_process(std::string("choosing the theme ") + theme.name, [&] {
        boot(device(), settings);
        objc::AutoreleasePool pool;
        demo::choose(theme.name);
    });
}

/// The application's keyboard in every state, as the phone's files say it looks.
void Demo::draw(const std::string& look, const std::string& description, const std::string& theme,
                bool with_hook_table) const {
    const Provenance provenance = provenance_of(library, file_of(device(), theme));
    in_child_process("drawing the keyboard: " + description, [&] {
        boot(device(), notes);
        load(library);
        if (with_hook_table) {
            std::printf("\nWhat the library replaced in %s:\n", notes);
            print_hook_table();
        }
        std::printf("\n%s\n", description.c_str());
        for (const State& state : states) {
            sim_keyboard keyboard{};
            keyboard.size = sizeof keyboard;
            keyboard.plane = state.plane;
            keyboard.pressed_key = state.pressed_key;
            keyboard.return_key = "go";
            const std::string doing = std::string("showing the keyboard: ") + state.description;
            require(sim_show_keyboard(&keyboard), doing);
            require(sim_take_picture(picture(look, state).c_str(), 0), doing);
            tell_provenance(picture(look, state), provenance);
            std::printf("  %-32s %s\n", picture(look, state).c_str(), state.description);
        }
    });
}

void Demo::draw_overview() const {
    const fs::path overview = folder / "overview.png";
    in_child_process("drawing the overview", [&] {
        boot(device(), notes);
        objc::AutoreleasePool pool;
        std::vector<fs::path> pictures{picture("system", states[0])};
        for (const Theme& theme : themes) pictures.push_back(picture(look_of(theme), states[0]));
        write_overview(pictures, overview);
        pictures.resize(2);
        write_keyboards(pictures, folder / "keyboards.png");
    });
    std::printf("\n%s shows them side by side.\n", overview.c_str());
}

/// What ./dev demo then makes a theme of.
void Demo::draw_photo() const {
    in_child_process("drawing the photo", [this] {
        boot(device(), settings);
        objc::AutoreleasePool pool;
        write_picture(demo::draw_photo(), folder / "photo.png");
    });
}

void run(const Demo& demo) {
    std::printf("The library is %s.\n", demo.library.c_str());
    demo.arrange();
    demo.draw("system", "The system's own keyboard, with the library loaded and switched off", "", false);
    demo.make_themes();
    bool first = true;
    for (const Theme& theme : themes) {
        demo.choose(theme);
        demo.draw(look_of(theme), std::string("The theme ") + theme.name + ": " + theme.description,
                  theme.name, first);
        first = false;
    }
    demo.draw_overview();
    demo.draw_photo();
    write_contact_sheet(demo.folder, demo.device(), demo.library);
    std::printf("%s shows every surface, %s the same in a browser.\n",
                (demo.folder / "contact-sheet.png").c_str(), (demo.folder / "index.html").c_str());
}

}  // namespace
}  // namespace demo

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: %s <output folder> [library]\n", argv[0]);
        return 2;
    }
    try {
        demo::run({std::filesystem::path(argv[1]) / "demo", argc == 3 ? argv[2] : SHIPPED_LIBRARY});
    } catch (const std::exception& failure) {
        std::fflush(stdout);
        std::fprintf(stderr, "huecraft_demo: %s\n", failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
