// The factory of ordinary letters on a phone: of the colours' names it answers none by itself.
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "objc/class.h"

namespace {

struct LettersFactory : objc::Implements<LettersFactory, UIKBRenderFactoryiPhone> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKBRenderFactoryiPhone, UIKBRenderFactory, LettersFactory, objc::Row)
