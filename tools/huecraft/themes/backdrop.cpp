#include "themes/backdrop.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>

#include "cli/files.h"
#include "platform/keyboard.h"
#include "support/phone.h"
#include "support/pictures.h"
#include "support/text.h"
#include "support/theme_choice.h"
#include "themes/theme.h"

namespace command {
namespace {

using tools::text;

/// Pixels per point. A label is some 15 points wide and the backdrops are smooth: at this scale each of its
/// samples is the mean of 5 by 5 points.
constexpr double backdrop_scale = 0.2;

/// A theme whose labels leave no trace, over an even backdrop.
std::string bare_theme(bool caps, const char* backdrop) {
    return std::string("<plist version=\"1.0\"><dict><key>_TextColor</key><string>#00000000</string>") +
           "<key>_HighlightColor</key><string>#00000000</string><key>_BackgroundType</key><integer>1</"
           "integer>" +
           "<key>_Colors</key><array><string>" + backdrop + "</string></array><key>_VisibleKeycaps</key>" +
           (caps ? "<true/>" : "<false/>") + "</dict></plist>";
}

/// The pixels of a picture.
class Pixels {
  public:
    explicit Pixels(UIImage* image)
        : width_(CGImageGetWidth(image->CGImage())),
          height_(CGImageGetHeight(image->CGImage())),
          bytes_(width_ * height_ * 4),
          scale_(image->scale()) {
        CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
        constexpr CGBitmapInfo big_endian = 4 << 12;
        CGContextRef context = CGBitmapContextCreate(bytes_.data(), width_, height_, 8, width_ * 4, space,
                                                     kCGImageAlphaPremultipliedLast | big_endian);
        CGContextDrawImage(context, {{0, 0}, {double(width_), double(height_)}}, image->CGImage());
        CGContextRelease(context);
        CGColorSpaceRelease(space);
    }

    /// At a point; opaque.
    Colour at(double x, double y) const {
        auto index = [](double pixel, size_t count) {
            return std::min(static_cast<size_t>(std::max(pixel, 0.0)), count - 1);
        };
        const uint8_t* pixel = &bytes_[(index(y * scale_, height_) * width_ + index(x * scale_, width_)) * 4];
        return {pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1};
    }

  private:
    size_t width_, height_;
    std::vector<uint8_t> bytes_;
    double scale_;
};

/// What must lie over black to give the one colour, and over white to give the other.
Colour between(const Colour& over_black, const Colour& over_white) {
    const double light = (over_white.red - over_black.red + over_white.green - over_black.green +
                          over_white.blue - over_black.blue) /
                         3;
    const double alpha = std::clamp(1 - light, 0.0, 1.0);
    auto component = [&](double seen) { return alpha > 0 ? std::clamp(seen / alpha, 0.0, 1.0) : 0; };
    return {component(over_black.red), component(over_black.green), component(over_black.blue), alpha};
}

sim_keyboard plain_keyboard() {
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    keyboard.background = "light";
    return keyboard;
}

/// A keyboard of a phone that loads the library with or without visible caps, over black or white.
Pixels picture_of_caps(const Workshop& workshop, bool caps, const char* backdrop) {
    const std::string name = std::string("caps-") + (caps ? "visible-" : "hidden-") + (backdrop + 1);
    const auto picture = workshop.scratch(name + ".png");
    in_child([&] {
        objc::AutoreleasePool pool;
        workshop.place_theme(name, bare_theme(caps, backdrop));
        tools::choose_theme(name);
        tools::load(library());
        tools::require_theme();
        const sim_keyboard keyboard = plain_keyboard();
        tools::require(sim_show_keyboard(&keyboard), "showing the caps");
        tools::require(sim_take_picture(picture.c_str(), 1), "drawing the caps");
        return Status::fine;
    });
    return Pixels(tools::read_picture(picture));
}

/// The caps of this process's phones, over black and over white. Every sampler's are the same.
struct CapPictures {
    Pixels hidden[2], visible[2];
};

const CapPictures& cap_pictures(const Workshop& workshop) {
    static const CapPictures pictures{
        {picture_of_caps(workshop, false, "#000000"), picture_of_caps(workshop, false, "#FFFFFF")},
        {picture_of_caps(workshop, true, "#000000"), picture_of_caps(workshop, true, "#FFFFFF")}};
    return pictures;
}

CGSize on_whole_pixels(CGSize size) {
    auto rounded_up = [](double points) { return std::ceil(points * backdrop_scale) / backdrop_scale; };
    return {rounded_up(size.width), rounded_up(size.height)};
}

/// The bar of suggestions over an iPhone's keys. It has a backdrop of its own, and no caps.
constexpr double bar_height = 42;
constexpr int suggestion_count = 3, active_suggestion = 1;

/// What is behind a suggestion, at points that a word covers. The bar is drawn at `top`.
BehindKey behind_suggestion(const Pixels& pixels, int index, double width, double top) {
    BehindKey suggestion{"suggestion " + std::to_string(index + 1), {}};
    const double x = width * (index + 0.5) / suggestion_count, y = top + bar_height / 2;
    for (double across : {-30.0, 0.0, 30.0})
        for (double down : {-7.0, 0.0, 7.0}) suggestion.colours.push_back(pixels.at(x + across, y + down));
    return suggestion;
}

template <class T>
objc::strong<T> make_view(CGRect frame) {
    return objc::adopt(static_cast<T*>(T::alloc()->initWithFrame(frame).leak()));
}

}  // namespace

BackdropSampler::BackdropSampler(const Workshop& workshop) {
    tools::boot(workshop.device, tools::notes);
    objc::AutoreleasePool pool;
    const auto& [hidden, visible] = cap_pictures(workshop);

    workshop.place_theme("worn", bare_theme(false, "#000000"));
    tools::choose_theme("worn");
    tools::load(library());
    tools::require_theme();
    const sim_keyboard keyboard = plain_keyboard();
    tools::require(sim_show_keyboard(&keyboard), "showing the keyboard");

    const CGRect screen = UIScreen::mainScreen()->bounds();
    // The keys have a backdrop of their own; this phone has no dock, which would share it.
    const double keyboard_top = screen.size.height - UIKeyboardImpl::keyboardSize(1).height;
    size_ = {screen.size.width, screen.size.height - keyboard_top};
    std::vector<sim_key> keys(sim_key_count());
    for (size_t i = 0; i < keys.size(); ++i) tools::require(sim_key_at(i, &keys[i]), "finding the keys");
    for (const sim_key& key : keys) {
        Place place{key.text ? key.text : key.name, {}};
        // The room of a label: the middle of the key.
        for (double across : {-6.0, 0.0, 6.0})
            for (double down : {-7.0, 0.0, 7.0}) {
                const double x = key.x + key.width / 2 + across, y = key.y + key.height / 2 + down;
                place.samples.push_back({x, y - keyboard_top, between(hidden[0].at(x, y), hidden[1].at(x, y)),
                                         between(visible[0].at(x, y), visible[1].at(x, y))});
            }
        places_.push_back(std::move(place));
    }
}

Behind BackdropSampler::behind(HuecraftConfig* config) const {
    objc::AutoreleasePool pool;
    wear(config);
    // The page fills the last pixels too: what they lacked would be black, and the backdrop blurs what it
    // is over.
    const double bar_top = on_whole_pixels(size_).height;
    const CGSize page_size = on_whole_pixels({size_.width, bar_top + bar_height});
    auto page = make_view<UIView>({{0, 0}, page_size});
    page->setBackgroundColor(UIColor::colorWithWhite(0.97, 1));
    auto backdrop = make_view<UIKBInputBackdropView>({{0, 0}, size_});
    backdrop->layoutToFull({{0, 0}, size_});
    page->addSubview(backdrop);
    auto bar = make_view<UIKBInputBackdropView>({{0, bar_top}, {size_.width, bar_height}});
    bar->layoutToFull({{0, 0}, {size_.width, bar_height}});
    page->addSubview(bar);
    page->layoutIfNeeded();
    UIGraphicsBeginImageContextWithOptions(page_size, true, backdrop_scale);
    page->drawViewHierarchyInRect(page->bounds(), true);
    const Pixels pixels(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();

    Behind behind;
    const bool caps = config->getVisibleKeycaps();
    for (const Place& place : places_) {
        BehindKey label{place.key, {}}, key{place.key, {}};
        for (const Sample& sample : place.samples) {
            const Colour colour = pixels.at(sample.x, sample.y);
            key.colours.push_back(colour);
            label.colours.push_back(over(caps ? sample.visible_cap : sample.hidden_cap, colour));
        }
        behind.labels.push_back(std::move(label));
        behind.keys.push_back(std::move(key));
    }
    for (int index = 0; index < suggestion_count; ++index) {
        behind.labels.push_back(behind_suggestion(pixels, index, size_.width, bar_top));
        if (index == active_suggestion) behind.keys.push_back(behind.labels.back());
    }
    return behind;
}

}  // namespace command
