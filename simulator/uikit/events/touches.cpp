#include "uikit/events/touches.h"

#include <memory>

#include "quartzcore/animation/clock.h"
#include "uikit/controllers/screen.h"
#include "uikit/events/UITouch.h"
#include "uikit/scrolling/drag.h"

namespace sim {
namespace {

using objc::strong;

/// The finger while it is down.
struct Contact {
    strong<UITouch> touch;
    strong<UIEvent> event;
    /// A scroll view follows the finger, and what was touched is told no more.
    bool drags = false;
    Drag drag;
};

/// Shared, since whatever is told of a touch may take the finger away.
std::shared_ptr<Contact>& contact() {
    static auto* current = new std::shared_ptr<Contact>;
    return *current;
}

void tell(const Contact& contact) {
    NSSet* touches = contact.event->allTouches();
    UIResponder* view = contact.touch->view();
    switch (contact.touch->phase()) {
        case UITouchPhaseBegan: return view->touchesBegan(touches, contact.event);
        case UITouchPhaseMoved: return view->touchesMoved(touches, contact.event);
        case UITouchPhaseEnded: return view->touchesEnded(touches, contact.event);
        default: return view->touchesCancelled(touches, contact.event);
    }
}

std::shared_ptr<Contact> land(UIWindow* window, CGPoint point) {
    auto landed = std::make_shared<Contact>();
    landed->touch = strong<UITouch>::adopt(UITouch::class_send<"new", UITouch*>());
    landed->event = strong<UIEvent>::adopt(UIEvent::class_send<"new", UIEvent*>());
    auto& state = static_cast<Touch*>(landed->touch.get())->ivars();
    state.window = window;
    state.location = state.previous = point;
    state.timestamp = clock_now();
    // A set retains the touch, and the event the set: they go together when the finger is lifted.
    landed->event->send<"setAllTouches:">(NSSet::setWithObject(landed->touch));
    UIView* hit = window->hitTest(point, landed->event);
    state.view = hit ? hit : static_cast<UIView*>(window);
    return landed;
}

void move(Contact& contact, UITouchPhase phase, CGPoint point) {
    auto& state = static_cast<Touch*>(contact.touch.get())->ivars();
    state.phase = phase;
    state.previous = state.location;
    state.location = point;
    state.timestamp = clock_now();
}

/// A finger that has gone far enough drags a scroll view; what it touched is told that the touch is over.
void drag_if_wanted(Contact& contact) {
    if (contact.drags || !contact.drag.wants_to_begin(contact.touch)) return;
    auto& phase = static_cast<Touch*>(contact.touch.get())->ivars().phase;
    contact.drags = true;
    phase = UITouchPhaseCancelled;
    tell(contact);
    phase = UITouchPhaseMoved;
    contact.drag.begin(contact.touch);
}

}  // namespace

bool move_finger(UITouchPhase phase, CGPoint point, std::string& error) {
    UIWindow* window = screen_window();
    if (!window) {
        error = "nothing is on the screen";
        return false;
    }
    const CGSize screen = window->bounds().size;
    if (!(point.x >= 0 && point.x <= screen.width && point.y >= 0 && point.y <= screen.height)) {
        error = "the point (" + std::to_string(point.x) + ", " + std::to_string(point.y) +
                ") is not on the screen, which is " + std::to_string(screen.width) + " x " +
                std::to_string(screen.height) + " points";
        return false;
    }
    const bool is_down = contact() != nullptr;
    if (is_down == (phase == UITouchPhaseBegan)) {
        error = is_down ? "the finger is down already" : "the finger is not down";
        return false;
    }

    window->layoutIfNeeded();
    if (phase == UITouchPhaseBegan)
        contact() = land(window, point);
    else
        move(*contact(), phase, point);
    const std::shared_ptr<Contact> told = contact();
    // Lifted first: whatever is told of the end may raise, or touch again.
    const bool is_last = phase == UITouchPhaseEnded || phase == UITouchPhaseCancelled;
    if (is_last) contact() = nullptr;
    if (phase == UITouchPhaseMoved) drag_if_wanted(*told);
    if (!told->drags)
        tell(*told);
    else if (is_last)
        told->drag.end();
    else
        told->drag.go_on(told->touch);
    lay_out_screen();
    return true;
}

void cancel_touch() {
    const auto lifted = std::move(contact());
    if (!lifted) return;
    static_cast<Touch*>(lifted->touch.get())->ivars().phase = UITouchPhaseCancelled;
    if (lifted->drags)
        lifted->drag.end();
    else
        tell(*lifted);
}

}  // namespace sim
