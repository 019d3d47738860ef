// What a key is filled with. In the model's reading every name is a colour's, so that both kinds fill evenly.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct Gradient : objc::Implements<Gradient, UIKBGradient> {
    struct Ivars {
        strong<NSString> flatColorName, name;
    };

    // Through the initialisers, which a hook may have replaced as well.
    static UIKBGradient* gradientWithFlatColor(Class, NSString* color) {
        return UIKBGradient::alloc()->initWithFlatColor(color).autoreleased();
    }
    static UIKBGradient* gradientWithName(Class, NSString* name) {
        return UIKBGradient::alloc()->initWithName(name).autoreleased();
    }

    strong<UIKBGradient> initWithFlatColor(NSString* color) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().flatColorName = color;
        return self;
    }
    strong<UIKBGradient> initWithName(NSString* name) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().name = name;
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBGradient, NSObject, Gradient,
           property<"flatColorName", &Gradient::Ivars::flatColorName>,
           property<"name", &Gradient::Ivars::name>,
           class_method<"gradientWithFlatColor:", &Gradient::gradientWithFlatColor>,
           class_method<"gradientWithName:", &Gradient::gradientWithName>,
           method<"initWithFlatColor:", &Gradient::initWithFlatColor>,
           method<"initWithName:", &Gradient::initWithName>)
