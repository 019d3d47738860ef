// Responders: what events are passed along, and how one becomes the first.
#include "objc/class.h"
#include "platform/application.h"
#include "uikit/events/first_responder.h"

namespace {

struct Responder : objc::Implements<Responder, UIResponder> {
    using Ivars = objc::NoIvars;

    UIResponder* nextResponder() { return nullptr; }

    bool isFirstResponder() { return sim::first_responder() == this; }
    bool canBecomeFirstResponder() { return false; }
    bool canResignFirstResponder() { return true; }

    bool becomeFirstResponder() {
        auto* self = this->self();
        if (self->isFirstResponder()) return true;
        if (!self->canBecomeFirstResponder()) return false;
        if (auto* view = as<UIView>(self); view && !view->window()) return false;
        if (UIResponder* other = sim::first_responder(); other && !other->resignFirstResponder())
            return false;
        sim::set_first_responder(self);
        return true;
    }

    bool resignFirstResponder() {
        auto* self = this->self();
        if (!self->isFirstResponder()) return true;
        if (!self->canResignFirstResponder()) return false;
        sim::set_first_responder(nullptr);
        return true;
    }

    template <objc::Name Selector>
    void pass_on(NSSet* touches, UIEvent* event) {
        self()->nextResponder()->send<Selector>(touches, event);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIResponder, NSObject, Responder,
           method<"nextResponder", &Responder::nextResponder>,
           method<"isFirstResponder", &Responder::isFirstResponder>,
           method<"canBecomeFirstResponder", &Responder::canBecomeFirstResponder>,
           method<"canResignFirstResponder", &Responder::canResignFirstResponder>,
           method<"becomeFirstResponder", &Responder::becomeFirstResponder>,
           method<"resignFirstResponder", &Responder::resignFirstResponder>,
           method<"touchesBegan:withEvent:", &Responder::pass_on<"touchesBegan:withEvent:">>,
           method<"touchesMoved:withEvent:", &Responder::pass_on<"touchesMoved:withEvent:">>,
           method<"touchesEnded:withEvent:", &Responder::pass_on<"touchesEnded:withEvent:">>,
           method<"touchesCancelled:withEvent:", &Responder::pass_on<"touchesCancelled:withEvent:">>)
