// refused: the class's rows have no method of the action's name
#include "thing.h"

namespace {
struct Pressed : objc::Implements<Pressed, HCThing> {
    using Ivars = objc::NoIvars;
    void press() {}
#ifdef CORRECTED
    SEL pressed() { return action<"press">(); }
#else
    SEL pressed() { return action<"presss">(); }
#endif
};
}  // namespace

OBJC_CLASS(HCThing, NSObject, Pressed, method<"press", &Pressed::press>)
