// Lines along some edges of a key.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct EdgeEffect : objc::Implements<EdgeEffect, UIKBEdgeEffect> {
    struct Ivars {
        strong<NSString> colorName;
        NSUInteger edges;
        UIEdgeInsets insets;
        CGFloat weight;
    };

    // Each goes through the next, more general one.
    static UIKBEdgeEffect* effectWithInset(Class, NSString* color, NSUInteger edges, CGFloat inset,
                                           CGFloat weight) {
        return UIKBEdgeEffect::effect(color, edges, UIEdgeInsets{inset, inset, inset, inset}, weight);
    }
    static UIKBEdgeEffect* effectWithInsets(Class, NSString* color, NSUInteger edges, UIEdgeInsets insets,
                                            CGFloat weight) {
        return UIKBEdgeEffect::alloc()->initWithColor(color, edges, insets, weight).autoreleased();
    }

    strong<UIKBEdgeEffect> initWithColor(NSString* color, NSUInteger edges, UIEdgeInsets insets,
                                         CGFloat weight) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars() = {color, edges, insets, weight};
        return self;
    }

    CGColorRef CGColor() { return UIKBGetNamedColor(ivars().colorName); }
    // Whether there is something to draw (guess).
    bool isValid() { return CGColor() && weight() > 0 && edges() != 0; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBEdgeEffect, NSObject, EdgeEffect,
           ivar<"_colorName", &EdgeEffect::Ivars::colorName>,
           property<"edges", &EdgeEffect::Ivars::edges>,
           property<"insets", &EdgeEffect::Ivars::insets>,
           property<"weight", &EdgeEffect::Ivars::weight>,
           class_method<"effectWithColor:edges:inset:weight:", &EdgeEffect::effectWithInset>,
           class_method<"effectWithColor:edges:insets:weight:", &EdgeEffect::effectWithInsets>,
           method<"initWithColor:edges:insets:weight:", &EdgeEffect::initWithColor>,
           method<"CGColor", &EdgeEffect::CGColor>,
           method<"isValid", &EdgeEffect::isValid>)
