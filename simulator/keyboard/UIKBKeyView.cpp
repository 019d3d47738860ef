// A view that draws one key.
#include "keyboard/UIKBKeyView.h"

#include <optional>

#include "keyboard/glyph_image.h"
#include "keyboard/key_kind.h"
#include "keyboard/key_painter.h"
#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

/// The glyph of a key that shows no text.
std::optional<sim::Glyph> glyph_of(UIKBTree* key) {
    if (key->displayString() || !key->name()) return std::nullopt;
    const bool engaged = static_cast<sim::KeyKind>(key->displayType()) == sim::KeyKind::engaged_control;
    const std::pair<NSString*, sim::Glyph> glyphs[] = {
        {"Delete-Key"_ns, sim::Glyph::backspace},
        {"Shift-Key"_ns, engaged ? sim::Glyph::shift_engaged : sim::Glyph::shift},
        {"International-Key"_ns, sim::Glyph::globe},
        {"Dictation-Key"_ns, sim::Glyph::microphone},
    };
    for (const auto& [name, glyph] : glyphs)
        if (key->name()->isEqualToString(name)) return glyph;
    return std::nullopt;
}

struct KeyView : objc::Implements<KeyView, UIKBKeyView> {
    /// Below the cap there is room for the line along its bottom edge.
    static constexpr CGFloat room_below = 1;
    static constexpr CGFloat text_lift = 1;
    static constexpr CGFloat glyph_size = 24;

    struct Ivars {
        strong<UIKBTree> key;
        strong<UIKBRenderFactory> factory;
        strong<UILabel> label;
        bool pressed;
    };

    strong<UIKBKeyView> initWithKey(UIKBTree* key, UIKBRenderFactory* factory) {
        CGRect frame = key->frame();
        frame.size.height += room_below;
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().key = key;
        self->ivars().factory = factory;
        self->setBackgroundColor(nullptr);
        self->setOpaque(false);
        self->setContentMode(UIViewContentModeRedraw);
        self->show_text();
        return self;
    }

    bool isPressed() { return ivars().pressed; }
    void setPressed(bool pressed) {
        ivars().pressed = pressed;
        show_text();
        setNeedsDisplay();
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        if (!ivars().label) return;
        CGRect frame = cap();
        frame.origin.y -= text_lift;
        ivars().label->setFrame(frame);
    }

    void drawRect(CGRect) {
        CGContextRef context = UIGraphicsGetCurrentContext();
        const sim::KeyTraits traits = current_traits();
        sim::paint_cap(context, sim::Path::rounded(cap(), traits.corner_radius), traits);
        if (auto glyph = glyph_of(ivars().key)) {
            const CGSize size = cap().size;
            const CGRect middle{{(size.width - glyph_size) / 2, (size.height - glyph_size) / 2},
                                {glyph_size, glyph_size}};
            if (UIColor* color = sim::color_named(traits.text->textColor()))
                sim::glyph_image(*glyph, glyph_size, color)->drawInRect(middle);
        }
    }

  private:
    CGRect cap() {
        CGRect bounds = this->bounds();
        bounds.size.height -= room_below;
        return bounds;
    }

    sim::KeyTraits current_traits() {
        return sim::key_traits(ivars().factory, ivars().key,
                               isPressed() ? sim::KeyState::pressed : sim::KeyState::idle);
    }

    void show_text() {
        if (ivars().label) ivars().label->removeFromSuperview();
        ivars().label = nullptr;
        NSString* text = ivars().key->displayString();
        if (!text) return;
        ivars().label = sim::make_label(current_traits().text, text);
        addSubview(ivars().label);
        setNeedsLayout();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBKeyView, UIView, KeyView,
           property<"key", &KeyView::Ivars::key>,
           ivar<"_factory", &KeyView::Ivars::factory>,
           ivar<"_label", &KeyView::Ivars::label>,
           ivar<"_pressed", &KeyView::Ivars::pressed>,
           method<"initWithKey:factory:", &KeyView::initWithKey>,
           method<"isPressed", &KeyView::isPressed>,
           method<"setPressed:", &KeyView::setPressed>,
           method<"layoutSubviews", &KeyView::layoutSubviews>,
           method<"drawRect:", &KeyView::drawRect>)
