// A view above a keyboard or in its place: a plain one, known by its class.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct InputView : objc::Implements<InputView, UIInputView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIInputView, UIView, InputView, objc::Row)
