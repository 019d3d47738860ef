// What comes with touches: there is one finger, so an event has one touch.
#include "objc/class.h"
#include "platform/application.h"

namespace {

struct Event : objc::Implements<Event, UIEvent> {
    struct Ivars {
        objc::strong<NSSet> allTouches;
    };

    NSTimeInterval timestamp() {
        return static_cast<UITouch*>(static_cast<UIEvent*>(this)->allTouches()->anyObject())->timestamp();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIEvent, NSObject, Event,
           property<"allTouches", &Event::Ivars::allTouches>,
           method<"timestamp", &Event::timestamp>)
