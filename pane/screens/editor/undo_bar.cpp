#include "pane/screens/editor/undo_bar.h"

#include "pane/texts.h"

namespace pane {
namespace {

constexpr CGFloat bar_height = 44, margin = 16, hairline = 0.5;

objc::strong<UIButton> make_button(NSString* title, id target, SEL action, UIView* bar) {
    objc::strong<UIButton> button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->setTitle(title, UIControlStateNormal);
    button->titleLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleBody));
    button->addTarget(target, action, UIControlEventTouchUpInside);
    bar->addSubview(button);
    return button;
}

}  // namespace

UndoBar::UndoBar(UIView* page, id target, SEL undo_action, SEL redo_action) {
    view = UIView::alloc()->initWithFrame({});
    view->setBackgroundColor(UIColor::colorWithWhite(0.97, 1));
    view->layer()->setBorderWidth(hairline);
    view->layer()->setBorderColor(UIColor::colorWithWhite(0.75, 1)->CGColor());
    undo = make_button(text<"Undo">(), target, undo_action, view);
    redo = make_button(text<"Redo">(), target, redo_action, view);
    page->addSubview(view);
}

void UndoBar::show(bool can_undo, bool can_redo) {
    undo->setEnabled(can_undo);
    redo->setEnabled(can_redo);
}

CGFloat UndoBar::lay_out(UIView* page) {
    const CGSize all = page->bounds().size;
    const UIEdgeInsets safe = page->safeAreaInsets();
    const CGFloat tall = bar_height + safe.bottom;
    view->setFrame({{-hairline, all.height - tall}, {all.width + 2 * hairline, tall + hairline}});
    const CGFloat left = safe.left + margin, wide = all.width - safe.left - safe.right - 2 * margin;
    const bool mirrored =
        page->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
    const CGSize halves[] = {undo->sizeThatFits({}), redo->sizeThatFits({})};
    const CGRect at_left{{left, 0}, {halves[mirrored ? 1 : 0].width, bar_height}};
    const CGFloat right_width = halves[mirrored ? 0 : 1].width;
    const CGRect at_right{{left + wide - right_width, 0}, {right_width, bar_height}};
    undo->setFrame(mirrored ? at_right : at_left);
    redo->setFrame(mirrored ? at_left : at_right);
    return tall;
}

}  // namespace pane
