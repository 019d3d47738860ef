// The part of a backdrop that blurs what lies behind it.
#include "keyboard/backdrops/_UIBackdropView.h"
#include "objc/class.h"
#include "quartzcore/CABackdropLayer.h"

namespace {

struct EffectView : objc::Implements<EffectView, _UIBackdropEffectView> {
    using Ivars = objc::NoIvars;

    static Class layerClass(Class) { return CABackdropLayer::class_object(); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(_UIBackdropEffectView, UIView, EffectView,
           class_method<"layerClass", &EffectView::layerClass>)
