// Gesture recognisers: what all of them do.
#include "uikit/gestures/UIGestureRecognizer.h"

#include <algorithm>

#include "uikit/UIView.h"
#include "uikit/controls/action.h"
#include "uikit/gestures/watched_touches.h"

namespace sim {

using objc::strong;

strong<UIGestureRecognizer> GestureRecognizer::init() { return self()->initWithTarget(nullptr, nullptr); }

strong<UIGestureRecognizer> GestureRecognizer::initWithTarget(id target, SEL action) {
    auto self = initialised_by_super<"init">();
    if (self && action) self->self()->addTarget(target, action);
    return strong<UIGestureRecognizer>(self.get());
}

void GestureRecognizer::addTarget(id target, SEL action) {
    auto added = std::make_unique<GestureAction>();
    added->target = static_cast<NSObject*>(target);
    added->action = action;
    ivars().actions.push_back(std::move(added));
}

void GestureRecognizer::removeTarget(id target, SEL action) {
    std::erase_if(ivars().actions, [&](const auto& known) {
        return (!target || known->target.get() == target) && (!action || sel_isEqual(known->action, action));
    });
}

// Its targets may change the list.
void GestureRecognizer::notify() {
    struct Call {
        strong<NSObject> target;
        SEL action;
    };
    std::vector<Call> calls;
    for (const auto& known : ivars().actions)
        if (auto target = known->target.get()) calls.push_back({std::move(target), known->action});
    const strong<UIGestureRecognizer> kept = self();
    for (const Call& call : calls) perform_action(call.target, call.action, kept, nullptr);
}

bool GestureRecognizer::may_begin() {
    auto* self = this->self();
    if (!ivars().view->send<"gestureRecognizerShouldBegin:", bool>(self)) return false;
    const auto delegate = ivars().delegate.get();
    return !delegate || !delegate->respondsToSelector(objc::selector<"gestureRecognizerShouldBegin:">()) ||
           delegate->send<"gestureRecognizerShouldBegin:", bool>(self);
}

// A gesture that somebody forbids fails.
void GestureRecognizer::setState(UIGestureRecognizerState state) {
    const auto before = ivars().state;
    const bool begins = before == UIGestureRecognizerStatePossible && is_recognised(state);
    if (begins && !may_begin()) state = UIGestureRecognizerStateFailed;
    if (before == UIGestureRecognizerStatePossible && state == UIGestureRecognizerStateCancelled)
        state = UIGestureRecognizerStateFailed;
    ivars().state = state;
    if (state == UIGestureRecognizerStatePossible || state == UIGestureRecognizerStateFailed) return;
    if (begins) others_give_way(self());
    notify();
}

void GestureRecognizer::setEnabled(bool enabled) {
    ivars().enabled = enabled;
    if (!enabled && ivars().touches) stop_watching(self());
}

CGPoint GestureRecognizer::locationInView(UIView* view) {
    NSArray* touches = ivars().touches->send<"allObjects", NSArray*>();
    const NSUInteger count = touches->count();
    CGPoint middle{};
    for (NSUInteger i = 0; i < count; ++i) {
        const CGPoint point = static_cast<UITouch*>(touches->objectAtIndex(i))->locationInView(view);
        middle.x += point.x / static_cast<CGFloat>(count);
        middle.y += point.y / static_cast<CGFloat>(count);
    }
    return middle;
}

// ---- Views --------------------------------------------------------------------------------------

NSArray* View::gestureRecognizers() {
    const auto& gestures = ivars().gestures;
    if (gestures.empty()) return nullptr;
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(gestures.size());
    for (UIGestureRecognizer* each : gestures) list->addObject(each);
    return NSArray::arrayWithArray(list);
}

void View::addGestureRecognizer(UIGestureRecognizer* recogniser) {
    const strong<UIGestureRecognizer> kept = recogniser;
    if (UIView* other = recogniser->view()) other->removeGestureRecognizer(recogniser);
    GestureRecognizer::of(recogniser).view = self();
    ivars().gestures.push_back(kept);
}

void View::removeGestureRecognizer(UIGestureRecognizer* recogniser) {
    const strong<UIGestureRecognizer> kept = recogniser;
    if (std::erase_if(ivars().gestures, [&](const auto& each) { return each == kept; }) == 0) return;
    stop_watching(recogniser);
    GestureRecognizer::of(recogniser).view = nullptr;
}

}  // namespace sim

using namespace objc::definition;
using sim::GestureRecognizer;

OBJC_CLASS(UIGestureRecognizer, NSObject, GestureRecognizer,
           ivar<"_targets", &GestureRecognizer::Ivars::actions>,
           ivar<"_view", &GestureRecognizer::Ivars::view>,
           ivar<"_state", &GestureRecognizer::Ivars::state>,
           ivar<"_enabled", &GestureRecognizer::Ivars::enabled>,
           property<"cancelsTouchesInView", &GestureRecognizer::Ivars::cancelsTouchesInView>,
           property<"delegate", &GestureRecognizer::Ivars::delegate>,
           ivar<"_touches", &GestureRecognizer::Ivars::touches>,
           method<"init", &GestureRecognizer::init>,
           method<"initWithTarget:action:", &GestureRecognizer::initWithTarget>,
           method<"addTarget:action:", &GestureRecognizer::addTarget>,
           method<"removeTarget:action:", &GestureRecognizer::removeTarget>,
           method<"view", &GestureRecognizer::view>,
           method<"state", &GestureRecognizer::state>,
           method<"setState:", &GestureRecognizer::setState>,
           method<"isEnabled", &GestureRecognizer::isEnabled>,
           method<"setEnabled:", &GestureRecognizer::setEnabled>,
           method<"numberOfTouches", &GestureRecognizer::numberOfTouches>,
           method<"locationInView:", &GestureRecognizer::locationInView>,
           method<"reset", &GestureRecognizer::reset>,
           method<"touchesBegan:withEvent:", &GestureRecognizer::heard_touches>,
           method<"touchesMoved:withEvent:", &GestureRecognizer::heard_touches>,
           method<"touchesEnded:withEvent:", &GestureRecognizer::heard_touches>,
           method<"touchesCancelled:withEvent:", &GestureRecognizer::heard_touches>)
