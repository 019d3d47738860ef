// The row of category glyphs below the emoji, drawn with layers of its own: a line along the top, a disc
// behind the selected category, and a glyph for each. The glyphs are white; the multiply colour and the blend
// mode make them grey.
#include "keyboard/glyph_image.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct CategoryBar : objc::Implements<CategoryBar, UIKeyboardEmojiCategoryBar> {
    struct Ivars {
        NSInteger selectedIndex;
    };

    strong<UIKeyboardEmojiCategoryBar> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->setOpaque(false);
        self->layer()->setNeedsDisplay();
        return self;
    }

    void setSelectedIndex(NSInteger index) {
        ivars().selectedIndex = index;
        layer()->setNeedsDisplay();
    }

    void displayLayer(CALayer* layer) {
        layer->setSublayers(nullptr);
        const CGSize size = layer->bounds().size;
        add_plain_layer(layer, {{0, 0}, {size.width, 0.5}}, 0);
        const CGFloat pitch = size.width / sim::category_count;
        for (int index = 0; index < sim::category_count; ++index) {
            const CGPoint middle{(index + 0.5) * pitch, size.height / 2};
            if (index == static_cast<UIKeyboardEmojiCategoryBar*>(this)->selectedIndex())
                add_plain_layer(layer, square(middle, disc_size), disc_size / 2);
            add_glyph(layer, index, square(middle, glyph_size));
        }
    }

  private:
    static constexpr CGFloat glyph_size = 19, disc_size = 28;

    static CGRect square(CGPoint middle, CGFloat size) {
        return {{middle.x - size / 2, middle.y - size / 2}, {size, size}};
    }

    static void add_plain_layer(CALayer* layer, CGRect frame, CGFloat corner_radius) {
        CALayer* plain = CALayer::layer();
        plain->setFrame(frame);
        plain->setCornerRadius(corner_radius);
        plain->setBackgroundColor(UIColor::colorWithWhite(0, 0.15)->CGColor());
        plain->setCompositingFilter("plusD"_ns);
        layer->addSublayer(plain);
    }

    static void add_glyph(CALayer* layer, int index, CGRect frame) {
        const auto glyph = static_cast<sim::Glyph>(static_cast<int>(sim::first_category) + index);
        UIImage* image = sim::glyph_image(glyph, glyph_size, UIColor::whiteColor());
        auto* picture = _UIKBKeyViewLayer::class_send<"layer", _UIKBKeyViewLayer*>();
        picture->setFrame(frame);
        picture->setContents(reinterpret_cast<id>(image->CGImage()));
        picture->setContentsScale(image->scale());
        picture->setContentsMultiplyColor(UIColor::colorWithWhite(0.3, 0.8)->CGColor());
        picture->setCompositingFilter("multiplyBlendMode"_ns);
        layer->addSublayer(picture);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardEmojiCategoryBar, UIView, CategoryBar,
           property<"selectedIndex", &CategoryBar::Ivars::selectedIndex>,
           method<"initWithFrame:", &CategoryBar::initWithFrame>,
           method<"displayLayer:", &CategoryBar::displayLayer>)
