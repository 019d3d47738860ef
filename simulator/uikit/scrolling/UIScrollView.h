// The implementation of scroll views: their state, and being dragged.
#pragma once
#include "objc/class.h"
#include "platform/scrolling.h"

namespace sim {

struct ScrollView : objc::Implements<ScrollView, UIScrollView> {
    struct Ivars {
        CGSize contentSize{};
        UIEdgeInsets contentInset{};
        bool scrollEnabled = true, dragging = false, bounces = true;
        bool showsVerticalScrollIndicator = true, showsHorizontalScrollIndicator = true;
        objc::weak<NSObject> delegate;
        UIScrollViewContentInsetAdjustmentBehavior contentInsetAdjustmentBehavior =
            UIScrollViewContentInsetAdjustmentAutomatic;
        /// How much bars covered at the top when it was last laid out.
        CGFloat covered_top = 0;
        bool alwaysBounceVertical = false;
        NSInteger keyboardDismissMode = 0;
    };

    objc::strong<UIScrollView> initWithFrame(CGRect frame);
    CGPoint contentOffset() { return self()->bounds().origin; }
    void setContentOffset(CGPoint offset);
    UIEdgeInsets adjustedContentInset();
    void layoutSubviews();
    void setContentOffsetAnimated(CGPoint offset, bool) { self()->setContentOffset(offset); }
    bool isScrollEnabled() { return ivars().scrollEnabled; }
    void setScrollEnabled(bool enabled) { ivars().scrollEnabled = enabled; }
    bool isDragging() { return ivars().dragging; }
    bool touchesShouldCancelInContentView(UIView* view);

    /// Whether there is more to see along an axis than there is room for.
    bool scrolls_across();
    bool scrolls_down();
    void begin_drag();
    /// As far as there is something to see: nothing bounces.
    void drag_to(CGPoint offset);
    void end_drag();

  private:
    CGPoint lowest_offset();
    CGPoint highest_offset();
    template <objc::Name Message, class... Arguments>
    void tell_delegate(Arguments... arguments);
};

}  // namespace sim
