// Pans: recognised when the fingers' centre has moved ten points.
#include <cmath>

#include "uikit/gestures/UIGestureRecognizer.h"

namespace {

struct Pan : objc::Implements<Pan, UIPanGestureRecognizer> {
    struct Ivars {
        /// In the window, where the translation counts from; where the fingers were last, and when.
        CGPoint start{}, last{};
        CGPoint velocity{};
        double last_time = 0;
        NSUInteger minimumNumberOfTouches = 1, maximumNumberOfTouches = NSUIntegerMax;
    };
    static constexpr NSUInteger NSUIntegerMax = ~NSUInteger{0};
    static constexpr CGFloat far_enough = 10;

    CGPoint translationInView(UIView* view) {
        const CGPoint from = in_view(ivars().start, view), to = in_view(ivars().last, view);
        return {to.x - from.x, to.y - from.y};
    }
    void setTranslation(CGPoint translation, UIView* view) {
        const CGPoint now = in_view(ivars().last, view);
        const CGPoint start{now.x - translation.x, now.y - translation.y};
        UIView* window = static_cast<UIView*>(self()->view()->window());
        ivars().start = view ? view->convertPointToView(start, window) : start;
    }
    CGPoint velocityInView(UIView*) { return ivars().velocity; }

    void touchesBegan(NSSet* touches, UIEvent* event) {
        ivars().start = ivars().last = self()->locationInView(nullptr);
        ivars().velocity = {};
        ivars().last_time = event->timestamp();
        const NSUInteger count = touches->count();
        if (count < ivars().minimumNumberOfTouches || count > ivars().maximumNumberOfTouches)
            send<"setState:">(UIGestureRecognizerStateFailed);
    }
    void touchesMoved(NSSet*, UIEvent* event) {
        note(event);
        const CGPoint now = ivars().last, start = ivars().start;
        if (self()->state() != UIGestureRecognizerStatePossible)
            return send<"setState:">(UIGestureRecognizerStateChanged);
        if (std::hypot(now.x - start.x, now.y - start.y) <= far_enough) return;
        ivars().start = now;  // the distance that made it a pan does not count
        send<"setState:">(UIGestureRecognizerStateBegan);
    }
    void touchesEnded(NSSet*, UIEvent* event) {
        note(event);
        send<"setState:">(self()->state() == UIGestureRecognizerStatePossible
                              ? UIGestureRecognizerStateFailed
                              : UIGestureRecognizerStateEnded);
    }
    void touchesCancelled(NSSet*, UIEvent*) { send<"setState:">(UIGestureRecognizerStateCancelled); }

  private:
    CGPoint in_view(CGPoint point, UIView* view) {
        UIView* window = static_cast<UIView*>(self()->view()->window());
        return view && window ? window->convertPointToView(point, view) : point;
    }
    // Between two moves at the same moment of the phone's clock there is no velocity.
    void note(UIEvent* event) {
        const CGPoint now = self()->locationInView(nullptr), last = ivars().last;
        const double seconds = event->timestamp() - ivars().last_time;
        if (seconds > 0) ivars().velocity = {(now.x - last.x) / seconds, (now.y - last.y) / seconds};
        ivars().last = now;
        ivars().last_time = event->timestamp();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIPanGestureRecognizer, UIGestureRecognizer, Pan,
           ivar<"_start", &Pan::Ivars::start>,
           ivar<"_last", &Pan::Ivars::last>,
           ivar<"_velocity", &Pan::Ivars::velocity>,
           ivar<"_lastTime", &Pan::Ivars::last_time>,
           property<"minimumNumberOfTouches", &Pan::Ivars::minimumNumberOfTouches>,
           property<"maximumNumberOfTouches", &Pan::Ivars::maximumNumberOfTouches>,
           method<"translationInView:", &Pan::translationInView>,
           method<"setTranslation:inView:", &Pan::setTranslation>,
           method<"velocityInView:", &Pan::velocityInView>,
           method<"touchesBegan:withEvent:", &Pan::touchesBegan>,
           method<"touchesMoved:withEvent:", &Pan::touchesMoved>,
           method<"touchesEnded:withEvent:", &Pan::touchesEnded>,
           method<"touchesCancelled:withEvent:", &Pan::touchesCancelled>)
