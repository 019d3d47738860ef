// One finger that lies still for a while, and may then be dragged.
#include <cmath>

#include "quartzcore/animation/clock.h"
#include "uikit/gestures/UIGestureRecognizer.h"

namespace {

struct LongPress : objc::Implements<LongPress, UILongPressGestureRecognizer> {
    struct Ivars {
        double minimumPressDuration = 0.5;
        CGFloat allowableMovement = 10;
        CGPoint landing{};
        double landed = 0;
    };

    void touchesBegan(NSSet* touches, UIEvent*) {
        if (touches->count() != 1) return send<"setState:">(UIGestureRecognizerStateFailed);
        ivars().landing = self()->locationInView(nullptr);
        ivars().landed = sim::clock_now();
    }
    void touchesMoved(NSSet*, UIEvent*) {
        if (self()->state() != UIGestureRecognizerStatePossible)
            return send<"setState:">(UIGestureRecognizerStateChanged);
        const CGPoint now = self()->locationInView(nullptr), landing = ivars().landing;
        if (std::hypot(now.x - landing.x, now.y - landing.y) > ivars().allowableMovement)
            send<"setState:">(UIGestureRecognizerStateFailed);
    }
    void touchesEnded(NSSet*, UIEvent*) {
        send<"setState:">(self()->state() == UIGestureRecognizerStatePossible
                              ? UIGestureRecognizerStateFailed
                              : UIGestureRecognizerStateEnded);
    }
    void touchesCancelled(NSSet*, UIEvent*) { send<"setState:">(UIGestureRecognizerStateCancelled); }

    void time_passed() {
        if (self()->state() == UIGestureRecognizerStatePossible &&
            sim::clock_now() - ivars().landed >= ivars().minimumPressDuration)
            send<"setState:">(UIGestureRecognizerStateBegan);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UILongPressGestureRecognizer, UIGestureRecognizer, LongPress,
           property<"minimumPressDuration", &LongPress::Ivars::minimumPressDuration>,
           property<"allowableMovement", &LongPress::Ivars::allowableMovement>,
           ivar<"_landing", &LongPress::Ivars::landing>,
           ivar<"_landed", &LongPress::Ivars::landed>,
           method<"_timePassed", &LongPress::time_passed>,
           method<"touchesBegan:withEvent:", &LongPress::touchesBegan>,
           method<"touchesMoved:withEvent:", &LongPress::touchesMoved>,
           method<"touchesEnded:withEvent:", &LongPress::touchesEnded>,
           method<"touchesCancelled:withEvent:", &LongPress::touchesCancelled>)
