// What stands on a key.
#include "keyboard/rendering/key_symbols.h"

#include <optional>

#include "keyboard/glyph_image.h"
#include "keyboard/planes/key_kind.h"
#include "keyboard/rendering/key_painter.h"
#include "uikit/text_layout.h"

namespace sim {
namespace {

using namespace objc::literals;

constexpr CGFloat text_lift = 1, glyph_size = 24, category_size = 19;

/// The glyph of a key that shows no text.
std::optional<Glyph> glyph_of(UIKBTree* key) {
    if (!key->name()) return std::nullopt;
    const bool engaged = static_cast<KeyKind>(key->displayType()) == KeyKind::engaged_control;
    const std::pair<NSString*, Glyph> glyphs[] = {
        {"Delete-Key"_ns, Glyph::backspace},
        {"Shift-Key"_ns, engaged ? Glyph::shift_engaged : Glyph::shift},
        {"International-Key"_ns, Glyph::globe},
        {"Dictation-Key"_ns, Glyph::microphone},
    };
    for (const auto& [name, glyph] : glyphs)
        if (key->name()->isEqualToString(name)) return glyph;
    return std::nullopt;
}

void draw(Glyph glyph, CGPoint middle, CGFloat size, UIColor* color) {
    glyph_image(glyph, size, color)->drawInRect({{middle.x - size / 2, middle.y - size / 2}, {size, size}});
}

}  // namespace

void draw_symbols(CGContextRef context, UIKBTree* key, UIKBTextStyle* style, CGRect cap) {
    UIColor* color = color_named(style->textColor());
    if (!color) return;
    if (NSString* text = key->displayString()) {
        const TextLayout layout(text, font_of(style),
                                {.width = cap.size.width, .alignment = NSTextAlignmentCenter});
        const CGFloat top = cap.origin.y - text_lift + (cap.size.height - layout.size().height) / 2;
        layout.draw(context, {cap.origin.x, top}, color->CGColor());
    } else if (auto glyph = glyph_of(key)) {
        draw(*glyph, {cap.origin.x + cap.size.width / 2, cap.origin.y + cap.size.height / 2}, glyph_size,
             color);
    }
}

CGPoint middle_of_category(NSUInteger index, CGRect box) {
    return {box.origin.x + (static_cast<CGFloat>(index) + 0.5) * box.size.width / category_count,
            box.origin.y + box.size.height / 2};
}

void draw_categories(CGRect box) {
    for (int index = 0; index < category_count; ++index)
        draw(static_cast<Glyph>(static_cast<int>(first_category) + index), middle_of_category(index, box),
             category_size, UIColor::whiteColor());
}

}  // namespace sim
