// Controls: targets and actions, states, and following a touch.
#include "uikit/controls/UIControl.h"

#include <algorithm>

namespace sim {

using objc::strong;

namespace {

bool matches(const ControlAction& known, id target, SEL action) {
    const auto found = known.target.get();
    if (target ? found != target : !known.asks_responders) return false;
    return sel_isEqual(known.action, action);
}

}  // namespace

// ---- Targets ------------------------------------------------------------------------------------

void Control::addTarget(id target, SEL action, UIControlEvents events) {
    if (!action) return;
    auto& actions = ivars().actions;
    std::erase_if(actions, [](const auto& known) { return !known->asks_responders && !known->target.get(); });
    for (const auto& known : actions)
        if (matches(*known, target, action)) {
            known->events |= events;
            return;
        }
    auto added = std::make_unique<ControlAction>();
    added->target = static_cast<NSObject*>(target);
    added->asks_responders = !target;
    added->action = action;
    added->events = events;
    actions.push_back(std::move(added));
}

void Control::removeTarget(id target, SEL action, UIControlEvents events) {
    auto& actions = ivars().actions;
    for (const auto& known : actions)
        if ((!target || known->target.get() == target) && (!action || sel_isEqual(known->action, action)))
            known->events &= ~events;
    std::erase_if(actions, [](const auto& known) { return !known->events; });
}

NSSet* Control::allTargets() {
    auto* targets = NSSet::class_send<"set", NSSet*>();
    for (const auto& known : ivars().actions) {
        const auto target = known->target.get();
        id listed = target ? static_cast<id>(target) : static_cast<id>(NSNull::null());
        if (target || known->asks_responders) targets = targets->send<"setByAddingObject:", NSSet*>(listed);
    }
    return targets;
}

UIControlEvents Control::allControlEvents() {
    UIControlEvents events = 0;
    for (const auto& known : ivars().actions) events |= known->events;
    return events;
}

NSArray* Control::actionsForTarget(id target, UIControlEvents event) {
    NSMutableArray* names = NSMutableArray::arrayWithCapacity(1);
    for (const auto& known : ivars().actions)
        if (known->events & event && matches(*known, target, known->action))
            names->addObject(NSString::stringWithUTF8String(sel_getName(known->action)));
    return names->count() ? names : nullptr;
}

void Control::sendAction(SEL action, id target, UIEvent* event) {
    UIApplication::sharedApplication()->sendAction(action, target, this, event);
}

// A target may change the list, and may let go of the control.
void Control::notify(UIControlEvents events, UIEvent* event) {
    struct Call {
        strong<NSObject> target;
        SEL action;
    };
    std::vector<Call> calls;
    for (const auto& known : ivars().actions) {
        auto target = known->target.get();
        if (known->events & events && (target || known->asks_responders))
            calls.push_back({std::move(target), known->action});
    }
    const strong<UIControl> kept = self();
    for (const Call& call : calls) kept->sendAction(call.action, call.target, event);
}

// ---- State --------------------------------------------------------------------------------------

UIControlState Control::state() {
    auto* self = this->self();
    return (self->isHighlighted() ? UIControlStateHighlighted : 0) |
           (self->isEnabled() ? 0 : UIControlStateDisabled) |
           (self->isSelected() ? UIControlStateSelected : 0);
}

void Control::show_state() {
    auto* self = this->self();
    self->setNeedsLayout();
    self->setNeedsDisplay();
}

void Control::setEnabled(bool enabled) {
    ivars().enabled = enabled;
    show_state();
}

void Control::setSelected(bool selected) {
    ivars().selected = selected;
    show_state();
}

void Control::setHighlighted(bool highlighted) {
    ivars().highlighted = highlighted;
    show_state();
}

// ---- Touches ------------------------------------------------------------------------------------

// A finger that landed inside may stray this far before it counts as outside.
constexpr CGFloat straying_distance = 70;

bool Control::holds(UITouch* touch) {
    auto* self = this->self();
    const CGPoint point = touch->locationInView(self);
    if (self->pointInside(point, nullptr)) return true;
    const CGRect bounds = self->bounds();
    const CGFloat beyond_x =
        std::max(bounds.origin.x - point.x, point.x - bounds.origin.x - bounds.size.width);
    const CGFloat beyond_y =
        std::max(bounds.origin.y - point.y, point.y - bounds.origin.y - bounds.size.height);
    return std::max(beyond_x, beyond_y) <= straying_distance;
}

void Control::stop_tracking() {
    ivars().tracking = ivars().touchInside = false;
    self()->setHighlighted(false);
}

void Control::touchesBegan(NSSet* touches, UIEvent* event) {
    auto* self = this->self();
    auto* touch = static_cast<UITouch*>(touches->anyObject());
    if (!self->isEnabled()) return;
    ivars().tracking = ivars().touchInside = true;
    self->setHighlighted(true);
    const bool goes_on = self->beginTracking(touch, event);
    notify(UIControlEventTouchDown, event);
    if (!goes_on) stop_tracking();
}

void Control::touchesMoved(NSSet* touches, UIEvent* event) {
    auto* self = this->self();
    auto* touch = static_cast<UITouch*>(touches->anyObject());
    if (!ivars().tracking) return;
    const bool was_inside = ivars().touchInside, is_inside = holds(touch);
    ivars().touchInside = is_inside;
    if (was_inside != is_inside) self->setHighlighted(is_inside);
    const bool goes_on = self->continueTracking(touch, event);
    if (was_inside != is_inside)
        notify(is_inside ? UIControlEventTouchDragEnter : UIControlEventTouchDragExit, event);
    notify(is_inside ? UIControlEventTouchDragInside : UIControlEventTouchDragOutside, event);
    if (!goes_on) stop_tracking();
}

void Control::touchesEnded(NSSet* touches, UIEvent* event) {
    auto* self = this->self();
    auto* touch = static_cast<UITouch*>(touches->anyObject());
    if (!ivars().tracking) return;
    const bool is_inside = holds(touch);
    stop_tracking();
    self->endTracking(touch, event);
    notify(is_inside ? UIControlEventTouchUpInside : UIControlEventTouchUpOutside, event);
}

void Control::touchesCancelled(NSSet*, UIEvent* event) {
    if (!ivars().tracking) return;
    stop_tracking();
    self()->cancelTracking(event);
    notify(UIControlEventTouchCancel, event);
}

}  // namespace sim

using namespace objc::definition;
using sim::Control;

OBJC_CLASS(UIControl, UIView, Control,
           ivar<"_actions", &sim::Control::Ivars::actions>,
           ivar<"_enabled", &sim::Control::Ivars::enabled>,
           ivar<"_selected", &sim::Control::Ivars::selected>,
           ivar<"_highlighted", &sim::Control::Ivars::highlighted>,
           ivar<"_tracking", &sim::Control::Ivars::tracking>,
           ivar<"_touchInside", &sim::Control::Ivars::touchInside>,
           method<"addTarget:action:forControlEvents:", &Control::addTarget>,
           method<"removeTarget:action:forControlEvents:", &Control::removeTarget>,
           method<"allTargets", &Control::allTargets>,
           method<"allControlEvents", &Control::allControlEvents>,
           method<"actionsForTarget:forControlEvent:", &Control::actionsForTarget>,
           method<"sendActionsForControlEvents:", &Control::sendActionsForControlEvents>,
           method<"sendAction:to:forEvent:", &Control::sendAction>,
           method<"state", &Control::state>,
           method<"isEnabled", &Control::isEnabled>,
           method<"setEnabled:", &Control::setEnabled>,
           method<"isSelected", &Control::isSelected>,
           method<"setSelected:", &Control::setSelected>,
           method<"isHighlighted", &Control::isHighlighted>,
           method<"setHighlighted:", &Control::setHighlighted>,
           method<"isTracking", &Control::isTracking>,
           method<"isTouchInside", &Control::isTouchInside>,
           method<"beginTrackingWithTouch:withEvent:", &Control::goesOnTracking>,
           method<"continueTrackingWithTouch:withEvent:", &Control::goesOnTracking>,
           method<"endTrackingWithTouch:withEvent:", &Control::endTracking>,
           method<"cancelTrackingWithEvent:", &Control::cancelTracking>,
           method<"touchesBegan:withEvent:", &Control::touchesBegan>,
           method<"touchesMoved:withEvent:", &Control::touchesMoved>,
           method<"touchesEnded:withEvent:", &Control::touchesEnded>,
           method<"touchesCancelled:withEvent:", &Control::touchesCancelled>)
