// The layer of a single glyph of the keyboard: a plain one, known by its class.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct KeyViewLayer : objc::Implements<KeyViewLayer, _UIKBKeyViewLayer> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(_UIKBKeyViewLayer, CALayer, KeyViewLayer, objc::Row)
