// What a key is filled with: one colour, a gradient by its name, or a gradient of colours by theirs. What a
// name stands for is looked up whenever it is asked for.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

/// From top to bottom; null if a name is of no colour. Autoreleased.
CGGradientRef gradient_of(NSArray* names, const CGFloat* locations) {
    auto colors = NSMutableArray::arrayWithCapacity(names->count());
    for (NSUInteger i = 0; i < names->count(); ++i) {
        CGColorRef color = UIKBGetNamedColor(as<NSString>(names->objectAtIndex(i)));
        if (!color) return nullptr;
        colors->addObject(reinterpret_cast<id>(color));
    }
    return objc::adopt(CGGradientCreateWithColors(nullptr, colors, locations)).autoreleased();
}

struct Gradient : objc::Implements<Gradient, UIKBGradient> {
    // At most one of the four kinds is there.
    struct Ivars {
        strong<NSString> flatColorName, gradientName, startColorName, endColorName;
        // Names of colours (guess), and where the second one stands, from 0 to 1 (guess).
        strong<NSArray> colors;
        CGFloat middleLocation;
    };

    // Through the initialisers, which a hook may have replaced as well.
    static UIKBGradient* gradientWithFlatColor(Class, NSString* color) {
        return UIKBGradient::alloc()->initWithFlatColor(color).autoreleased();
    }
    static UIKBGradient* gradientWithName(Class, NSString* name) {
        return UIKBGradient::alloc()->initWithName(name).autoreleased();
    }
    static UIKBGradient* gradientWithStartColor(Class, NSString* start, NSString* end) {
        return UIKBGradient::alloc()->initWithStartColor(start, end).autoreleased();
    }
    static UIKBGradient* gradientWith3Colors(Class, NSArray* colors, CGFloat middle) {
        return UIKBGradient::alloc()->initWith3Colors(colors, middle).autoreleased();
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
        self->ivars().gradientName = name;
        return self;
    }
    strong<UIKBGradient> initWithStartColor(NSString* start, NSString* end) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().startColorName = start;
        self->ivars().endColorName = end;
        return self;
    }
    strong<UIKBGradient> initWith3Colors(NSArray* colors, CGFloat middle) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().colors = colors;
        self->ivars().middleLocation = middle;
        return self;
    }

    NSString* flatColorName() { return ivars().flatColorName; }

    // A flat colour has no gradient (guess).
    CGGradientRef CGGradient() {
        const Ivars& made = ivars();
        if (made.gradientName) return UIKBGetNamedLinearGradient(made.gradientName);
        if (made.startColorName && made.endColorName) {
            const id both[] = {made.startColorName, made.endColorName};
            return gradient_of(NSArray::arrayWithObjects(both, 2), nullptr);
        }
        if (!made.colors) return nullptr;
        const CGFloat locations[] = {0, made.middleLocation, 1};
        return gradient_of(made.colors, locations);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBGradient, NSObject, Gradient,
           ivar<"_flatColorName", &Gradient::Ivars::flatColorName>,
           ivar<"_gradientName", &Gradient::Ivars::gradientName>,
           ivar<"_startColorName", &Gradient::Ivars::startColorName>,
           ivar<"_endColorName", &Gradient::Ivars::endColorName>,
           ivar<"_colors", &Gradient::Ivars::colors>,
           ivar<"_middleLocation", &Gradient::Ivars::middleLocation>,
           class_method<"gradientWithFlatColor:", &Gradient::gradientWithFlatColor>,
           class_method<"gradientWithName:", &Gradient::gradientWithName>,
           class_method<"gradientWithStartColor:endColor:", &Gradient::gradientWithStartColor>,
           class_method<"gradientWith3Colors:middleLocation:", &Gradient::gradientWith3Colors>,
           method<"initWithFlatColor:", &Gradient::initWithFlatColor>,
           method<"initWithName:", &Gradient::initWithName>,
           method<"initWithStartColor:endColor:", &Gradient::initWithStartColor>,
           method<"initWith3Colors:middleLocation:", &Gradient::initWith3Colors>,
           method<"flatColorName", &Gradient::flatColorName>,
           method<"CGGradient", &Gradient::CGGradient>)
