// huecraft new: makes a theme's file with the library's own class.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "support/phone.h"
#include "themes/colour.h"
#include "themes/theme_saving.h"

namespace command {
namespace {

enum Background : NSUInteger { flat_colour = 1, gradient_of_colours = 2, image_data = 3 };

NSArray* colour_list(const std::vector<std::string>& hex) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(hex.size());
    for (const std::string& one : hex) list->addObject(ui_color(*colour_of(one)));
    return list;
}

struct New {
    Destination destination;
    std::string text_colour, highlight, flat, image;
    std::vector<std::string> gradient;
    unsigned direction = 0;
    double alpha = 1;
    bool alpha_given = false, caps = false, json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) { return make(workshop); });
    }

  private:
    Status make(const Workshop& workshop) const {
        tools::boot(workshop.device, tools::settings);
        tools::load(library());
        objc::AutoreleasePool pool;
        HuecraftConfig* config = HuecraftConfig::defaultConfig();
        const std::string file = checked_file(config, destination);
        paint(config);
        save_theme(config, destination, file, workshop);
        report(file);
        return Status::fine;
    }

    void paint(HuecraftConfig* config) const {
        if (!text_colour.empty()) config->setTextColor(ui_color(*colour_of(text_colour)));
        if (!highlight.empty()) config->setHighlightColor(ui_color(*colour_of(highlight)));
        if (!flat.empty()) {
            config->setBackgroundType(flat_colour);
            config->setColors(colour_list({flat}));
        }
        if (!gradient.empty()) config->setColors(colour_list(gradient));
        if (direction) config->setGradientDirection(direction);
        if (!image.empty()) {
            UIImage* picture = UIImage::imageWithData(data_of(read_input(image)));
            if (!picture) throw Unusable(image, "it is no picture that can be read; expected PNG or JPEG");
            config->setBackgroundType(image_data);
            config->setImageData(picture);
        }
        if (alpha_given) config->setImageAlpha(alpha);
        if (caps) config->setVisibleKeycaps(true);
    }

    void report(const std::string& file) const {
        if (file == "-") return;
        if (json)
            std::fputs(printed({{"name", destination.name}, {"file", file}}).c_str(), stdout);
        else
            std::printf("made the theme %s: %s\n", in_quotes(destination.name).c_str(),
                        toned(Tone::strong, one_line(file, 4096)).c_str());
    }
};

}  // namespace

void add_new(CLI::App& command, Request& request) {
    auto options = std::make_shared<New>();
    CLI::App* sub = add_subcommand(command, request, "new", "Make a theme", options);
    sub->add_option("NAME", options->destination.name, "The theme's name")->required()->type_name("");
    taking_colour(sub->add_option("--text", options->text_colour, "Colour of the keys' labels (#FFFFFF)"));
    taking_colour(sub->add_option("--highlight", options->highlight, "Colour of pressed keys (#555555)"));
    auto* flat = taking_colour(sub->add_option("--flat", options->flat, "Background of one colour"));
    auto* gradient = taking_colour(sub->add_option("--gradient", options->gradient,
                                                   "Background that runs through colours: HEX,HEX,…"))
                         ->delimiter(',')
                         ->excludes(flat);
    taking_number(sub->add_option("--direction", options->direction,
                                  "Where the gradient runs: 1 up, 2 down, 3 left, 4 right, 5 up left, 6 up "
                                  "right, 7 down left, 8 down right"),
                  1, 8)
        ->needs(gradient);
    auto* image = sub->add_option("--image", options->image, "Background picture, PNG or JPEG")
                      ->type_name("FILE")
                      ->excludes(flat)
                      ->excludes(gradient);
    auto take_alpha = [options = options.get()](double alpha) {
        options->alpha = alpha;
        options->alpha_given = true;
    };
    taking_number(
        sub->add_option_function<double>("--alpha", take_alpha, "The picture's opacity, from 0 to 1"), 0, 1)
        ->needs(image);
    sub->add_flag("--caps", options->caps, "Leave the key caps visible");
    sub->add_option("-o,--output", options->destination.output,
                    "The file to write; NAME.plist without it, - is standard output")
        ->type_name("FILE");
    sub->add_flag("--force", options->destination.force, "Replace a file that exists");
    add_json(sub, options->json);
    sub->footer(
        "Without a background the theme has the library's own, black to red.\n\n"
        "Examples:\n"
        "  huecraft new Midnight --text FFB84D --highlight 35539B --flat 1B2440 --caps\n"
        "  huecraft new Peach --text 4A1D3F --gradient FFE29A,FF9A8B,FF6A88 --direction 8\n"
        "  huecraft new Hills --image hills.jpg --alpha 0.9 -o themes/hills.plist");
}

}  // namespace command
