// refused: the method is of another protocol's interface
#include "thing.h"

struct HCWidening : objc::ProtocolInterface<"HCWidening"> {
    void widen(double by) { send<"widen:">(by); }
};

#ifdef CORRECTED
using Row = declares<"HCWidening", optional<"widen:", &HCWidening::widen>>;
#else
using Row = declares<"HCNarrowing", optional<"widen:", &HCWidening::widen>>;
#endif
OBJC_CLASS(HCThing, NSObject, Thing, ivar<"width", &Thing::Ivars::width>,
           ivar<"visible", &Thing::Ivars::visible>, Row)
