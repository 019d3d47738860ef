// huecraft import: a theme from a base16 scheme or a CSS gradient.
#include <cstdio>
#include <filesystem>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/imported.h"
#include "formats/value.h"
#include "support/phone.h"
#include "themes/theme_saving.h"

namespace command {
namespace {

enum Background : NSUInteger { flat_colour = 1, gradient_of_colours = 2 };

Imported imported(const std::string& file) {
    const std::string text = read_input(file, "scheme", largest_text);
    try {
        return without_css_comments(text).find("gradient(") != std::string::npos ? import_css_gradient(text)
                                                                                 : import_base16(text);
    } catch (const NotImportable& reason) {
        throw Unusable(file, reason.what());
    }
}

/// Black or white, whichever stands out more from the background.
Colour readable_over(const std::vector<Colour>& colours) {
    const Colour black{0, 0, 0, 1}, white{1, 1, 1, 1};
    double worst_of_black = 21, worst_of_white = 21;
    for (const Colour& colour : colours) {
        const Colour seen = over(colour, white);
        worst_of_black = std::min(worst_of_black, contrast(black, seen));
        worst_of_white = std::min(worst_of_white, contrast(white, seen));
    }
    return worst_of_black > worst_of_white ? black : white;
}

struct Import {
    std::string file;
    Destination destination;
    bool json = false;

    Status operator()() const {
        Imported theme = imported(file);
        Destination place = destination;
        if (place.name.empty()) place.name = theme.name;
        if (place.name.empty() && file != "-") place.name = std::filesystem::path(file).stem().string();
        if (place.name.empty()) place.name = "Imported";
        if (!theme.text) {
            theme.text = readable_over(theme.colours);
            theme.losses.push_back("it says no colour for the labels; they became " + hex_of(*theme.text));
        }
        if (!theme.highlight) theme.losses.push_back("it says no highlight; the library's own was taken");
        return in_workshop([&](const Workshop& workshop) {
            tools::boot(workshop.device, tools::settings);
            tools::load(library());
            on_the_phone(file, [&] {
                HuecraftConfig* config = HuecraftConfig::defaultConfig();
                const std::string output = checked_file(config, place);
                paint(config, theme);
                save_theme(config, place, output, workshop);
                report(output, place, theme);
            });
            return theme.losses.empty() ? Status::fine : Status::finding;
        });
    }

  private:
    static void paint(HuecraftConfig* config, const Imported& theme) {
        config->setTextColor(ui_color(*theme.text));
        if (theme.highlight) config->setHighlightColor(ui_color(*theme.highlight));
        NSMutableArray* colours = NSMutableArray::arrayWithCapacity(theme.colours.size());
        for (const Colour& colour : theme.colours) colours->addObject(ui_color(colour));
        config->setColors(colours);
        config->setBackgroundType(theme.colours.size() == 1 ? flat_colour : gradient_of_colours);
        config->setGradientDirection(theme.direction);
    }

    void report(const std::string& output, const Destination& place, const Imported& theme) const {
        const std::vector<std::string>& losses = theme.losses;
        if (output == "-") {
            for (const std::string& loss : losses) complain(file, loss);
        } else if (json) {
            std::fputs(printed({{"name", place.name},
                                {"from", file},
                                {"file", output},
                                {"losses", losses},
                                {"leftOut", theme.left_out}})
                           .c_str(),
                       stdout);
        } else {
            std::printf("made the theme %s: %s\n", in_quotes(place.name).c_str(),
                        toned(Tone::strong, one_line(output, 4096)).c_str());
            for (const std::string& loss : losses)
                std::printf("  %s %s\n", toned(Tone::warning, "not carried over:").c_str(), loss.c_str());
            for (const std::string& one : theme.left_out)
                std::printf("  %s %s\n", toned(Tone::faint, "left out:").c_str(), one.c_str());
        }
    }
};

}  // namespace

void add_import(CLI::App& command, Request& request) {
    auto options = std::make_shared<Import>();
    const Subcommand sub =
        add_subcommand(command, request, "import",
                       "Make a theme from a base16 scheme (YAML) or a linear-gradient of CSS", options);
    sub.add_option("FILE", options->file, "The scheme or the CSS; - is standard input")
        .required()
        .type_name("");
    sub.add_option("--name", options->destination.name,
                   "The theme's name; the scheme's or the file's without it")
        .type_name("NAME");
    add_output(sub, options->destination);
    add_json(sub, options->json);
    sub.footer(
        "Of a base16 scheme, base00 is the background, base05 the labels and base0D the highlight. Of a "
        "gradient,\n"
        "the direction and the colours are taken. What is not carried over is listed (exit status 1), and so "
        "is what\n"
        "no theme has a place for, such as the other colours of a scheme.\n\n"
        "Examples:\n"
        "  huecraft import ocean.yaml -o Ocean.plist\n"
        "  echo 'linear-gradient(to right, #ffe29a, rgb(255 106 136))' | huecraft import - --name Peach");
}

}  // namespace command
