// Animations of one property from one value to another.
#include "objc/class.h"
#include "platform/animation.h"

namespace {

using objc::strong;

struct BasicAnimation : objc::Implements<BasicAnimation, CABasicAnimation> {
    struct Ivars {
        strong<NSObject> fromValue, toValue;
    };
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CABasicAnimation, CAPropertyAnimation, BasicAnimation,
           property<"fromValue", &BasicAnimation::Ivars::fromValue>,
           property<"toValue", &BasicAnimation::Ivars::toValue>)
