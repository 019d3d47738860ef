// The input switcher and the web form's accessory bar, which are drawn outside the key renderer.
#pragma once
#include "objc/hook.h"
#include "platform/keyboard.h"

namespace hooks {

void tint_switcher(UIInputSwitcherTableView* self);

using CellInit = objc::strong<UIInputSwitcherTableCell>(NSInteger, NSString*);
objc::strong<UIInputSwitcherTableCell> filter_switcher_label(objc::Previous<CellInit> previous,
                                                             UIInputSwitcherTableCell* self, NSInteger style,
                                                             NSString* reuse_identifier);
void tint_segment_images(UIInputSwitcherTableCellSegmentView* self);
void filter_toolbars(UIWebFormAccessory* self);

}  // namespace hooks
