// What makes a theme fine: its colours.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "objc/fast_enumeration.h"
#include "photos/photo.h"
#include "readability/oklab.h"
#include "support/text.h"
#include "themes/fixing.h"

namespace command {
namespace {

enum Background : NSUInteger { flat_colour = 1, gradient_of_colours = 2, image_data = 3 };

std::vector<Colour> colours_of(HuecraftConfig* config) {
    std::vector<Colour> all;
    if (NSArray* list = config->getColors())
        objc::for_each<UIColor>(list, [&](UIColor* colour) { all.push_back(colour_of(colour)); });
    return all;
}

void set_colours(HuecraftConfig* config, const std::vector<Colour>& colours) {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(colours.size());
    for (const Colour& colour : colours) list->addObject(ui_color(colour));
    config->setColors(list);
    if (colours.size() == 1) config->setBackgroundType(flat_colour);
}

/// Each a part of the way to their mean, in OKLab.
std::vector<Colour> calmer(const std::vector<Colour>& colours, double part) {
    Oklab mean;
    double alpha = 0;
    for (const Colour& colour : colours) {
        const Oklab lab = oklab_of(colour);
        const auto count = static_cast<double>(colours.size());
        mean = {mean.lightness + lab.lightness / count, mean.a + lab.a / count, mean.b + lab.b / count};
        alpha += colour.alpha / count;
    }
    std::vector<Colour> all;
    for (const Colour& colour : colours) {
        const Oklab lab = oklab_of(colour);
        const auto mix = [&](double from, double to) { return from + (to - from) * part; };
        Colour moved =
            colour_of(Oklab{mix(lab.lightness, mean.lightness), mix(lab.a, mean.a), mix(lab.b, mean.b)});
        moved.alpha = mix(colour.alpha, alpha);
        all.push_back(rounded(moved));
    }
    return all;
}

/// The theme's picture in the keyboard's shape, as it is.
Picture whole_picture(const std::string& image) {
    return prepare_photo(image, "the picture", {.fit = Fit::stretch}).picture;
}

/// A picture as the advice has it.
std::string treated(Picture picture, const Advice& advice) {
    constexpr double points = 414;
    if (advice.blur > 0) blur(picture, advice.blur * static_cast<double>(picture.width) / points);
    if (advice.dim > 0) dim(picture, advice.dim);
    return stored_picture(picture).bytes;
}

std::optional<Pair> pair_on(const BackdropSampler& sampler, HuecraftConfig* config, const Pair& wanted) {
    return nearest_pair(wanted, sampler.behind(copy_of(config)));
}

std::optional<Advice> with_calmer_colours(const BackdropSampler& sampler, HuecraftConfig* config,
                                          const Pair& wanted) {
    const std::vector<Colour> colours = colours_of(config);
    if (colours.empty()) return std::nullopt;
    constexpr int steps = 20;
    for (int step = 1; step <= steps; ++step) {
        Advice advice{wanted, calmer(colours, static_cast<double>(step) / steps)};
        const auto trial = copy_of(config);
        set_colours(trial, advice.colours);
        if (const auto pair = pair_on(sampler, trial, wanted)) {
            advice.pair = *pair;
            return advice;
        }
    }
    // All of one colour, and not translucent. With visible caps not even each of these has a pair: labels are
    // on caps, suggestions are not.
    Colour even = rounded(calmer(colours, 1)[0]);
    even.alpha = 1;
    for (int step = 0; step <= steps; ++step)
        for (const double end : {0.0, 1.0}) {
            const double part = static_cast<double>(step) / steps;
            auto mixed = [&](double from) { return from + (end - from) * part; };
            const Colour nearer{mixed(even.red), mixed(even.green), mixed(even.blue), 1};
            Advice advice{wanted, {rounded(nearer)}};
            const auto trial = copy_of(config);
            set_colours(trial, advice.colours);
            if (const auto pair = pair_on(sampler, trial, wanted)) {
                advice.pair = *pair;
                return advice;
            }
        }
    return std::nullopt;
}

std::optional<Advice> with_treated_picture(const BackdropSampler& sampler, HuecraftConfig* config,
                                           const Pair& wanted) {
    const auto image = stored_image(config);
    if (!image) return std::nullopt;
    std::vector<Advice> trials;
    for (const double blurred : {0.0, 4.0, 10.0})
        for (int dimmed = 0; dimmed <= 19; ++dimmed)
            if (blurred > 0 || dimmed > 0)
                trials.push_back({.pair = wanted, .dim = 0.05 * dimmed, .blur = blurred});
    // A blur of forty points changes a picture about as much as putting it out.
    std::ranges::sort(trials, {}, [](const Advice& one) { return one.dim + one.blur / 40; });
    // Most fail, and show it in a small picture; one that passes there is tried in full.
    const Picture whole = whole_picture(*image);
    constexpr size_t width = 138, height = 89;
    const Region all{0, 0, static_cast<double>(whole.width), static_cast<double>(whole.height)};
    const Picture small = scaled(whole, all, width, height);
    for (Advice& advice : trials)
        for (const Picture* picture : {&small, &whole}) {
            const auto trial = copy_of(config);
            store_image(trial, treated(*picture, advice));
            const auto pair = pair_on(sampler, trial, wanted);
            if (!pair) break;
            advice.pair = *pair;
            if (picture == &whole) return advice;
        }
    return std::nullopt;
}

std::string plain(double number) {
    char text[32];
    std::snprintf(text, sizeof text, "%.4g", number);
    return text;
}

}  // namespace

Pair pair_of(HuecraftConfig* config) {
    UIColor *labels = config->getTextColor(), *highlights = config->getHighlightColor();
    constexpr double third = 1.0 / 3;
    return {labels ? colour_of(labels) : Colour{1, 1, 1, 1},
            highlights ? colour_of(highlights) : Colour{third, third, third, 1}};
}

Advice advise(const BackdropSampler& sampler, HuecraftConfig* config) {
    const Pair wanted = pair_of(config);
    if (const auto pair = pair_on(sampler, config, wanted)) return {*pair};
    if (config->getBackgroundType() == image_data) {
        if (const auto advice = with_treated_picture(sampler, config, wanted)) return *advice;
    } else if (const auto advice = with_calmer_colours(sampler, config, wanted)) {
        return *advice;
    }
    // Whatever it is, black is a background with a pair.
    Advice advice{wanted, {{0, 0, 0, 1}}};
    advice.without_picture = config->getBackgroundType() == image_data;
    const auto trial = copy_of(config);
    set_colours(trial, advice.colours);
    trial->setBackgroundType(flat_colour);
    advice.pair = pair_on(sampler, trial, wanted).value_or(Pair{{1, 1, 1, 1}, {0.4, 0.4, 0.4, 1}});
    return advice;
}

std::string treatment_in_words(const Advice& advice) {
    std::string words;
    if (advice.dim > 0) words = "dimmed by " + plain(advice.dim);
    if (advice.blur > 0)
        words += (words.empty() ? "" : " and ") + ("blurred by " + plain(advice.blur) + " points");
    return words;
}

std::string in_words(const Advice& advice) {
    const std::string pair =
        hex_of(advice.pair.labels) + " for labels and " + hex_of(advice.pair.highlights) + " for highlights";
    if (!advice.changes_background()) return "the nearest pair that passes on every key is " + pair;
    std::string background;
    if (!advice.colours.empty()) {
        background = advice.without_picture ? "without the picture, with _BackgroundType 1 and _Colors "
                                            : "with _Colors ";
        for (size_t i = 0; i < advice.colours.size(); ++i)
            background += (i ? "," : "") + hex_of(advice.colours[i]);
    } else {
        background = "with the picture " + treatment_in_words(advice);
    }
    return "no pair passes on this background; the nearest is " + background + ", and there " + pair;
}

void apply(const Advice& advice, HuecraftConfig* config) {
    config->setTextColor(ui_color(advice.pair.labels));
    config->setHighlightColor(ui_color(advice.pair.highlights));
    if (!advice.colours.empty()) {
        if (advice.without_picture) config->setImageData(nullptr);
        set_colours(config, advice.colours);
        const NSUInteger type = config->getBackgroundType();
        if (type != flat_colour && type != gradient_of_colours)
            config->setBackgroundType(advice.colours.size() == 1 ? flat_colour : gradient_of_colours);
    } else if (advice.changes_background()) {
        store_image(config, treated(whole_picture(*stored_image(config)), advice));
    }
}

}  // namespace command
