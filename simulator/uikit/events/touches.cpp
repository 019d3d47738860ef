#include "uikit/events/touches.h"

#include <memory>
#include <vector>

#include "quartzcore/animation/clock.h"
#include "uikit/controllers/screen.h"
#include "uikit/events/UITouch.h"
#include "uikit/gestures/watched_touches.h"
#include "uikit/scrolling/drag.h"

namespace sim {
namespace {

using objc::strong;

/// The finger, or two of them, while they are down.
struct Contact {
    std::vector<strong<UITouch>> touches;
    strong<UIEvent> event;
    /// A scroll view follows the finger, and what was touched gets no more of the touch.
    bool drags = false;
    /// A gesture recogniser has taken the touches; what was touched gets no more of them.
    bool is_gesture = false;
    Drag drag;

    UITouch* first() const { return touches.front(); }
    bool is_pair() const { return touches.size() > 1; }
};

/// Shared, since whatever handles a touch may take the finger away.
std::shared_ptr<Contact>& contact() {
    static auto* current = new std::shared_ptr<Contact>;
    return *current;
}

Touch::Ivars& state_of(UITouch* touch) { return static_cast<Touch*>(touch)->ivars(); }

void set_phase(Contact& contact, UITouchPhase phase) {
    for (UITouch* touch : contact.touches) state_of(touch).phase = phase;
}

/// Two fingers reach views that want several, and no others.
void deliver(const Contact& contact) {
    NSSet* touches = contact.event->allTouches();
    UIView* view = contact.first()->view();
    if (contact.is_pair() && !view->isMultipleTouchEnabled()) return;
    switch (contact.first()->phase()) {
        case UITouchPhaseBegan: return view->touchesBegan(touches, contact.event);
        case UITouchPhaseMoved: return view->touchesMoved(touches, contact.event);
        case UITouchPhaseEnded: return view->touchesEnded(touches, contact.event);
        default: return view->touchesCancelled(touches, contact.event);
    }
}

std::shared_ptr<Contact> land(UIWindow* window, const std::vector<CGPoint>& points) {
    auto landed = std::make_shared<Contact>();
    landed->event = strong<UIEvent>::adopt(UIEvent::class_send<"new", UIEvent*>());
    NSSet* all = NSSet::class_send<"set", NSSet*>();
    for (CGPoint point : points) {
        landed->touches.push_back(strong<UITouch>::adopt(UITouch::class_send<"new", UITouch*>()));
        auto& state = state_of(landed->touches.back());
        state.window = window;
        state.location = state.previous = point;
        state.timestamp = clock_now();
        all = all->send<"setByAddingObject:", NSSet*>(static_cast<id>(landed->touches.back().get()));
    }
    // The set retains the touches, and the event the set: they go together when the finger is lifted.
    landed->event->send<"setAllTouches:">(all);
    UIView* hit = window->hitTest(points.front(), landed->event);
    for (UITouch* touch : landed->touches) state_of(touch).view = hit ? hit : static_cast<UIView*>(window);
    return landed;
}

void move(Contact& contact, UITouchPhase phase, const std::vector<CGPoint>& points) {
    for (size_t i = 0; i < contact.touches.size(); ++i) {
        auto& state = state_of(contact.touches[i]);
        state.phase = phase;
        state.previous = state.location;
        state.location = points[i];
        state.timestamp = clock_now();
    }
}

/// The touch is cancelled for what was touched: something else follows the finger now.
void cancel_in_view(Contact& contact) {
    const UITouchPhase phase = contact.first()->phase();
    set_phase(contact, UITouchPhaseCancelled);
    deliver(contact);
    set_phase(contact, phase);
}

/// A finger that has gone far enough drags a scroll view.
void drag_if_wanted(Contact& contact) {
    if (contact.is_gesture || contact.drags || contact.is_pair() ||
        !contact.drag.wants_to_begin(contact.first()))
        return;
    contact.drags = true;
    cancel_in_view(contact);
    contact.drag.begin(contact.first());
}

void give_to_gesture_if_taken(Contact& contact) {
    if (contact.is_gesture || contact.drags || !has_taken_touches()) return;
    contact.is_gesture = true;
    cancel_in_view(contact);
}

bool is_on_screen(CGPoint point, CGSize screen, std::string& error) {
    if (point.x >= 0 && point.x <= screen.width && point.y >= 0 && point.y <= screen.height) return true;
    error = "the point (" + std::to_string(point.x) + ", " + std::to_string(point.y) +
            ") is not on the screen, which is " + std::to_string(screen.width) + " x " +
            std::to_string(screen.height) + " points";
    return false;
}

}  // namespace

bool move_fingers(UITouchPhase phase, const std::vector<CGPoint>& points, std::string& error) {
    UIWindow* window = screen_window();
    if (!window) {
        error = "nothing is on the screen";
        return false;
    }
    for (CGPoint point : points)
        if (!is_on_screen(point, window->bounds().size, error)) return false;
    const bool is_down = contact() != nullptr;
    if (is_down == (phase == UITouchPhaseBegan)) {
        error = is_down ? "the finger is down already" : "the finger is not down";
        return false;
    }
    if (is_down && contact()->touches.size() != points.size()) {
        error = contact()->is_pair() ? "two fingers are down" : "one finger is down";
        return false;
    }

    window->layoutIfNeeded();
    if (phase == UITouchPhaseBegan) {
        contact() = land(window, points);
        watch(contact()->first()->view(), contact()->event->allTouches());
    } else
        move(*contact(), phase, points);
    const std::shared_ptr<Contact> held = contact();
    // Lifted first: whatever handles the end may raise, or touch again.
    const bool is_last = phase == UITouchPhaseEnded || phase == UITouchPhaseCancelled;
    if (is_last) contact() = nullptr;
    struct Forgetting {
        bool is_last;
        ~Forgetting() {
            if (is_last) end_watching();
        }
    } const forgetting{is_last};
    if (!held->drags) notify_recognisers(phase, held->event);
    give_to_gesture_if_taken(*held);
    if (phase == UITouchPhaseMoved) drag_if_wanted(*held);
    if (held->is_gesture) {
    } else if (!held->drags)
        deliver(*held);
    else if (is_last)
        held->drag.end();
    else
        held->drag.go_on(held->first());
    lay_out_screen();
    return true;
}

bool move_finger(UITouchPhase phase, CGPoint point, std::string& error) {
    return move_fingers(phase, {point}, error);
}

void let_finger_wait() {
    const std::shared_ptr<Contact> waiting = contact();
    if (!waiting || waiting->drags) return;
    let_recognisers_wait();
    give_to_gesture_if_taken(*waiting);
}

void cancel_touch() {
    const auto lifted = std::move(contact());
    if (!lifted) return;
    set_phase(*lifted, UITouchPhaseCancelled);
    if (lifted->drags)
        lifted->drag.end();
    else {
        notify_recognisers(UITouchPhaseCancelled, lifted->event);
        if (!lifted->is_gesture) deliver(*lifted);
    }
    end_watching();
}

}  // namespace sim
