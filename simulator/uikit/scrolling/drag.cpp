#include "uikit/scrolling/drag.h"

#include <cmath>

#include "uikit/scrolling/UIScrollView.h"

namespace sim {

bool Drag::wants_to_begin(UITouch* touch) {
    constexpr CGFloat far_enough = 10;
    if (!has_landed_) landing_ = touch->previousLocationInView(nullptr);
    has_landed_ = true;
    const CGPoint now = touch->locationInView(nullptr);
    const bool goes_across = std::abs(now.x - landing_.x) > far_enough;
    const bool goes_down = std::abs(now.y - landing_.y) > far_enough;
    for (UIView* view = touch->view(); view; view = view->superview()) {
        auto* scroll_view = static_cast<ScrollView*>(as<UIScrollView>(view));
        if (!scroll_view || !static_cast<UIScrollView*>(scroll_view)->isScrollEnabled()) continue;
        if (!(goes_across && scroll_view->scrolls_across()) && !(goes_down && scroll_view->scrolls_down()))
            continue;
        if (touch->view() != view &&
            !static_cast<UIScrollView*>(scroll_view)->touchesShouldCancelInContentView(touch->view()))
            return false;
        scrolled_ = static_cast<UIScrollView*>(scroll_view);
        return true;
    }
    return false;
}

// From where the finger is now: the distance that made the touch a drag does not scroll.
void Drag::begin(UITouch* touch) {
    landing_ = touch->locationInView(nullptr);
    offset_ = scrolled_->contentOffset();
    static_cast<ScrollView*>(scrolled_.get())->begin_drag();
}

void Drag::go_on(UITouch* touch) {
    const CGPoint now = touch->locationInView(nullptr);
    static_cast<ScrollView*>(scrolled_.get())
        ->drag_to({offset_.x + landing_.x - now.x, offset_.y + landing_.y - now.y});
}

void Drag::end() { static_cast<ScrollView*>(scrolled_.get())->end_drag(); }

}  // namespace sim
