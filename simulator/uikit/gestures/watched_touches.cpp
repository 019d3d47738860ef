#include "uikit/gestures/watched_touches.h"

#include <algorithm>
#include <vector>

#include "uikit/UIView.h"
#include "uikit/gestures/UIGestureRecognizer.h"

namespace sim {
namespace {

using objc::strong;

std::vector<strong<UIGestureRecognizer>>& watching() {
    static auto* recognisers = new std::vector<strong<UIGestureRecognizer>>;
    return *recognisers;
}

bool wants(UIGestureRecognizer* recogniser, NSSet* touches) {
    auto* delegate = static_cast<NSObject*>(recogniser->delegate());
    if (!delegate->respondsToSelector(objc::selector<"gestureRecognizer:shouldReceiveTouch:">())) return true;
    return delegate->send<"gestureRecognizer:shouldReceiveTouch:", bool>(
        recogniser, static_cast<UITouch*>(touches->anyObject()));
}

bool allows(UIGestureRecognizer* one, UIGestureRecognizer* other) {
    constexpr auto question =
        objc::selector<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:">;
    auto* delegate = static_cast<NSObject*>(one->delegate());
    return delegate->respondsToSelector(question()) &&
           delegate->send<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:", bool>(
               one, other);
}

bool go_together(UIGestureRecognizer* one, UIGestureRecognizer* other) {
    return allows(one, other) || allows(other, one);
}

}  // namespace

void watch(UIView* view, NSSet* touches) {
    for (; view; view = view->superview()) {
        const auto gestures = static_cast<View*>(view)->ivars().gestures;
        for (UIGestureRecognizer* each : gestures)
            if (each->isEnabled() && wants(each, touches)) {
                GestureRecognizer::of(each).touches = touches;
                watching().emplace_back(each);
            }
    }
}

void notify_recognisers(UITouchPhase phase, UIEvent* event) {
    const auto recognisers = watching();
    for (UIGestureRecognizer* each : recognisers) {
        const auto& state = GestureRecognizer::of(each).state;
        NSSet* touches = GestureRecognizer::of(each).touches;
        if (!touches || state == UIGestureRecognizerStateFailed) continue;
        switch (phase) {
            case UITouchPhaseBegan: each->send<"touchesBegan:withEvent:">(touches, event); break;
            case UITouchPhaseMoved: each->send<"touchesMoved:withEvent:">(touches, event); break;
            case UITouchPhaseEnded: each->send<"touchesEnded:withEvent:">(touches, event); break;
            default: each->send<"touchesCancelled:withEvent:">(touches, event);
        }
    }
}

void let_recognisers_wait() {
    const auto recognisers = watching();
    for (UIGestureRecognizer* each : recognisers)
        if (auto* press = as<UILongPressGestureRecognizer>(each)) press->send<"_timePassed">();
}

bool has_taken_touches() {
    return std::any_of(watching().begin(), watching().end(), [](UIGestureRecognizer* each) {
        return is_recognised(each->state()) && each->cancelsTouchesInView();
    });
}

void end_watching() {
    const auto done = std::move(watching());
    watching().clear();
    for (UIGestureRecognizer* each : done) {
        GestureRecognizer::of(each).touches = nullptr;
        GestureRecognizer::of(each).state = UIGestureRecognizerStatePossible;
        each->send<"reset">();
    }
}

void stop_watching(UIGestureRecognizer* recogniser) {
    const strong<UIGestureRecognizer> kept = recogniser;
    if (std::erase_if(watching(), [&](const auto& each) { return each == kept; }) == 0) return;
    const auto state = recogniser->state();
    if (state == UIGestureRecognizerStateBegan || state == UIGestureRecognizerStateChanged)
        recogniser->send<"setState:">(UIGestureRecognizerStateCancelled);
    GestureRecognizer::of(recogniser).touches = nullptr;
    GestureRecognizer::of(recogniser).state = UIGestureRecognizerStatePossible;
}

void others_give_way(UIGestureRecognizer* recogniser) {
    const auto others = watching();
    for (UIGestureRecognizer* each : others)
        if (each != recogniser && each->state() == UIGestureRecognizerStatePossible &&
            !go_together(recogniser, each))
            GestureRecognizer::of(each).state = UIGestureRecognizerStateFailed;
}

}  // namespace sim
