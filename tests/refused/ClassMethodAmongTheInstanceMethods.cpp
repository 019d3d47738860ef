// refused: an instance method is a member function
#include "thing.h"

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, class_method<"thing", &Thing::thing>)
#else
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, method<"thing", &Thing::thing>)
#endif
