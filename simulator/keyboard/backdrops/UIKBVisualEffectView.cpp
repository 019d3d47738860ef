// A backdrop of another name, with nothing of its own. No part of a keyboard has one.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct VisualEffectView : objc::Implements<VisualEffectView, UIKBVisualEffectView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKBVisualEffectView, UIKBBackdropView, VisualEffectView, objc::Row)
