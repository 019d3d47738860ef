// refused: an interface has no data members
#include "platform/foundation.h"

struct HCThing : objc::Interface<HCThing, "HCThing", NSObject> {
#ifndef CORRECTED
    int state;
#endif
};
auto* made = HCThing::alloc();
