// A bar over the foot of a page: a sentence, and a button that does something about it.
#pragma once
#include "platform/controls.h"

namespace pane {

class BottomBar {
  public:
    /// In front of everything on the page; the action goes to the target without arguments. Hidden at first.
    void put_on(UIView* page, id target, SEL action);
    void show(NSString* sentence, NSString* title);
    void hide();
    /// For the page's bounds and what its edges cover.
    void lay_out(UIView* page);
    /// What it takes of the page's foot.
    CGFloat height(UIView* page) const;

    objc::strong<UIView> view;
    objc::strong<UILabel> label;
    objc::strong<UIButton> button;
};

}  // namespace pane
