// Text fields: what they show and where, and the list of their methods.
#include "uikit/controls/UITextField.h"

#include <algorithm>
#include <cmath>

#include "runtime/not_modelled.h"
#include "uikit/text_layout.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

namespace {

constexpr CGFloat font_size = 17;
/// From the edge of a field with a border to its text.
constexpr CGFloat bordered_inset = 7;
constexpr CGFloat caret_width = 2;

strong<NSString> copy_of(NSString* text) {
    return strong<NSString>::adopt((text ? text : ""_ns)->send<"copy", NSString*>());
}

}  // namespace

strong<UITextField> TextField::initWithFrame(CGRect frame) {
    auto self = initialised_by_super<"initWithFrame:">(frame);
    if (!self) return nullptr;
    auto& ivars = self->ivars();
    ivars.text = ""_ns;
    ivars.font = UIFont::systemFontOfSize(font_size);
    ivars.textColor = UIColor::blackColor();
    auto* view = static_cast<UIView*>(self.get());
    view->setContentMode(UIViewContentModeRedraw);
    view->setOpaque(false);
    return self;
}

void TextField::content_changed() {
    auto* self = this->self();
    self->setNeedsDisplay();
    self->setNeedsLayout();
    self->invalidateIntrinsicContentSize();
}

void TextField::setText(NSString* text) {
    ivars().text = copy_of(text);
    ivars().selection = {ivars().text->length(), 0};
    content_changed();
}

void TextField::setPlaceholder(NSString* placeholder) {
    ivars().placeholder = strong<NSString>::adopt(placeholder->send<"copy", NSString*>());
    content_changed();
}

void TextField::setFont(UIFont* font) {
    ivars().font = font ? font : UIFont::systemFontOfSize(font_size);
    content_changed();
}

void TextField::setTextColor(UIColor* color) {
    ivars().textColor = color ? color : UIColor::blackColor();
    self()->setNeedsDisplay();
}

void TextField::setTextAlignment(NSTextAlignment alignment) {
    ivars().textAlignment = alignment;
    self()->setNeedsDisplay();
}

void TextField::setBorderStyle(UITextBorderStyle style) {
    if (style != UITextBorderStyleNone && style != UITextBorderStyleRoundedRect)
        not_modelled("UITextField", "setBorderStyle:", "a style other than none (0) and rounded (3)");
    ivars().borderStyle = style;
    content_changed();
}

void TextField::tintColorDidChange() {
    super<"tintColorDidChange">();
    self()->setNeedsDisplay();
}

// ---- Where ----------------------------------------------------------------------------------------------

void TextField::replace(strong<UIView>& side, UIView* view) {
    const strong<UIView> old = side;
    if (old != view && old->superview() == this) old->removeFromSuperview();
    side = view;
    content_changed();
    self()->layoutIfNeeded();
}

void TextField::change(UITextFieldViewMode& mode, UITextFieldViewMode wanted) {
    mode = wanted;
    content_changed();
}

bool TextField::shows(UIView* view, UITextFieldViewMode mode) {
    if (!view) return false;
    switch (mode) {
        case UITextFieldViewModeWhileEditing: return self()->isEditing();
        case UITextFieldViewModeUnlessEditing: return !self()->isEditing();
        case UITextFieldViewModeAlways: return true;
        default: return false;
    }
}

// A view at the side keeps its size, and stands in the middle of the height.
CGRect TextField::leftViewRectForBounds(CGRect bounds) {
    if (!shows(ivars().leftView, ivars().leftViewMode)) return {bounds.origin, {0, 0}};
    const CGSize size = ivars().leftView->bounds().size;
    return {{bounds.origin.x, bounds.origin.y + (bounds.size.height - size.height) / 2}, size};
}

CGRect TextField::rightViewRectForBounds(CGRect bounds) {
    const CGFloat right = bounds.origin.x + bounds.size.width;
    if (!shows(ivars().rightView, ivars().rightViewMode)) return {{right, bounds.origin.y}, {0, 0}};
    const CGSize size = ivars().rightView->bounds().size;
    return {{right - size.width, bounds.origin.y + (bounds.size.height - size.height) / 2}, size};
}

CGRect TextField::textRectForBounds(CGRect bounds) {
    auto* self = this->self();
    const CGFloat left = self->leftViewRectForBounds(bounds).size.width;
    const CGFloat right = self->rightViewRectForBounds(bounds).size.width;
    const CGFloat inset = ivars().borderStyle == UITextBorderStyleNone ? 0 : bordered_inset;
    return {{bounds.origin.x + left + inset, bounds.origin.y},
            {std::max(0.0, bounds.size.width - left - right - 2 * inset), bounds.size.height}};
}

void TextField::layoutSubviews() {
    super<"layoutSubviews">();
    auto* self = this->self();
    auto place = [&](UIView* view, UITextFieldViewMode mode, CGRect frame) {
        if (!shows(view, mode)) {
            if (view && view->superview() == self) view->removeFromSuperview();
            return;
        }
        if (view->superview() != self) self->addSubview(view);
        view->setFrame(frame);
    };
    const CGRect bounds = self->bounds();
    place(ivars().leftView, ivars().leftViewMode, self->leftViewRectForBounds(bounds));
    place(ivars().rightView, ivars().rightViewMode, self->rightViewRectForBounds(bounds));
}

CGSize TextField::sizeThatFits(CGSize) {
    auto* self = this->self();
    NSString* shown = self->text()->length() ? self->text() : self->placeholder();
    const CGSize text = size_of_text(shown, self->font(), {});
    const CGRect wide{{0, 0}, {1000, 100}};
    const CGFloat beside = wide.size.width - self->textRectForBounds(wide).size.width;
    constexpr CGFloat bordered_height = 30;
    CGFloat height = std::ceil(text.height);
    if (ivars().borderStyle != UITextBorderStyleNone) height = std::max(bordered_height, height);
    return {std::ceil(text.width) + beside, height};
}

CGSize TextField::intrinsicContentSize() { return self()->sizeThatFits({}); }

// ---- Drawing --------------------------------------------------------------------------------------------

void TextField::drawRect(CGRect) {
    auto* self = this->self();
    CGContextRef context = UIGraphicsGetCurrentContext();
    const CGRect bounds = self->bounds();
    if (ivars().borderStyle == UITextBorderStyleRoundedRect) {
        auto* outline =
            UIBezierPath::bezierPathWithRoundedRect({{bounds.origin.x + 0.25, bounds.origin.y + 0.25},
                                                     {bounds.size.width - 0.5, bounds.size.height - 0.5}},
                                                    5);
        UIColor::whiteColor()->setFill();
        outline->fill();
        outline->setLineWidth(0.5);
        UIColor::colorWithWhite(0.8, 1)->setStroke();
        outline->stroke();
    }

    const CGRect rect = self->textRectForBounds(bounds);
    NSString* text = self->text();
    const bool is_empty = !text->length();
    const TextLayout layout(is_empty ? self->placeholder() : text, self->font(),
                            {.width = rect.size.width, .alignment = self->textAlignment()});
    const CGFloat height = layout.size().height;
    const CGFloat top = rect.origin.y + (rect.size.height - height) / 2;
    const bool edits = self->isEditing();
    const NSRange selection = ivars().selection;
    auto x_of = [&](NSUInteger index) {
        if (!is_empty) return rect.origin.x + layout.caret_offset(text, index);
        const CGFloat room = rect.size.width;
        if (self->textAlignment() == NSTextAlignmentCenter) return rect.origin.x + room / 2;
        return rect.origin.x + (self->textAlignment() == NSTextAlignmentRight ? room : 0);
    };

    CGContextSaveGState(context);
    CGContextClipToRect(context, rect);
    if (edits && selection.length) {
        const CGFloat left = x_of(selection.location), right = x_of(selection.location + selection.length);
        self->tintColor()->colorWithAlphaComponent(0.2)->setFill();
        CGContextFillRect(context, {{left, top}, {right - left, height}});
    }
    UIColor* const placeholder_color = UIColor::colorWithRGB(0, 0, 0.098, 0.22);
    UIColor* const color = is_empty ? placeholder_color : self->textColor();
    layout.draw(context, {rect.origin.x, top}, color->CGColor());
    if (edits && !selection.length) {
        const CGFloat rightmost = rect.origin.x + rect.size.width - caret_width;
        const CGFloat x = std::clamp(x_of(selection.location) - caret_width / 2, rect.origin.x,
                                     std::max(rect.origin.x, rightmost));
        self->tintColor()->setFill();
        CGContextFillRect(context, {{x, top}, {caret_width, height}});
    }
    CGContextRestoreGState(context);
}

}  // namespace sim

using namespace objc::definition;
using sim::TextField;

OBJC_CLASS(UITextField, UIControl, TextField,
           method<"initWithFrame:", &TextField::initWithFrame>,
           ivar<"_text", &sim::TextField::Ivars::text>,
           ivar<"_placeholder", &sim::TextField::Ivars::placeholder>,
           ivar<"_font", &sim::TextField::Ivars::font>,
           ivar<"_textColor", &sim::TextField::Ivars::textColor>,
           ivar<"_textAlignment", &sim::TextField::Ivars::textAlignment>,
           ivar<"_borderStyle", &sim::TextField::Ivars::borderStyle>,
           property<"delegate", &sim::TextField::Ivars::delegate>,
           ivar<"_leftView", &sim::TextField::Ivars::leftView>,
           ivar<"_rightView", &sim::TextField::Ivars::rightView>,
           ivar<"_leftViewMode", &sim::TextField::Ivars::leftViewMode>,
           ivar<"_rightViewMode", &sim::TextField::Ivars::rightViewMode>,
           ivar<"_selection", &sim::TextField::Ivars::selection>,
           property<"returnKeyType", &sim::TextField::Ivars::returnKeyType>,
           property<"keyboardType", &sim::TextField::Ivars::keyboardType>,
           property<"autocorrectionType", &sim::TextField::Ivars::autocorrectionType>,
           property<"autocapitalizationType", &sim::TextField::Ivars::autocapitalizationType>,
           method<"text", &TextField::text>,
           method<"setText:", &TextField::setText>,
           method<"placeholder", &TextField::placeholder>,
           method<"setPlaceholder:", &TextField::setPlaceholder>,
           method<"font", &TextField::font>,
           method<"setFont:", &TextField::setFont>,
           method<"textColor", &TextField::textColor>,
           method<"setTextColor:", &TextField::setTextColor>,
           method<"textAlignment", &TextField::textAlignment>,
           method<"setTextAlignment:", &TextField::setTextAlignment>,
           method<"borderStyle", &TextField::borderStyle>,
           method<"setBorderStyle:", &TextField::setBorderStyle>,
           method<"tintColorDidChange", &TextField::tintColorDidChange>,
           method<"drawRect:", &TextField::drawRect>,
           method<"leftView", &TextField::leftView>,
           method<"setLeftView:", &TextField::setLeftView>,
           method<"leftViewMode", &TextField::leftViewMode>,
           method<"setLeftViewMode:", &TextField::setLeftViewMode>,
           method<"rightView", &TextField::rightView>,
           method<"setRightView:", &TextField::setRightView>,
           method<"rightViewMode", &TextField::rightViewMode>,
           method<"setRightViewMode:", &TextField::setRightViewMode>,
           method<"textRectForBounds:", &TextField::textRectForBounds>,
           method<"editingRectForBounds:", &TextField::textRectForBounds>,
           method<"placeholderRectForBounds:", &TextField::textRectForBounds>,
           method<"leftViewRectForBounds:", &TextField::leftViewRectForBounds>,
           method<"rightViewRectForBounds:", &TextField::rightViewRectForBounds>,
           method<"layoutSubviews", &TextField::layoutSubviews>,
           method<"sizeThatFits:", &TextField::sizeThatFits>,
           method<"intrinsicContentSize", &TextField::intrinsicContentSize>,
           method<"isEditing", &TextField::isEditing>,
           method<"canBecomeFirstResponder", &TextField::canBecomeFirstResponder>,
           method<"becomeFirstResponder", &TextField::becomeFirstResponder>,
           method<"resignFirstResponder", &TextField::resignFirstResponder>,
           method<"endTrackingWithTouch:withEvent:", &TextField::endTracking>,
           method<"hasText", &TextField::hasText>,
           method<"insertText:", &TextField::insertText>,
           method<"deleteBackward", &TextField::deleteBackward>)
