// Animations of one property of a layer.
#include "objc/class.h"
#include "platform/animation.h"

namespace {

using objc::strong;

struct PropertyAnimation : objc::Implements<PropertyAnimation, CAPropertyAnimation> {
    struct Ivars {
        strong<NSString> keyPath;
    };

    static CAPropertyAnimation* animationWithKeyPath(Class self, NSString* key_path) {
        auto made = objc::adopt(objc::send<"new", PropertyAnimation*>(reinterpret_cast<id>(self)));
        made->ivars().keyPath = key_path;
        return strong<CAPropertyAnimation>(made.get()).autoreleased();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CAPropertyAnimation, CAAnimation, PropertyAnimation,
           class_method<"animationWithKeyPath:", &PropertyAnimation::animationWithKeyPath>,
           property<"keyPath", &PropertyAnimation::Ivars::keyPath>)
