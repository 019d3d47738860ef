// Colours of UIKit: each holds one of CoreGraphics, made when it is first asked for, and is equal to what has
// the same.
#include <array>

#include "coregraphics/CGColor.h"
#include "coregraphics/CGColorSpace.h"
#include "coregraphics/CGImage.h"
#include "objc/class.h"
#include "platform/uikit.h"

namespace {

using objc::strong;

struct Color : objc::Implements<Color, UIColor> {
    struct Ivars {
        strong<::CGColor> color;
        // What the colour is made of, while there is none yet.
        std::array<CGFloat, 4> components;
        CGColorSpaceModel model;
    };

    // ---- Making ---------------------------------------------------------------------------------

    template <class... Components>
    strong<UIColor> initWithComponents(CGColorSpaceModel model, Components... components) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().components = {components...};
        self->ivars().model = model;
        return self;
    }

    strong<UIColor> initWithWhite(CGFloat white, CGFloat alpha) {
        return initWithComponents(kCGColorSpaceModelMonochrome, white, alpha);
    }
    strong<UIColor> initWithRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return initWithComponents(kCGColorSpaceModelRGB, red, green, blue, alpha);
    }
    strong<UIColor> initWithCGColor(CGColorRef color) {
        auto self = initialised_by_super<"init">();
        if (!self || !color) return nullptr;
        self->ivars().color = color;
        return self;
    }
    strong<UIColor> initWithPatternImage(UIImage* image) {
        return initWithCGColor(sim::pattern_color(image->CGImage()));
    }

    static UIColor* colorWithWhite(Class self, CGFloat white, CGFloat alpha) {
        return objc::make<"initWithWhite:alpha:", UIColor>(self, white, alpha).autoreleased();
    }
    static UIColor* colorWithRGB(Class self, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return objc::make<"initWithRed:green:blue:alpha:", UIColor>(self, red, green, blue, alpha)
            .autoreleased();
    }
    static UIColor* colorWithCGColor(Class self, CGColorRef color) {
        return objc::make<"initWithCGColor:", UIColor>(self, color).autoreleased();
    }
    static UIColor* colorWithPatternImage(Class self, UIImage* image) {
        return objc::make<"initWithPatternImage:", UIColor>(self, image).autoreleased();
    }

    // White and alpha, made once.
    template <double white, double alpha>
    static UIColor* grey(Class) {
        static UIColor* const color = make<"initWithWhite:alpha:">(white, alpha).leak();
        return color;
    }
    template <double red, double green, double blue>
    static UIColor* rgb(Class) {
        static UIColor* const color = make<"initWithRed:green:blue:alpha:">(red, green, blue, 1.0).leak();
        return color;
    }

    // ---- Asking ---------------------------------------------------------------------------------

    CGColorRef core() {
        auto& [color, components, model] = ivars();
        if (!color) color = objc::adopt(CGColorCreate(sim::color_space_of(model), components.data()));
        return color;
    }
    CGColorRef CGColor() { return core(); }

    UIColor* colorWithAlphaComponent(CGFloat alpha) {
        return UIColor::colorWithCGColor(objc::adopt(CGColorCreateCopyWithAlpha(core(), alpha)));
    }

    bool getRGB(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
        const auto rgba = sim::rgba_of(core());
        if (!rgba) return false;
        if (red) *red = rgba->red;
        if (green) *green = rgba->green;
        if (blue) *blue = rgba->blue;
        if (alpha) *alpha = rgba->alpha;
        return true;
    }

    // The grey of an RGB colour is its luma.
    bool getWhite(CGFloat* white, CGFloat* alpha) {
        const auto rgba = sim::rgba_of(core());
        if (!rgba) return false;
        const bool grey = rgba->red == rgba->green && rgba->green == rgba->blue;
        if (white) *white = grey ? rgba->red : 0.299 * rgba->red + 0.587 * rgba->green + 0.114 * rgba->blue;
        if (alpha) *alpha = rgba->alpha;
        return true;
    }

    bool isEqual(id other) {
        auto* color = as<UIColor>(other);
        return color && CGColorEqualToColor(core(), color->CGColor());
    }
    NSUInteger hash() { return core()->send<"hash", NSUInteger>(); }
    strong<UIColor> copyWithZone(void*) { return this; }  // a colour never changes

    // ---- Using ----------------------------------------------------------------------------------

    void setFill() { CGContextSetFillColorWithColor(UIGraphicsGetCurrentContext(), core()); }
    void setStroke() { CGContextSetStrokeColorWithColor(UIGraphicsGetCurrentContext(), core()); }
    void set() {
        auto* self = this->self();
        self->setFill();
        self->setStroke();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIColor, NSObject, Color,
           ivar<"_color", &Color::Ivars::color>,
           ivar<"_components", &Color::Ivars::components>,
           ivar<"_model", &Color::Ivars::model>,
           class_method<"blackColor", &Color::grey<0.0, 1.0>>,
           class_method<"darkGrayColor", &Color::grey<1 / 3.0, 1.0>>,
           class_method<"grayColor", &Color::grey<0.5, 1.0>>,
           class_method<"lightGrayColor", &Color::grey<2 / 3.0, 1.0>>,
           class_method<"whiteColor", &Color::grey<1.0, 1.0>>,
           class_method<"clearColor", &Color::grey<0.0, 0.0>>,
           class_method<"redColor", &Color::rgb<1.0, 0.0, 0.0>>,
           class_method<"greenColor", &Color::rgb<0.0, 1.0, 0.0>>,
           class_method<"blueColor", &Color::rgb<0.0, 0.0, 1.0>>,
           class_method<"cyanColor", &Color::rgb<0.0, 1.0, 1.0>>,
           class_method<"yellowColor", &Color::rgb<1.0, 1.0, 0.0>>,
           class_method<"magentaColor", &Color::rgb<1.0, 0.0, 1.0>>,
           class_method<"orangeColor", &Color::rgb<1.0, 0.5, 0.0>>,
           class_method<"purpleColor", &Color::rgb<0.5, 0.0, 0.5>>,
           class_method<"brownColor", &Color::rgb<0.6, 0.4, 0.2>>,
           class_method<"colorWithWhite:alpha:", &Color::colorWithWhite>,
           class_method<"colorWithRed:green:blue:alpha:", &Color::colorWithRGB>,
           class_method<"colorWithCGColor:", &Color::colorWithCGColor>,
           class_method<"colorWithPatternImage:", &Color::colorWithPatternImage>,
           method<"initWithWhite:alpha:", &Color::initWithWhite>,
           method<"initWithRed:green:blue:alpha:", &Color::initWithRGB>,
           method<"initWithCGColor:", &Color::initWithCGColor>,
           method<"initWithPatternImage:", &Color::initWithPatternImage>,
           method<"CGColor", &Color::CGColor>,
           method<"colorWithAlphaComponent:", &Color::colorWithAlphaComponent>,
           method<"getRed:green:blue:alpha:", &Color::getRGB>,
           method<"getWhite:alpha:", &Color::getWhite>,
           method<"isEqual:", &Color::isEqual>,
           method<"hash", &Color::hash>,
           method<"copyWithZone:", &Color::copyWithZone>,
           method<"setFill", &Color::setFill>,
           method<"setStroke", &Color::setStroke>,
           method<"set", &Color::set>)
