// What all animations have: how long, how often, and who is notified.
#include "objc/class.h"
#include "platform/animation.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct Animation : objc::Implements<Animation, CAAnimation> {
    struct Ivars {
        double duration = 0;
        float repeatCount = 0;
        bool autoreverses = false, removedOnCompletion = true;
        strong<CAMediaTimingFunction> timingFunction;
        strong<NSString> fillMode;
        strong<NSObject> delegate;
    };

    static CAAnimation* animation(Class self) {
        return strong<CAAnimation>::adopt(objc::send<"new", CAAnimation*>(reinterpret_cast<id>(self)))
            .autoreleased();
    }
    bool isRemovedOnCompletion() { return ivars().removedOnCompletion; }
    void setRemovedOnCompletion(bool removed) { ivars().removedOnCompletion = removed; }
    NSString* fillMode() { return ivars().fillMode ? ivars().fillMode.get() : "removed"_ns; }
    void setFillMode(NSString* mode) { ivars().fillMode = mode; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CAAnimation, NSObject, Animation,
           class_method<"animation", &Animation::animation>,
           property<"duration", &Animation::Ivars::duration>,
           property<"repeatCount", &Animation::Ivars::repeatCount>,
           property<"autoreverses", &Animation::Ivars::autoreverses>,
           ivar<"_removedOnCompletion", &Animation::Ivars::removedOnCompletion>,
           property<"timingFunction", &Animation::Ivars::timingFunction>,
           ivar<"_fillMode", &Animation::Ivars::fillMode>,
           property<"delegate", &Animation::Ivars::delegate>,
           method<"isRemovedOnCompletion", &Animation::isRemovedOnCompletion>,
           method<"setRemovedOnCompletion:", &Animation::setRemovedOnCompletion>,
           method<"fillMode", &Animation::fillMode>,
           method<"setFillMode:", &Animation::setFillMode>)
