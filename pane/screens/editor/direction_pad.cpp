#include "pane/screens/editor/direction_pad.h"

#include "objc/fast_enumeration.h"
#include "pane/drawing/keyboard_picture.h"
#include "pane/texts.h"

namespace pane {
namespace {

constexpr const char* upwards_arrow = "\u2191";
constexpr NSInteger arrow_count = 8;
constexpr CGFloat cell = DirectionPad::side / 3, arrow_side = 40, diagonal = 0.70710678118654752;

/// In the order of the directions, from 1: where the arrow stands, in cells, and how it is turned from
/// upwards.
struct Arrow {
    CGFloat column, row, cosine, sine;
};
constexpr Arrow arrows[arrow_count] = {
    {1, 0, 1, 0},
    {1, 2, -1, 0},
    {0, 1, 0, -1},
    {2, 1, 0, 1},
    {0, 0, diagonal, -diagonal},
    {2, 0, diagonal, diagonal},
    {0, 2, -diagonal, -diagonal},
    {2, 2, -diagonal, diagonal},
};

NSString* name_of(NSInteger direction) {
    switch (direction) {
        case 1: return text<"Upwards">();
        case 2: return text<"Downwards">();
        case 3: return text<"To the left">();
        case 4: return text<"To the right">();
        case 5: return text<"To the top left">();
        case 6: return text<"To the top right">();
        case 7: return text<"To the bottom left">();
        default: return text<"To the bottom right">();
    }
}

}  // namespace

DirectionPad::DirectionPad(id target, SEL action) {
    constexpr CGRect all{{0, 0}, {side, side}};
    view = UIView::alloc()->initWithFrame(all);
    view->layer()->setCornerRadius(8);
    view->setClipsToBounds(true);
    gradient_ = UIImageView::make<"initWithFrame:">(all);
    view->addSubview(gradient_);
    for (NSInteger direction = 1; direction <= arrow_count; ++direction) {
        const Arrow& arrow = arrows[direction - 1];
        UIButton* button = UIButton::buttonWithType(UIButtonTypeCustom);
        button->setTag(direction);
        button->setTitle(NSString::stringWithUTF8String(upwards_arrow), UIControlStateNormal);
        button->titleLabel()->setFont(UIFont::boldSystemFontOfSize(20));
        button->setFrame({{0, 0}, {arrow_side, arrow_side}});
        button->setCenter({(arrow.column + 0.5) * cell, (arrow.row + 0.5) * cell});
        button->setTransform({arrow.cosine, arrow.sine, -arrow.sine, arrow.cosine, 0, 0});
        button->layer()->setCornerRadius(arrow_side / 2);
        button->setAccessibilityLabel(name_of(direction));
        button->addTarget(target, action, UIControlEventTouchUpInside);
        view->addSubview(button);
    }
}

void DirectionPad::show(HuecraftConfig* theme, NSUInteger direction) {
    constexpr CGRect all{{0, 0}, {side, side}};
    UIGraphicsBeginImageContextWithOptions(all.size, false, 0);
    draw_background(theme, all);
    gradient_->setImage(UIGraphicsGetImageFromCurrentImageContext());
    UIGraphicsEndImageContext();
    objc::for_each<UIView>(view->subviews(), [&](UIView* each) {
        auto* button = as<UIButton>(each);
        if (!button) return;
        const bool chosen = button->tag() == static_cast<NSInteger>(direction);
        button->setBackgroundColor(chosen ? UIColor::whiteColor() : UIColor::colorWithWhite(0, 0.35));
        button->setTitleColor(chosen ? UIColor::blackColor() : UIColor::whiteColor(), UIControlStateNormal);
        button->setAccessibilityTraits(chosen ? UIAccessibilityTraitButton | UIAccessibilityTraitSelected
                                              : UIAccessibilityTraitButton);
    });
}

}  // namespace pane
