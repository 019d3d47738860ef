// A class that Settings does not show.
#include "objc/class.h"
#include "platform/foundation.h"

struct NotAPage : objc::Interface<NotAPage, "NotAPage", NSObject> {};

namespace {

struct Other : objc::Implements<Other, NotAPage> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(NotAPage, NSObject, Other, objc::Row)
