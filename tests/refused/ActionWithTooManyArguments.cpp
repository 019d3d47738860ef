// refused: an action takes at most the sender and its event
#include "thing.h"

namespace {
struct Pressed : objc::Implements<Pressed, HCThing> {
    using Ivars = objc::NoIvars;
#ifdef CORRECTED
    void press(id, id) {}
    SEL pressed() { return action<"press:at:">(); }
#else
    void press(id, id, id) {}
    SEL pressed() { return action<"press:at:by:">(); }
#endif
};
}  // namespace

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Pressed, method<"press:at:", &Pressed::press>)
#else
OBJC_CLASS(HCThing, NSObject, Pressed, method<"press:at:by:", &Pressed::press>)
#endif
