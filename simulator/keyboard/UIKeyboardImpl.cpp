// The keyboard itself, of which the library asks the size.
#include <string>

#include "keyboard/keyboard_metrics.h"
#include "objc/class.h"
#include "platform/keyboard.h"
#include "runtime/not_modelled.h"

namespace {

struct KeyboardImpl : objc::Implements<KeyboardImpl, UIKeyboardImpl> {
    using Ivars = objc::NoIvars;

    // The keys alone, without the bars above and below them.
    static CGSize keyboardSize(Class, NSInteger orientation) {
        switch (orientation) {
            case 1:
            case 2: return sim::keyboard_metrics(false).size;
            case 3:
            case 4: return sim::keyboard_metrics(true).size;
        }
        sim::not_modelled("UIKeyboardImpl", "keyboardSizeForInterfaceOrientation:",
                          "the orientation " + std::to_string(orientation));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardImpl, UIView, KeyboardImpl,
           class_method<"keyboardSizeForInterfaceOrientation:", &KeyboardImpl::keyboardSize>)
