// The views of the colour picker, as they are before they have colours and places.
#pragma once
#include "platform/controls.h"
#include "platform/scrolling.h"

namespace settings {

/// Six round swatches in the panel's strip. The owner is its data source and its delegate.
objc::strong<UICollectionView> make_recent_strip(UIView* strip, id owner);
/// Fills the panel's content area.
objc::strong<UIScrollView> make_scroll_view(UIView* content, double corner_radius);
objc::strong<UIStackView> make_column();
objc::strong<UIImageView> make_preview();
objc::strong<UITextField> make_hex_field(id delegate);
/// The hint at the field's left, and the line at its right side.
objc::strong<UILabel> make_hint();
objc::strong<CALayer> make_hint_border(UILabel* hint);
objc::strong<UIView> make_clipboard_holder();
UIButton* make_clipboard_button(CGRect frame, UIImage* icon, id target, SEL action);

}  // namespace settings
