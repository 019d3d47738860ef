// huecraft keyboard: a picture of the simulated keyboard in a theme.
#include <cstdio>
#include <map>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "commands/theme_picture.h"
#include "formats/value.h"
#include "support/phone.h"
#include "themes/keyboard_picture.h"

namespace command {
namespace {

/// The phones that iOS 12 runs on and whose keyboard reaches the lower edge of the screen.
const std::map<std::string, tools::Screen> screens{
    {"iphone-5s", {320, 568, 2}},     {"iphone-se", {320, 568, 2}},     {"iphone-6", {375, 667, 2}},
    {"iphone-6-plus", {414, 736, 3}}, {"iphone-7", {375, 667, 2}},      {"iphone-7-plus", {414, 736, 3}},
    {"iphone-8", {375, 667, 2}},      {"iphone-8-plus", {414, 736, 3}},
};

struct Keyboard {
    ThemePicture picture;
    std::string state = "letters", press, orientation = "portrait", device = "iphone-8", background = "notes";

    Status operator()() const {
        return picture.run([this](const Workshop& workshop, const ThemePicture::Task& task) {
            tools::boot(workshop.device, tools::notes, screens.at(device).for_pictures(picture.scale));
            put_on_theme(workshop, picture.file, task.contents, task.library);
            sim_keyboard keyboard{};
            keyboard.size = sizeof keyboard;
            keyboard.plane = state.c_str();
            keyboard.landscape = orientation == "landscape";
            keyboard.background = background.c_str();
            keyboard.pressed_key = press.empty() ? nullptr : press.c_str();
            if (!press.empty() && sim_show_keyboard(&keyboard) != SIM_OK) refuse_key(keyboard);
            write_output(picture.output,
                         keyboard_picture(workshop, keyboard, picture.scale, task.provenance));
            if (picture.json && picture.output != "-")
                std::fputs(printed({{"theme", picture.file}, {"picture", picture.output}}).c_str(), stdout);
        });
    }

  private:
    /// Throws Unusable, which lists the keys that there are.
    [[noreturn]] void refuse_key(sim_keyboard keyboard) const {
        keyboard.pressed_key = nullptr;
        tools::require(sim_show_keyboard(&keyboard), "the keyboard");
        std::string names;
        for (size_t i = 0; i < sim_key_count(); ++i) {
            sim_key key{};
            tools::require(sim_key_at(i, &key), "the keys");
            names += (names.empty() ? "" : " ") + one_line(key.text ? key.text : key.name);
        }
        throw Unusable("--press",
                       "found " + in_quotes(press) + ", expected a key of the " + state + " plane: " + names);
    }
};

}  // namespace

void add_keyboard(CLI::App& command, Request& request) {
    auto options = std::make_shared<Keyboard>();
    const Subcommand sub =
        add_subcommand(command, request, "keyboard", "Draw the simulated keyboard in a theme", options);
    add_theme_picture(sub, options->picture, "the screen's without it");
    std::vector<std::string> devices;
    for (const auto& [name, screen] : screens) devices.push_back(name);
    sub.add_option("--state", options->state, "What is on the keys")
        .takes_one_of({"letters", "shifted", "numbers", "symbols", "emoji"});
    sub.add_option("--press", options->press,
                   "The key that is held down, by its text (g, return) or name (shift)")
        .type_name("KEY");
    sub.add_option("--orientation", options->orientation, "How the phone is held")
        .takes_one_of({"portrait", "landscape"});
    sub.add_option("--device", options->device, "The phone, for its screen").takes_one_of(devices);
    sub.add_option("--background", options->background, "The application's page behind it")
        .takes_one_of({"notes", "light", "busy"});
    sub.footer(
        "Examples:\n"
        "  huecraft keyboard Midnight.plist -o midnight.png\n"
        "  huecraft keyboard Midnight.plist -o midnight.png --watch    # and open midnight.html\n"
        "  huecraft keyboard Peach.plist -o peach.png --state shifted --press G --background busy\n"
        "  huecraft keyboard Peach.plist -o wide.png --orientation landscape --device iphone-8-plus --scale "
        "1");
}

}  // namespace command
