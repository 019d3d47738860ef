// A button of the dock, in everything that the model has an ordinary button.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct DockItemButton : objc::Implements<DockItemButton, UIKeyboardDockItemButton> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKeyboardDockItemButton, UIButton, DockItemButton, objc::Row)
