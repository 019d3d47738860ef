// UIKit's controls: what a person touches, and what then happens.
#pragma once
#include "platform/application.h"

/// Added.
using UIControlEvents = NSUInteger;
constexpr UIControlEvents UIControlEventTouchDown = 1;
constexpr UIControlEvents UIControlEventTouchDownRepeat = 1 << 1;
constexpr UIControlEvents UIControlEventTouchDragInside = 1 << 2;
constexpr UIControlEvents UIControlEventTouchDragOutside = 1 << 3;
constexpr UIControlEvents UIControlEventTouchDragEnter = 1 << 4;
constexpr UIControlEvents UIControlEventTouchDragExit = 1 << 5;
constexpr UIControlEvents UIControlEventTouchUpInside = 1 << 6;
constexpr UIControlEvents UIControlEventTouchUpOutside = 1 << 7;
constexpr UIControlEvents UIControlEventTouchCancel = 1 << 8;
constexpr UIControlEvents UIControlEventValueChanged = 1 << 12;
constexpr UIControlEvents UIControlEventEditingDidBegin = 1 << 16;
constexpr UIControlEvents UIControlEventEditingChanged = 1 << 17;
constexpr UIControlEvents UIControlEventEditingDidEnd = 1 << 18;
constexpr UIControlEvents UIControlEventEditingDidEndOnExit = 1 << 19;

/// Added; 0 is normal.
using UIControlState = NSUInteger;
constexpr UIControlState UIControlStateNormal = 0;
constexpr UIControlState UIControlStateHighlighted = 1;
constexpr UIControlState UIControlStateDisabled = 2;
constexpr UIControlState UIControlStateSelected = 4;

struct UIControl : objc::Interface<UIControl, "UIControl", UIView> {
    /// The target is not retained; once it is gone, nothing happens. nil asks the responders. The action
    /// takes nothing, the sender, or the sender and the UIEvent.
    void addTarget(id target, SEL action, UIControlEvents events) {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
    /// nil and NULL stand for every target and every action.
    void removeTarget(id target, SEL action, UIControlEvents events) {
        send<"removeTarget:action:forControlEvents:">(target, action, events);
    }
    /// NSNull for targets that are nil.
    NSSet* allTargets() { return send<"allTargets", NSSet*>(); }
    UIControlEvents allControlEvents() { return send<"allControlEvents", UIControlEvents>(); }
    /// Names of selectors; nil when there is none. `event` is one.
    NSArray* actionsForTarget(id target, UIControlEvents event) {
        return send<"actionsForTarget:forControlEvent:", NSArray*>(target, event);
    }
    void sendActionsForControlEvents(UIControlEvents events) { send<"sendActionsForControlEvents:">(events); }
    void sendAction(SEL action, id target, UIEvent* event) {
        send<"sendAction:to:forEvent:">(action, target, event);
    }

    UIControlState state() { return send<"state", UIControlState>(); }
    bool isEnabled() { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) { send<"setEnabled:">(enabled); }
    bool isSelected() { return send<"isSelected", bool>(); }
    void setSelected(bool selected) { send<"setSelected:">(selected); }
    bool isHighlighted() { return send<"isHighlighted", bool>(); }
    void setHighlighted(bool highlighted) { send<"setHighlighted:">(highlighted); }

    /// Whether a finger that began in the control is down, and whether it is still inside.
    bool isTracking() { return send<"isTracking", bool>(); }
    bool isTouchInside() { return send<"isTouchInside", bool>(); }
    /// Whether the control goes on with the touch.
    bool beginTracking(UITouch* touch, UIEvent* event) {
        return send<"beginTrackingWithTouch:withEvent:", bool>(touch, event);
    }
    bool continueTracking(UITouch* touch, UIEvent* event) {
        return send<"continueTrackingWithTouch:withEvent:", bool>(touch, event);
    }
    void endTracking(UITouch* touch, UIEvent* event) {
        send<"endTrackingWithTouch:withEvent:">(touch, event);
    }
    void cancelTracking(UIEvent* event) { send<"cancelTrackingWithEvent:">(event); }
};
