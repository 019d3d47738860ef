// A backdrop that is one plain surface, such as the body of a key's pop-up. In the model's reading it is a
// backdrop view like any other, so that what is asked of those can be asked of it.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct VisualEffectView : objc::Implements<VisualEffectView, UIKBVisualEffectView> {
    using Ivars = objc::NoIvars;

    objc::strong<UIKBVisualEffectView> initWithFrame(CGRect frame, NSInteger style) {
        return initialised_by_super<"initWithFrame:style:">(frame, style);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBVisualEffectView, UIKBBackdropView, VisualEffectView,
           method<"initWithFrame:style:", &VisualEffectView::initWithFrame>)
