// One finger that is lifted where it landed. Of several taps, each has to follow the last within a third of a
// second.
#include <cmath>

#include "uikit/gestures/UIGestureRecognizer.h"

namespace {

struct Tap : objc::Implements<Tap, UITapGestureRecognizer> {
    struct Ivars {
        CGPoint landing{};
        NSUInteger numberOfTapsRequired = 1, taps = 0;
        double last_time = 0;
    };
    static constexpr CGFloat straying_distance = 45;
    static constexpr double longest_pause = 0.35;

    void touchesBegan(NSSet* touches, UIEvent* event) {
        if (touches->count() != 1) return send<"setState:">(UIGestureRecognizerStateFailed);
        ivars().landing = self()->locationInView(nullptr);
        if (event->timestamp() - ivars().last_time > longest_pause) ivars().taps = 0;
    }
    void touchesMoved(NSSet*, UIEvent*) {
        const CGPoint now = self()->locationInView(nullptr), landing = ivars().landing;
        if (std::hypot(now.x - landing.x, now.y - landing.y) <= straying_distance) return;
        ivars().taps = 0;
        send<"setState:">(UIGestureRecognizerStateFailed);
    }
    void touchesEnded(NSSet*, UIEvent* event) {
        ivars().last_time = event->timestamp();
        if (++ivars().taps < ivars().numberOfTapsRequired) return;
        ivars().taps = 0;
        send<"setState:">(UIGestureRecognizerStateEnded);
    }
    void touchesCancelled(NSSet*, UIEvent*) { send<"setState:">(UIGestureRecognizerStateFailed); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UITapGestureRecognizer, UIGestureRecognizer, Tap,
           ivar<"_landing", &Tap::Ivars::landing>,
           property<"numberOfTapsRequired", &Tap::Ivars::numberOfTapsRequired>,
           ivar<"_taps", &Tap::Ivars::taps>,
           ivar<"_lastTime", &Tap::Ivars::last_time>,
           method<"touchesBegan:withEvent:", &Tap::touchesBegan>,
           method<"touchesMoved:withEvent:", &Tap::touchesMoved>,
           method<"touchesEnded:withEvent:", &Tap::touchesEnded>,
           method<"touchesCancelled:withEvent:", &Tap::touchesCancelled>)
