// refused: the selector and the function's parameters disagree
#include "thing.h"

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, method<"setWidth:", &Thing::setWidth>)
#else
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, method<"setWidth", &Thing::setWidth>)
#endif
