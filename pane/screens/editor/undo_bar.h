// The bar at the editor's foot: undo and redo.
#pragma once
#include "platform/controls.h"

namespace pane {

class UndoBar {
  public:
    UndoBar(UIView* page, id target, SEL undo, SEL redo);
    void show(bool can_undo, bool can_redo);
    /// Answers what it takes of the page's foot.
    CGFloat lay_out(UIView* page);

    objc::strong<UIView> view;
    objc::strong<UIButton> undo, redo;
};

}  // namespace pane
