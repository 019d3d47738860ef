// Animations of one property from one value to another.
#include "objc/class.h"
#include "platform/animation.h"

namespace {

using objc::strong;

struct BasicAnimation : objc::Implements<BasicAnimation, CABasicAnimation> {
    struct Ivars {
        strong<NSString> keyPath;
        strong<NSObject> fromValue, toValue;
    };

    static CABasicAnimation* animationWithKeyPath(Class self, NSString* key_path) {
        auto made = objc::adopt(objc::send<"new", BasicAnimation*>(reinterpret_cast<id>(self)));
        made->ivars().keyPath = key_path;
        return strong<CABasicAnimation>(made.get()).autoreleased();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CABasicAnimation, CAAnimation, BasicAnimation,
           class_method<"animationWithKeyPath:", &BasicAnimation::animationWithKeyPath>,
           property<"keyPath", &BasicAnimation::Ivars::keyPath>,
           property<"fromValue", &BasicAnimation::Ivars::fromValue>,
           property<"toValue", &BasicAnimation::Ivars::toValue>)
