// refused: a definition lists all of its Ivars
#include "thing.h"

#ifdef CORRECTED
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>)
#else
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>)
#endif
