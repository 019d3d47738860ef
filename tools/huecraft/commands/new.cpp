// huecraft new: makes a theme's file with the library's own class.
#include <algorithm>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "commands/theme_options.h"
#include "formats/value.h"
#include "themes/theme_saving.h"

namespace command {
namespace {

struct New {
    Destination destination;
    ThemeOptions theme;
    bool json = false;

    Status operator()() const {
        theme.check(false);
        return in_workshop([this](const Workshop& workshop) { return make(workshop); });
    }

  private:
    Status make(const Workshop& workshop) const {
        const BackdropSampler sampler(workshop);
        on_the_phone(destination.name, [&] {
            HuecraftConfig* config = HuecraftConfig::defaultConfig();
            const std::string file = checked_file(config, destination);
            std::vector<std::string> done = theme.paint(config);
            std::ranges::move(theme.take_colours(config, sampler), std::back_inserter(done));
            const std::string doubts = doubts_about(config, sampler);
            save_theme(config, destination, file, workshop);
            report(file, done, doubts);
        });
        return Status::fine;
    }

    void report(const std::string& file, const std::vector<std::string>& done,
                const std::string& doubts) const {
        if (file == "-") return;
        if (json) {
            std::fputs(printed({{"name", destination.name},
                                {"file", file},
                                {"done", done},
                                {"doubts", doubts.empty() ? Json(nullptr) : Json(doubts)}})
                           .c_str(),
                       stdout);
            return;
        }
        std::printf("made the theme %s: %s\n", in_quotes(destination.name).c_str(),
                    toned(Tone::strong, one_line(file, 4096)).c_str());
        for (const std::string& one : done) std::printf("  %s\n", one.c_str());
        if (!doubts.empty()) std::printf("  %s\n", toned(Tone::warning, doubts).c_str());
    }
};

}  // namespace

void add_new(CLI::App& command, Request& request) {
    auto options = std::make_shared<New>();
    const Subcommand sub = add_subcommand(command, request, "new", "Make a theme", options);
    sub.add_option("NAME", options->destination.name, "The theme's name").required().type_name("");
    add_theme_options(sub, options->theme, false);
    add_output(sub, options->destination);
    add_json(sub, options->json);
    sub.footer(
        "A colour is #RRGGBB or #RRGGBBAA, with # or without, rgb(…), hsl(…) or a name of CSS. Without a "
        "background "
        "the\n"
        "theme has the library's own, black to red. A photo is turned upright, cropped to the keyboard's "
        "shape "
        "and brought\n"
        "to its pixels. What is hard to read is said at once.\n\n"
        "Examples:\n"
        "  huecraft new Midnight --text FFB84D --highlight 35539B --flat 1B2440 --caps\n"
        "  huecraft new Peach --text 4A1D3F --gradient FFE29A,FF9A8B,FF6A88 --direction down-right\n"
        "  huecraft new Hills --image hills.jpg --dim 0.3 -o themes/hills.plist\n"
        "  huecraft new Sea --from-image sea.heic");
}

}  // namespace command
