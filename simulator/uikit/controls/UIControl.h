// The implementation of controls: their state, their targets, and the touch that they follow.
#pragma once
#include <memory>
#include <vector>

#include "objc/class.h"
#include "platform/controls.h"

namespace sim {

/// Who is notified of some events, and how.
struct ControlAction {
    objc::weak<NSObject> target;
    /// nil was given, and not an object that has gone since.
    bool asks_responders = false;
    SEL action = nullptr;
    UIControlEvents events = 0;
};

struct Control : objc::Implements<Control, UIControl> {
    struct Ivars {
        /// Each in a place of its own: weak references do not move.
        std::vector<std::unique_ptr<ControlAction>> actions;
        bool enabled = true, selected = false, highlighted = false;
        bool tracking = false, touchInside = false;
    };

    // Targets
    void addTarget(id target, SEL action, UIControlEvents events);
    void removeTarget(id target, SEL action, UIControlEvents events);
    NSSet* allTargets();
    UIControlEvents allControlEvents();
    NSArray* actionsForTarget(id target, UIControlEvents event);
    void sendActionsForControlEvents(UIControlEvents events) { notify(events, nullptr); }
    void sendAction(SEL action, id target, UIEvent* event);

    // State
    UIControlState state();
    bool isEnabled() { return ivars().enabled; }
    void setEnabled(bool enabled);
    bool isSelected() { return ivars().selected; }
    void setSelected(bool selected);
    bool isHighlighted() { return ivars().highlighted; }
    void setHighlighted(bool highlighted);

    // Touches
    bool isTracking() { return ivars().tracking; }
    bool isTouchInside() { return ivars().touchInside; }
    bool goesOnTracking(UITouch*, UIEvent*) { return true; }
    void endTracking(UITouch*, UIEvent*) {}
    void cancelTracking(UIEvent*) {}
    void touchesBegan(NSSet* touches, UIEvent* event);
    void touchesMoved(NSSet* touches, UIEvent* event);
    void touchesEnded(NSSet* touches, UIEvent* event);
    void touchesCancelled(NSSet* touches, UIEvent* event);

  private:
    void notify(UIControlEvents events, UIEvent* event);
    bool holds(UITouch* touch);
    void stop_tracking();
    void show_state();
};

}  // namespace sim
