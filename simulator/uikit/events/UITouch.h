// The implementation of touches: their state, which what moves the finger fills in.
#pragma once
#include "objc/class.h"
#include "platform/application.h"

namespace sim {

struct Touch : objc::Implements<Touch, UITouch> {
    struct Ivars {
        UITouchPhase phase = UITouchPhaseBegan;
        objc::strong<UIView> view;
        objc::strong<UIWindow> window;
        /// In the window's coordinates.
        CGPoint location{}, previous{};
        NSTimeInterval timestamp = 0;
        NSUInteger tapCount = 1;
    };

    CGPoint locationInView(UIView* view) { return in_view(ivars().location, view); }
    CGPoint previousLocationInView(UIView* view) { return in_view(ivars().previous, view); }

  private:
    CGPoint in_view(CGPoint point, UIView* view) {
        if (!view) return point;
        return static_cast<UIView*>(ivars().window.get())->convertPointToView(point, view);
    }
};

}  // namespace sim
