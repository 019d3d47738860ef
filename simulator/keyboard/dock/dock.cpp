#include "keyboard/dock/dock.h"

#include "keyboard/glyph_image.h"
#include "keyboard/make.h"

namespace sim {
namespace {

using objc::strong;

void add_item(UIView* dock, CGFloat x, Glyph glyph) {
    constexpr CGFloat item_width = 60, item_height = 46, glyph_size = 27;
    auto button = make_view<UIKeyboardDockItemButton>({{x - item_width / 2, 0}, {item_width, item_height}});
    button->setImage(template_glyph_image(glyph, glyph_size), UIControlStateNormal);
    dock->addSubview(button);
}

}  // namespace

strong<UIView> make_dock(CGRect frame) {
    auto dock = make_view<UIKeyboardDockView>(frame);
    dock->setTintColor(UIColor::colorWithRGB(0.31, 0.33, 0.36, 1));
    constexpr CGFloat margin = 36;
    add_item(dock, margin, Glyph::globe);
    add_item(dock, frame.size.width - margin, Glyph::microphone);
    return strong<UIView>(dock.get());
}

}  // namespace sim
