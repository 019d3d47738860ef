#include "commands/theme_options.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <sstream>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "support/text.h"
#include "themes/fixing.h"
#include "themes/picture_colours.h"
#include "themes/theme.h"

namespace command {
namespace {

enum Background : NSUInteger { no_background = 0, flat_colour = 1, gradient_of_colours = 2, image_data = 3 };

NSArray* colour_list(const std::string& hex_colours) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(2);
    std::istringstream parts(hex_colours);
    for (std::string one; std::getline(parts, one, ',');) list->addObject(ui_color(*colour_of(one)));
    return list;
}

/// Four numbers with commas between them.
std::optional<Region> region_of(const std::string& text) {
    std::array<double, 4> numbers{};
    std::istringstream parts(text);
    size_t count = 0;
    for (std::string one; std::getline(parts, one, ',');) {
        const auto number = number_in_digits(one);
        if (count == numbers.size() || !number || !(*number >= 0 && *number < 1e6)) return std::nullopt;
        numbers[count++] = *number;
    }
    if (count != numbers.size() || text.ends_with(',')) return std::nullopt;
    return Region{numbers[0], numbers[1], numbers[2], numbers[3]};
}

std::string kilobytes(size_t bytes) { return std::to_string((bytes + 999) / 1000) + " KB"; }

}  // namespace

PhotoWish ThemeOptions::photo_wish() const {
    PhotoWish wish{.fit = fit == "inside"    ? Fit::inside
                          : fit == "stretch" ? Fit::stretch
                                             : Fit::fill,
                   .dim = dim,
                   .blur = blur};
    if (!crop.empty()) wish.crop = region_of(crop);
    return wish;
}

void ThemeOptions::check(bool has_picture) const {
    const bool new_picture = !image.empty() || !from_image.empty();
    const std::string needed = "goes with --image or --from-image";
    if (!crop.empty() && !new_picture) throw Unusable("--crop", needed);
    if (!fit.empty() && !new_picture) throw Unusable("--fit", needed);
    if (new_picture || has_picture) return;
    if (alpha) throw Unusable("--alpha", needed);
    if (dim > 0) throw Unusable("--dim", needed);
    if (blur > 0) throw Unusable("--blur", needed);
}

std::vector<std::string> ThemeOptions::put_photo(HuecraftConfig* config, const std::string& file) const {
    PreparedPhoto photo = prepare_photo(read_input(file, "photo", largest_input), file, photo_wish());
    const StoredPicture stored = stored_picture(photo.picture);
    config->setBackgroundType(image_data);
    store_image(config, stored.bytes);
    photo.done.push_back(std::string("stored as ") + stored.format + ", " + kilobytes(stored.bytes.size()));
    return photo.done;
}

std::vector<std::string> ThemeOptions::paint(HuecraftConfig* config) const {
    std::vector<std::string> done;
    if (!text.empty()) config->setTextColor(ui_color(*colour_of(text)));
    if (!highlight.empty()) config->setHighlightColor(ui_color(*colour_of(highlight)));
    if (!flat.empty() || !gradient.empty()) {
        config->setBackgroundType(flat.empty() ? gradient_of_colours : flat_colour);
        config->setColors(colour_list(flat.empty() ? gradient : flat));
    }
    if (direction) config->setGradientDirection(direction);
    if (no_image) {
        config->setImageData(nullptr);
        NSArray* colours = config->getColors();
        if (config->getBackgroundType() == image_data)
            config->setBackgroundType(!colours               ? no_background
                                      : colours->count() > 1 ? gradient_of_colours
                                                             : flat_colour);
    }
    if (!image.empty() || !from_image.empty()) {
        done = put_photo(config, image.empty() ? from_image : image);
    } else if (dim > 0 || blur > 0) {
        const auto stored = stored_image(config);
        if (!stored) throw Unusable(dim > 0 ? "--dim" : "--blur", "the theme has no picture");
        const PreparedPhoto photo =
            prepare_photo(*stored, "the theme's picture", {.fit = Fit::stretch, .dim = dim, .blur = blur});
        store_image(config, stored_picture(photo.picture).bytes);
    }
    if (alpha) config->setImageAlpha(*alpha);
    if (caps) config->setVisibleKeycaps(true);
    if (no_caps) config->setVisibleKeycaps(false);
    return done;
}

std::vector<std::string> ThemeOptions::take_colours(HuecraftConfig* config,
                                                    const BackdropSampler& sampler) const {
    if (from_image.empty()) return {};
    // The photo as the keyboard has it, so that what was cropped away has no say.
    const PreparedPhoto photo = prepare_photo(*stored_image(config), from_image, {.fit = Fit::stretch});
    const Pair found = colours_of_picture(photo.picture);
    if (text.empty()) config->setTextColor(ui_color(found.labels));
    if (highlight.empty()) config->setHighlightColor(ui_color(found.highlights));
    const Advice advice = advise(sampler, config);
    apply(advice, config);
    std::vector<std::string> done{"took " + hex_of(advice.pair.labels) + " for labels and " +
                                  hex_of(advice.pair.highlights) + " for highlights"};
    if (advice.changes_background())
        done.push_back("the picture is " + treatment_in_words(advice) +
                       ", so that both stand out everywhere");
    return done;
}

std::string doubts_about(HuecraftConfig* config, const BackdropSampler& sampler) {
    const Pair pair = pair_of(config);
    const auto trial = copy_of(config);
    if (legibility_of(pair, sampler.behind(trial)).passes()) return "";
    return "labels or highlights are hard to tell: " + in_words(advise(sampler, config)) +
           " (huecraft lint says more, --fix changes it)";
}

void add_theme_options(Subcommand sub, ThemeOptions& options, bool editing) {
    sub.add_option("--text", options.text, "Colour of the keys' labels").takes_colour();
    sub.add_option("--highlight", options.highlight, "Colour of pressed keys").takes_colour();
    const Option flat = sub.add_option("--flat", options.flat, "Background of one colour").takes_colour();
    const Option gradient =
        sub.add_option("--gradient", options.gradient, "Background that runs through colours: COLOR,COLOR,…")
            .takes_colours()
            .excludes(flat);
    const Option direction =
        sub.add_option("--direction", options.direction, "Where the gradient runs; also as 1 to 8")
            .takes_direction();
    if (!editing) direction.needs(gradient);
    const Option image = sub.add_option("--image", options.image, "Background photo: PNG, JPEG, WebP or HEIC")
                             .type_name("FILE")
                             .excludes(flat)
                             .excludes(gradient);
    sub.add_option("--from-image", options.from_image,
                   "The same, and the colours of labels and highlights are found in it")
        .type_name("FILE")
        .excludes(image)
        .excludes(flat)
        .excludes(gradient);
    if (editing) sub.add_flag("--no-image", options.no_image, "Take the picture away").excludes(image);
    sub.add_option("--crop", options.crop, "The part of the photo to take, in its pixels")
        .type_name("X,Y,W,H")
        .check([](const std::string& text) {
            return region_of(text) ? ""
                                   : in_quotes(text) + " is not a region; expected four numbers: X,Y,W,H";
        });
    sub.add_option("--fit", options.fit, "How it comes to the keyboard's shape")
        .takes_one_of({"fill", "inside", "stretch"});
    sub.add_option("--dim", options.dim, "Black over the picture, from 0 to 1").takes_number(0, 1);
    sub.add_option("--blur", options.blur, "Blur of the picture, in points").takes_number(0, 50);
    sub.add_option("--alpha", options.alpha, "The picture's opacity, from 0 to 1").takes_number(0, 1);
    const Option caps = sub.add_flag("--caps", options.caps, "Leave the key caps visible");
    if (editing) sub.add_flag("--no-caps", options.no_caps, "Hide the key caps").excludes(caps);
}

}  // namespace command
