// The layer of a backdrop: a plain one, known by its class.
#include "keyboard/backdrops/_UIBackdropView.h"
#include "objc/class.h"

namespace {

struct BackdropViewLayer : objc::Implements<BackdropViewLayer, _UIBackdropViewLayer> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(_UIBackdropViewLayer, CALayer, BackdropViewLayer, objc::Row)
