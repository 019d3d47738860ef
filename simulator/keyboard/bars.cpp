// The bars above and below the keys.
#include "keyboard/bars.h"

#include "keyboard/glyph_image.h"
#include "keyboard/make.h"

namespace sim {
namespace {

using objc::strong;

constexpr int suggestion_count = 3, active_suggestion = 1;
constexpr const char* suggestions[suggestion_count] = {"“choco”", "chocolate", "chocolates"};

void add_line(UIView* bar, CGFloat x) {
    const CGFloat height = bar->bounds().size.height, margin = height / 4;
    auto line = make_view<UIView>({{x, margin}, {0.5, height - 2 * margin}});
    line->setBackgroundColor(UIColor::colorWithWhite(0, 0.25));
    bar->addSubview(line);
}

void add_dock_item(UIView* dock, CGFloat x, Glyph glyph) {
    constexpr CGFloat item_width = 60, glyph_size = 27;
    auto button = make_view<UIKeyboardDockItemButton>(
        {{x - item_width / 2, 0}, {item_width, dock->bounds().size.height}});
    button->setImage(template_glyph_image(glyph, glyph_size));
    dock->addSubview(button);
}

}  // namespace

strong<UIView> make_prediction_bar(CGRect frame) {
    auto bar = make_view<UIView>(frame);
    const CGFloat width = frame.size.width / suggestion_count;
    for (int index = 0; index < suggestion_count; ++index) {
        auto cell = make_view<UIKeyboardPredictionCell>({{index * width, 0}, {width, frame.size.height}});
        cell->setText(NSString::stringWithUTF8String(suggestions[index]));
        cell->setActive(index == active_suggestion);
        bar->addSubview(cell);
    }
    for (int index = 1; index < suggestion_count; ++index)
        if (index != active_suggestion && index - 1 != active_suggestion) add_line(bar, index * width);
    return bar;
}

strong<UIView> make_dock(CGRect frame) {
    auto dock = make_view<UIView>(frame);
    dock->setTintColor(UIColor::colorWithRGB(0.31, 0.33, 0.36, 1));
    constexpr CGFloat margin = 36;
    add_dock_item(dock, margin, Glyph::globe);
    add_dock_item(dock, frame.size.width - margin, Glyph::microphone);
    return dock;
}

}  // namespace sim
