// huecraft preview: the picture of a theme that the settings pane shows.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "support/phone.h"
#include "themes/keyboard_picture.h"
#include "themes/theme.h"

namespace command {
namespace {

struct Preview {
    std::string file, output, library;
    double scale = 0;
    bool force = false, json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            if (!force) require_replaceable(output, OutputKind::picture, {file, library});
            const std::string theme = read_input(file);
            const auto build = command::library(library);
            const tools::Provenance provenance{tools::sha256_of(read_input(build, "library")),
                                               tools::sha256_of(theme)};
            workshop.install_settings_pictures();
            tools::boot(workshop.device, tools::settings, tools::Screen().for_pictures(scale));
            tools::load(build);
            const LoadedTheme loaded = load_theme(workshop, file, theme);
            write_output(output, preview_picture(workshop, loaded.config, scale, provenance));
            const bool differs = loaded.config->getVisibleKeycaps();
            if (json && output != "-")
                std::fputs(
                    printed({{"theme", file},
                             {"picture", output},
                             {"differsFromKeyboard", differs ? Json(caps_of_previews) : Json(nullptr)}})
                        .c_str(),
                    stdout);
            else if (differs && output != "-")
                std::printf("%s: %s\n", one_line(output, 4096).c_str(), caps_of_previews);
            return Status::fine;
        });
    }
};

}  // namespace

void add_preview(CLI::App& command, Request& request) {
    auto options = std::make_shared<Preview>();
    CLI::App* sub = add_subcommand(command, request, "preview",
                                   "Draw the preview of a theme that the settings pane shows", options);
    sub->add_option("FILE", options->file, "The theme")->required()->type_name("");
    sub->add_option("-o,--output", options->output, "The picture to write, as PNG; - is standard output")
        ->required()
        ->type_name("FILE");
    taking_number(sub->add_option("--scale", options->scale, "Pixels per point; 2 without it"), 0.1, 8);
    add_library(sub, options->library);
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub->footer(
        "Examples:\n"
        "  huecraft preview Midnight.plist -o midnight.png\n"
        "  huecraft preview Midnight.plist -o small.png --scale 0.5");
}

}  // namespace command
