// The implementation of gesture recognisers: their state, and who decides that one may begin.
#pragma once
#include <memory>
#include <vector>

#include "objc/class.h"
#include "platform/gestures.h"

namespace sim {

struct GestureAction {
    objc::weak<NSObject> target;
    SEL action = nullptr;
};

struct GestureRecognizer : objc::Implements<GestureRecognizer, UIGestureRecognizer> {
    struct Ivars {
        std::vector<std::unique_ptr<GestureAction>> actions;
        /// Not owned: the view owns the recogniser.
        UIView* view = nullptr;
        UIGestureRecognizerState state = UIGestureRecognizerStatePossible;
        bool enabled = true, cancelsTouchesInView = true;
        objc::weak<NSObject> delegate;
        /// Those that it watches, while they are down.
        objc::strong<NSSet> touches;
    };

    objc::strong<UIGestureRecognizer> init();
    objc::strong<UIGestureRecognizer> initWithTarget(id target, SEL action);
    void addTarget(id target, SEL action);
    void removeTarget(id target, SEL action);
    UIView* view() { return ivars().view; }
    UIGestureRecognizerState state() { return ivars().state; }
    void setState(UIGestureRecognizerState state);
    bool isEnabled() { return ivars().enabled; }
    void setEnabled(bool enabled);
    NSUInteger numberOfTouches() { return ivars().touches->count(); }
    CGPoint locationInView(UIView* view);
    void heard_touches(NSSet*, UIEvent*) {}
    void reset() {}

    static Ivars& of(UIGestureRecognizer* recogniser) {
        return static_cast<GestureRecognizer*>(recogniser)->ivars();
    }

  private:
    bool may_begin();
    void notify();
};

/// Whether it has recognised its gesture and goes on with it, or has just ended.
inline bool is_recognised(UIGestureRecognizerState state) {
    return state == UIGestureRecognizerStateBegan || state == UIGestureRecognizerStateChanged ||
           state == UIGestureRecognizerStateEnded;
}

}  // namespace sim
