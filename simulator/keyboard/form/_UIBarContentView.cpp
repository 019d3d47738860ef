// The part of a bar that holds its buttons: a plain view, known by its class.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct BarContentView : objc::Implements<BarContentView, _UIBarContentView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(_UIBarContentView, UIView, BarContentView, objc::Row)
