// refused: an instance method is a member function
#include "objc/class.h"
#include "platform/foundation.h"

struct HCThing : objc::Interface<HCThing, "HCThing", NSObject> {};

namespace {
struct Thing : objc::Implements<Thing, HCThing> {
    struct Ivars {
        double width;
        bool visible;
    };
    void setWidth(double) {}
    static HCThing* thing(Class) { return nullptr; }
};
}  // namespace

using namespace objc::definition;

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, class_method<"thing", &Thing::thing>)
#else
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, method<"thing", &Thing::thing>)
#endif
