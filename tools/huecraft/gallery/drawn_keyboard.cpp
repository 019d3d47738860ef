// The keyboard as a gallery shows it.
#include "gallery/drawn_keyboard.h"

#include <algorithm>
#include <cmath>

#include "platform/keyboard.h"
#include "simulator.h"
#include "support/phone.h"

namespace command {
namespace {

/// In the middle of the lowest row of letters: what it puts up hides one label, "g", and cuts none.
constexpr const char* pressed = "v";

constexpr double per_point = KeyboardPixels::per_point;

UIView* whole_screen() {
    void* found = nullptr;
    tools::require(sim_view_on_screen("UIView", &found), "the screen");
    auto* view = static_cast<UIView*>(found);
    while (UIView* parent = view->superview()) view = parent;
    return view;
}

/// What the screen shows below `top`, in points.
KeyboardPixels drawn_below(UIView* screen, double top) {
    const CGSize size = screen->bounds().size;
    KeyboardPixels drawn{static_cast<size_t>(size.width * per_point),
                         static_cast<size_t>((size.height - top) * per_point),
                         {}};
    drawn.pixels.resize(drawn.width * drawn.height);
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    constexpr CGBitmapInfo little_endian = 2 << 12;
    CGContextRef context =
        CGBitmapContextCreate(drawn.pixels.data(), drawn.width, drawn.height, 8, drawn.width * 4, space,
                              kCGImageAlphaNoneSkipFirst | little_endian);
    CGColorSpaceRelease(space);
    CGContextTranslateCTM(context, 0, static_cast<double>(drawn.height));
    CGContextScaleCTM(context, per_point, -per_point);
    CGContextTranslateCTM(context, 0, -top);
    screen->layer()->renderInContext(context);
    CGContextRelease(context);
    for (uint32_t& pixel : drawn.pixels) pixel &= 0xffffff;
    return drawn;
}

Colour colour_of(uint32_t pixel) {
    const auto component = [&](int shift) { return (pixel >> shift & 255) / 255.0; };
    return {component(16), component(8), component(0), 1};
}

/// Looks at a drawn keyboard where its keys say that there is no label.
void measure(DrawnKeyboard& drawn, double top, const Colour& labels) {
    const KeyboardPixels& picture = drawn.picture;
    const auto at = [&](double x, double y) {
        const auto index = [](double points, size_t count) {
            return std::min(static_cast<size_t>(std::max(points * per_point, 0.0)), count - 1);
        };
        return colour_of(
            picture.pixels[index(y - top, picture.height) * picture.width + index(x, picture.width)]);
    };
    std::vector<sim_key> keys(sim_key_count());
    for (size_t i = 0; i < keys.size(); ++i) tools::require(sim_key_at(i, &keys[i]), "finding the keys");
    const auto is_pressed = [](const sim_key& key) {
        return key.text && std::string_view(key.text) == pressed;
    };
    const auto held = std::ranges::find_if(keys, is_pressed);
    double count = 0;
    drawn.contrast = 21;
    for (const sim_key& key : keys) {
        const double x = key.x + key.width / 2, y = key.y + key.height / 2;
        // What the held key puts up covers its neighbours above.
        constexpr double reach = 68;
        if (held == keys.end() ||
            std::hypot(x - held->x - held->width / 2, y - held->y - held->height / 2) < reach)
            continue;
        // Keys touch one another; caps keep away from their edges.
        const Oklab behind = oklab_of(at(key.x, key.y + key.height - 1));
        drawn.background.lightness += behind.lightness;
        drawn.background.a += behind.a;
        drawn.background.b += behind.b;
        ++count;
        constexpr double beside_label = 6;
        const Colour beside = at(key.x + beside_label, y);
        if (key.text && std::string_view(key.text).size() == 1)
            drawn.contrast = std::min(drawn.contrast, contrast(over(labels, beside), beside));
    }
    if (count == 0) return;
    for (double* part : {&drawn.background.lightness, &drawn.background.a, &drawn.background.b})
        *part /= count;
}

}  // namespace

DrawnKeyboard draw_keyboard(const Colour& labels) {
    objc::AutoreleasePool pool;
    sim_keyboard keyboard{};
    keyboard.size = sizeof keyboard;
    keyboard.pressed_key = pressed;
    tools::require(sim_show_keyboard(&keyboard), "the keyboard");
    UIView* screen = whole_screen();
    screen->layoutIfNeeded();
    const double top = screen->bounds().size.height - UIKeyboardImpl::keyboardSize(1).height;
    DrawnKeyboard drawn{drawn_below(screen, top), {}};
    measure(drawn, top, labels);
    return drawn;
}

}  // namespace command
