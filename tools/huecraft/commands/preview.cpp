// huecraft preview: the picture of a theme that the settings pane shows.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "commands/theme_picture.h"
#include "formats/value.h"
#include "support/phone.h"
#include "themes/keyboard_picture.h"
#include "themes/theme.h"

namespace command {
namespace {

struct Preview {
    ThemePicture picture;

    Status operator()() const {
        return picture.run([this](const Workshop& workshop, const ThemePicture::Task& task) {
            workshop.install_settings_pictures();
            tools::boot(workshop.device, tools::settings, tools::Screen().for_pictures(picture.scale));
            tools::load(task.library);
            const LoadedTheme loaded = load_theme(workshop, picture.file, task.contents);
            write_output(picture.output,
                         preview_picture(workshop, loaded.config, picture.scale, task.provenance));
            if (picture.output != "-") report(loaded.config->getVisibleKeycaps());
        });
    }

  private:
    void report(bool differs) const {
        if (picture.json)
            std::fputs(printed({{"theme", picture.file},
                                {"picture", picture.output},
                                {"differsFromKeyboard", differs ? Json(caps_of_previews) : Json(nullptr)}})
                           .c_str(),
                       stdout);
        else if (differs)
            std::printf("%s: %s\n", one_line(picture.output, 4096).c_str(), caps_of_previews);
    }
};

}  // namespace

void add_preview(CLI::App& command, Request& request) {
    auto options = std::make_shared<Preview>();
    const Subcommand sub = add_subcommand(
        command, request, "preview", "Draw the preview of a theme that the settings pane shows", options);
    add_theme_picture(sub, options->picture, "2 without it");
    sub.footer(
        "Examples:\n"
        "  huecraft preview Midnight.plist -o midnight.png\n"
        "  huecraft preview Midnight.plist -o small.png --scale 0.5");
}

}  // namespace command
