// refused: the implementation is of another class
#include "thing.h"

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>)
#else
OBJC_CLASS(HCOther, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>)
#endif
