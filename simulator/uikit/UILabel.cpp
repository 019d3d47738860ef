// Text in a view.
#include <cmath>

#include "objc/class.h"
#include "runtime/not_modelled.h"
#include "uikit/text_layout.h"

namespace {

using objc::strong;

struct Label : objc::Implements<Label, UILabel> {
    struct Ivars {
        strong<NSString> text;
        strong<UIFont> font;
        strong<UIColor> textColor;
        NSTextAlignment textAlignment = NSTextAlignmentNatural;
        NSInteger numberOfLines = 1;
        NSLineBreakMode lineBreakMode = NSLineBreakByTruncatingTail;
    };

    strong<UILabel> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().font = UIFont::systemFontOfSize(default_font_size);
        self->ivars().textColor = UIColor::blackColor();
        auto* view = static_cast<UIView*>(self.get());
        view->setContentMode(UIViewContentModeRedraw);
        view->setUserInteractionEnabled(false);
        view->setOpaque(false);
        return self;
    }

    NSString* text() { return ivars().text; }
    void setText(NSString* text) {
        ivars().text = strong<NSString>::adopt(text->send<"copy", NSString*>());
        content_changed();
    }
    UIFont* font() { return ivars().font; }
    void setFont(UIFont* font) {
        ivars().font = font ? font : UIFont::systemFontOfSize(default_font_size);
        content_changed();
    }
    UIColor* textColor() { return ivars().textColor; }
    void setTextColor(UIColor* color) {
        ivars().textColor = color ? color : UIColor::blackColor();
        self()->setNeedsDisplay();
    }
    NSTextAlignment textAlignment() { return ivars().textAlignment; }
    void setTextAlignment(NSTextAlignment alignment) {
        ivars().textAlignment = alignment;
        self()->setNeedsDisplay();
    }
    NSInteger numberOfLines() { return ivars().numberOfLines; }
    void setNumberOfLines(NSInteger lines) {
        ivars().numberOfLines = lines;
        content_changed();
    }

    NSLineBreakMode lineBreakMode() { return ivars().lineBreakMode; }
    void setLineBreakMode(NSLineBreakMode mode) {
        if (mode != NSLineBreakByWordWrapping && mode != NSLineBreakByTruncatingTail)
            sim::not_modelled("UILabel", "setLineBreakMode:",
                              "a mode other than word wrap (0) and truncating the tail (4)");
        ivars().lineBreakMode = mode;
        content_changed();
    }

    void drawRect(CGRect) { send<"drawTextInRect:">(self()->bounds()); }

    // In the middle of the height.
    void drawTextInRect(CGRect rect) {
        auto* self = this->self();
        const sim::TextLayout layout(self->text(), self->font(), box(rect.size.width));
        const CGFloat top = rect.origin.y + (rect.size.height - layout.size().height) / 2;
        layout.draw(UIGraphicsGetCurrentContext(), {rect.origin.x, top}, self->textColor()->CGColor());
    }

    CGSize sizeThatFits(CGSize size) {
        auto* self = this->self();
        const bool one_line = self->numberOfLines() == 1 || !(size.width > 0);
        const CGSize exact =
            sim::size_of_text(self->text(), self->font(), one_line ? sim::TextBox{} : box(size.width));
        if (!self->text()->length()) return {0, 0};
        return {std::ceil(exact.width), std::ceil(exact.height)};
    }
    CGSize intrinsicContentSize() { return self()->sizeThatFits({}); }

  private:
    static constexpr CGFloat default_font_size = 17;

    void content_changed() {
        self()->setNeedsDisplay();
        self()->invalidateIntrinsicContentSize();
    }

    sim::TextBox box(CGFloat width) {
        auto* self = this->self();
        return {.width = width, .lines = self->numberOfLines(), .alignment = self->textAlignment()};
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UILabel, UIView, Label,
           method<"initWithFrame:", &Label::initWithFrame>,
           ivar<"_text", &Label::Ivars::text>,
           ivar<"_font", &Label::Ivars::font>,
           ivar<"_textColor", &Label::Ivars::textColor>,
           ivar<"_textAlignment", &Label::Ivars::textAlignment>,
           ivar<"_numberOfLines", &Label::Ivars::numberOfLines>,
           ivar<"_lineBreakMode", &Label::Ivars::lineBreakMode>,
           method<"text", &Label::text>,
           method<"setText:", &Label::setText>,
           method<"font", &Label::font>,
           method<"setFont:", &Label::setFont>,
           method<"textColor", &Label::textColor>,
           method<"setTextColor:", &Label::setTextColor>,
           method<"textAlignment", &Label::textAlignment>,
           method<"setTextAlignment:", &Label::setTextAlignment>,
           method<"numberOfLines", &Label::numberOfLines>,
           method<"setNumberOfLines:", &Label::setNumberOfLines>,
           method<"lineBreakMode", &Label::lineBreakMode>,
           method<"setLineBreakMode:", &Label::setLineBreakMode>,
           method<"drawRect:", &Label::drawRect>,
           method<"drawTextInRect:", &Label::drawTextInRect>,
           method<"sizeThatFits:", &Label::sizeThatFits>,
           method<"intrinsicContentSize", &Label::intrinsicContentSize>)
