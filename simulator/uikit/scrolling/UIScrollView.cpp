// Scroll views: a part of their content, moved by a finger.
#include "uikit/scrolling/UIScrollView.h"

#include <algorithm>

#include "platform/controls.h"
#include "uikit/navigation/covering_bars.h"

namespace sim {

using objc::strong;

strong<UIScrollView> ScrollView::initWithFrame(CGRect frame) {
    auto self = initialised_by_super<"initWithFrame:">(frame);
    if (self) static_cast<UIView*>(self.get())->setClipsToBounds(true);
    return self;
}

template <objc::Name Message, class... Arguments>
void ScrollView::tell_delegate(Arguments... arguments) {
    const auto delegate = ivars().delegate.get();
    if (delegate->respondsToSelector(objc::selector<Message>()))
        delegate->send<Message>(self(), arguments...);
}

void ScrollView::setContentOffset(CGPoint offset) {
    auto* self = this->self();
    if (self->bounds().origin == offset) return;
    self->setBounds({offset, self->bounds().size});
    self->setNeedsLayout();
    tell_delegate<"scrollViewDidScroll:">();
}

// Automatic means here: on a page of a navigation controller, and not inside another scroll view.
static UIEdgeInsets covered_edges_of(UIScrollView* view) {
    if (view->contentInsetAdjustmentBehavior() != UIScrollViewContentInsetAdjustmentAutomatic) return {};
    for (UIView* above = view->superview(); above; above = above->superview())
        if (as<UIScrollView>(above)) return {};
    if (bar_bottom_above(view) == 0) return {};
    const UIEdgeInsets safe = view->safeAreaInsets();
    return {safe.top, 0, safe.bottom, 0};
}

UIEdgeInsets ScrollView::adjustedContentInset() {
    const UIEdgeInsets& own = ivars().contentInset;
    const UIEdgeInsets covered = covered_edges_of(self());
    return {own.top + covered.top, own.left + covered.left, own.bottom + covered.bottom,
            own.right + covered.right};
}

// What was at the top stays at the top when a bar appears or disappears.
void ScrollView::layoutSubviews() {
    super<"layoutSubviews">();
    const CGFloat covered = covered_edges_of(self()).top, before = ivars().covered_top;
    if (covered == before) return;
    ivars().covered_top = covered;
    const CGPoint offset = self()->contentOffset();
    if (offset.y == -ivars().contentInset.top - before)
        self()->setContentOffset({offset.x, -ivars().contentInset.top - covered});
}

CGPoint ScrollView::lowest_offset() {
    const UIEdgeInsets inset = self()->adjustedContentInset();
    return {-inset.left, -inset.top};
}

CGPoint ScrollView::highest_offset() {
    const CGSize size = self()->bounds().size, content = ivars().contentSize;
    const UIEdgeInsets inset = self()->adjustedContentInset();
    const CGPoint lowest = lowest_offset();
    return {std::max(lowest.x, content.width + inset.right - size.width),
            std::max(lowest.y, content.height + inset.bottom - size.height)};
}

bool ScrollView::scrolls_across() { return highest_offset().x > lowest_offset().x; }
bool ScrollView::scrolls_down() { return highest_offset().y > lowest_offset().y; }

bool ScrollView::touchesShouldCancelInContentView(UIView* view) {
    return !as<UIControl>(view) || as<UIButton>(view);
}

void ScrollView::begin_drag() {
    ivars().dragging = true;
    tell_delegate<"scrollViewWillBeginDragging:">();
}

void ScrollView::drag_to(CGPoint offset) {
    const CGPoint lowest = lowest_offset(), highest = highest_offset();
    self()->setContentOffset(
        {std::clamp(offset.x, lowest.x, highest.x), std::clamp(offset.y, lowest.y, highest.y)});
}

void ScrollView::end_drag() {
    ivars().dragging = false;
    tell_delegate<"scrollViewDidEndDragging:willDecelerate:">(false);
}

}  // namespace sim

using namespace objc::definition;
using sim::ScrollView;

OBJC_CLASS(UIScrollView, UIView, ScrollView,
           method<"initWithFrame:", &ScrollView::initWithFrame>,
           property<"contentSize", &sim::ScrollView::Ivars::contentSize>,
           property<"contentInset", &sim::ScrollView::Ivars::contentInset>,
           ivar<"_scrollEnabled", &sim::ScrollView::Ivars::scrollEnabled>,
           ivar<"_dragging", &sim::ScrollView::Ivars::dragging>,
           property<"bounces", &sim::ScrollView::Ivars::bounces>,
           property<"showsVerticalScrollIndicator", &sim::ScrollView::Ivars::showsVerticalScrollIndicator>,
           property<"showsHorizontalScrollIndicator", &sim::ScrollView::Ivars::showsHorizontalScrollIndicator>,
           property<"delegate", &sim::ScrollView::Ivars::delegate>,
           property<"contentInsetAdjustmentBehavior", &sim::ScrollView::Ivars::contentInsetAdjustmentBehavior>,
           ivar<"_coveredTop", &sim::ScrollView::Ivars::covered_top>,
           property<"alwaysBounceVertical", &sim::ScrollView::Ivars::alwaysBounceVertical>,
           property<"keyboardDismissMode", &sim::ScrollView::Ivars::keyboardDismissMode>,
           method<"adjustedContentInset", &ScrollView::adjustedContentInset>,
           method<"layoutSubviews", &ScrollView::layoutSubviews>,
           method<"contentOffset", &ScrollView::contentOffset>,
           method<"setContentOffset:", &ScrollView::setContentOffset>,
           method<"setContentOffset:animated:", &ScrollView::setContentOffsetAnimated>,
           method<"isScrollEnabled", &ScrollView::isScrollEnabled>,
           method<"setScrollEnabled:", &ScrollView::setScrollEnabled>,
           method<"isDragging", &ScrollView::isDragging>,
           method<"touchesShouldCancelInContentView:", &ScrollView::touchesShouldCancelInContentView>)
