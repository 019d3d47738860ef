// Two fingers that come together or go apart.
#include <cmath>

#include "uikit/gestures/UIGestureRecognizer.h"

namespace {

struct Pinch : objc::Implements<Pinch, UIPinchGestureRecognizer> {
    struct Ivars {
        CGFloat first_distance = 0, distance = 0, velocity = 0;
        double last_time = 0;
    };
    static constexpr CGFloat far_enough = 8;

    CGFloat scale() { return ivars().first_distance > 0 ? ivars().distance / ivars().first_distance : 1; }
    void setScale(CGFloat scale) {
        if (scale > 0) ivars().first_distance = ivars().distance / scale;
    }
    CGFloat velocity() { return ivars().velocity; }

    void touchesBegan(NSSet* touches, UIEvent* event) {
        if (touches->count() != 2) return send<"setState:">(UIGestureRecognizerStateFailed);
        ivars().first_distance = ivars().distance = distance_of(touches);
        ivars().velocity = 0;
        ivars().last_time = event->timestamp();
    }
    void touchesMoved(NSSet* touches, UIEvent* event) {
        note(touches, event);
        if (self()->state() != UIGestureRecognizerStatePossible)
            return send<"setState:">(UIGestureRecognizerStateChanged);
        if (std::abs(ivars().distance - ivars().first_distance) <= far_enough) return;
        send<"setState:">(UIGestureRecognizerStateBegan);
    }
    void touchesEnded(NSSet* touches, UIEvent* event) {
        note(touches, event);
        send<"setState:">(self()->state() == UIGestureRecognizerStatePossible
                              ? UIGestureRecognizerStateFailed
                              : UIGestureRecognizerStateEnded);
    }
    void touchesCancelled(NSSet*, UIEvent*) { send<"setState:">(UIGestureRecognizerStateCancelled); }

  private:
    static CGFloat distance_of(NSSet* touches) {
        NSArray* both = touches->send<"allObjects", NSArray*>();
        const CGPoint a = static_cast<UITouch*>(both->objectAtIndex(0))->locationInView(nullptr);
        const CGPoint b = static_cast<UITouch*>(both->objectAtIndex(1))->locationInView(nullptr);
        return std::hypot(a.x - b.x, a.y - b.y);
    }
    void note(NSSet* touches, UIEvent* event) {
        const CGFloat before = self()->scale();
        ivars().distance = distance_of(touches);
        const double seconds = event->timestamp() - ivars().last_time;
        if (seconds > 0) ivars().velocity = (self()->scale() - before) / seconds;
        ivars().last_time = event->timestamp();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIPinchGestureRecognizer, UIGestureRecognizer, Pinch,
           ivar<"_firstDistance", &Pinch::Ivars::first_distance>,
           ivar<"_distance", &Pinch::Ivars::distance>,
           ivar<"_velocity", &Pinch::Ivars::velocity>,
           ivar<"_lastTime", &Pinch::Ivars::last_time>,
           method<"scale", &Pinch::scale>,
           method<"setScale:", &Pinch::setScale>,
           method<"velocity", &Pinch::velocity>,
           method<"touchesBegan:withEvent:", &Pinch::touchesBegan>,
           method<"touchesMoved:withEvent:", &Pinch::touchesMoved>,
           method<"touchesEnded:withEvent:", &Pinch::touchesEnded>,
           method<"touchesCancelled:withEvent:", &Pinch::touchesCancelled>)
