// A soft shadow behind a key.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct ShadowEffect : objc::Implements<ShadowEffect, UIKBShadowEffect> {
    struct Ivars {
        strong<NSString> colorName;
        CGSize offset;
        UIEdgeInsets insets;
        CGFloat weight;
    };

    static UIKBShadowEffect* effect(Class, NSString* color, CGSize offset, UIEdgeInsets insets,
                                    CGFloat weight) {
        return UIKBShadowEffect::alloc()->initWithColor(color, offset, insets, weight).autoreleased();
    }

    strong<UIKBShadowEffect> initWithColor(NSString* color, CGSize offset, UIEdgeInsets insets,
                                           CGFloat weight) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars() = {color, offset, insets, weight};
        return self;
    }

    CGColorRef CGColor() { return UIKBGetNamedColor(ivars().colorName); }
    // Whether there is something to draw (guess).
    bool isValid() { return CGColor() && weight() > 0; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBShadowEffect, NSObject, ShadowEffect,
           ivar<"_colorName", &ShadowEffect::Ivars::colorName>,
           property<"offset", &ShadowEffect::Ivars::offset>,
           property<"insets", &ShadowEffect::Ivars::insets>,
           property<"weight", &ShadowEffect::Ivars::weight>,
           class_method<"effectWithColor:offset:insets:weight:", &ShadowEffect::effect>,
           method<"initWithColor:offset:insets:weight:", &ShadowEffect::initWithColor>,
           method<"CGColor", &ShadowEffect::CGColor>,
           method<"isValid", &ShadowEffect::isValid>)
