// The row of the input switcher that says where the keyboard stands, in pictures.
#pragma once
#include "platform/controls.h"
#include "platform/keyboard.h"

/// Its segments are its subviews, side by side.
struct UIInputSwitcherSegmentControl
    : objc::Interface<UIInputSwitcherSegmentControl, "UIInputSwitcherSegmentControl", UIControl> {};

struct UIInputSwitcherSegmentedTableCell
    : objc::Interface<UIInputSwitcherSegmentedTableCell, "UIInputSwitcherSegmentedTableCell",
                      UIInputSwitcherTableCell> {
    UIInputSwitcherSegmentControl* segmentControl() {
        return send<"segmentControl", UIInputSwitcherSegmentControl*>();
    }
};

namespace sim {

/// The segment shows the first image, or the second one while it is selected.
void set_images(UIInputSwitcherTableCellSegmentView* segment, UIImage* original, UIImage* inverted);

}  // namespace sim
