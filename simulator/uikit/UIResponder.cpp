// Responders: what events are passed along.
#include "objc/class.h"
#include "platform/uikit.h"

namespace {

struct Responder : objc::Implements<Responder, UIResponder> {
    using Ivars = objc::NoIvars;

    UIResponder* nextResponder() { return nullptr; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIResponder, NSObject, Responder, method<"nextResponder", &Responder::nextResponder>)
