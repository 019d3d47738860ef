// The bar below the keys: a plain view, known by its class.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct DockView : objc::Implements<DockView, UIKeyboardDockView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKeyboardDockView, UIView, DockView, objc::Row)
