#include "pane/screens/bottom_bar.h"

#include "pane/texts.h"

namespace pane {
namespace {

constexpr CGFloat bar_height = 56, margin = 16, button_width = 110;

}  // namespace

void BottomBar::put_on(UIView* page, id target, SEL action) {
    view = UIView::alloc()->initWithFrame({});
    view->setBackgroundColor(UIColor::colorWithWhite(0.15, 1));
    view->setHidden(true);
    label = UILabel::make<"initWithFrame:">(CGRect{});
    label->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleSubheadline));
    label->setTextColor(UIColor::whiteColor());
    label->setNumberOfLines(2);
    button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->titleLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleHeadline));
    button->setTitleColor(UIColor::colorWithRGB(0.35, 0.7, 1, 1), UIControlStateNormal);
    button->addTarget(target, action, UIControlEventTouchUpInside);
    view->addSubview(label);
    view->addSubview(button);
    page->addSubview(view);
}

void BottomBar::show(NSString* sentence, NSString* title) {
    label->setText(sentence);
    button->setTitle(title, UIControlStateNormal);
    view->setHidden(false);
}

void BottomBar::hide() { view->setHidden(true); }

CGFloat BottomBar::height(UIView* page) const {
    return view->isHidden() ? 0 : bar_height + page->safeAreaInsets().bottom;
}

void BottomBar::lay_out(UIView* page) {
    const CGRect all = page->bounds();
    const UIEdgeInsets safe = page->safeAreaInsets();
    const CGFloat tall = bar_height + safe.bottom;
    const CGFloat left = safe.left + margin, right = all.size.width - safe.right - margin;
    view->setFrame({{0, all.origin.y + all.size.height - tall}, {all.size.width, tall}});
    const bool mirrored =
        page->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
    const CGFloat button_left = mirrored ? left : right - button_width;
    const CGFloat label_left = mirrored ? left + button_width : left;
    button->setFrame({{button_left, 0}, {button_width, bar_height}});
    label->setFrame({{label_left, 0}, {right - left - button_width, bar_height}});
}

}  // namespace pane
