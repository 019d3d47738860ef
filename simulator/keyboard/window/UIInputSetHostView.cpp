// The view that holds a keyboard, what is above it and what is behind it: a plain one, known by its class.
#include "keyboard/window/UIInputSetHostView.h"

#include "objc/class.h"

namespace {

struct HostView : objc::Implements<HostView, UIInputSetHostView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIInputSetHostView, UIView, HostView, objc::Row)
