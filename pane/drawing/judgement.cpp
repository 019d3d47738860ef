#include "pane/drawing/judgement.h"

#include <array>

#include "pane/drawing/keyboard_picture.h"

namespace pane {
namespace {

using readability::Colour;

// One pixel is a fourth of a key or so: what a label lies on is the mean of that.
constexpr size_t width = 40, height = 16;

/// What a plain keyboard looks like over a light page, and what a key's cap puts over its background.
constexpr Colour plain{0.82, 0.83, 0.85, 1};
constexpr Colour cap{1, 1, 1, 1};

std::array<uint8_t, width * height * 4> pixels_of(HuecraftConfig* theme) {
    std::array<uint8_t, width * height * 4> pixels{};
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(pixels.data(), width, height, 8, width * 4, space,
                                                 kCGImageAlphaPremultipliedLast | kCGBitmapByteOrder32Big);
    CGContextTranslateCTM(context, 0, height);
    CGContextScaleCTM(context, 1, -1);
    UIGraphicsPushContext(context);
    constexpr CGRect all{{0, 0}, {width, height}};
    CGContextSetRGBFillColor(context, plain.red, plain.green, plain.blue, 1);
    CGContextFillRect(context, all);
    draw_background(theme, all);
    UIGraphicsPopContext();
    CGContextRelease(context);
    CGColorSpaceRelease(space);
    return pixels;
}

}  // namespace

readability::Behind behind(HuecraftConfig* theme) {
    const auto pixels = pixels_of(theme);
    const bool caps = theme->getVisibleKeycaps();
    readability::Behind behind;
    readability::BehindKey labels, keys;
    for (size_t at = 0; at < pixels.size(); at += 4) {
        const Colour colour{pixels[at] / 255.0, pixels[at + 1] / 255.0, pixels[at + 2] / 255.0, 1};
        keys.colours.push_back(colour);
        labels.colours.push_back(caps ? over(cap, colour) : colour);
    }
    behind.labels.push_back(std::move(labels));
    behind.keys.push_back(std::move(keys));
    return behind;
}

Colour colour_of(UIColor* color) {
    Colour colour{0, 0, 0, 0};
    if (color) color->getRGB(&colour.red, &colour.green, &colour.blue, &colour.alpha);
    return colour;
}

UIColor* ui_color(const Colour& colour) {
    return HCCITool::colorFromHexString(NSString::stringWithUTF8String(readability::hex_of(colour).c_str()));
}

readability::Pair pair_of(HuecraftConfig* theme) {
    return {colour_of(theme->getTextColor()), colour_of(theme->getHighlightColor())};
}

bool is_readable(const readability::Legibility& legibility) {
    return legibility.labels.ratio >= readability::demand_of_labels.error_below;
}

}  // namespace pane
