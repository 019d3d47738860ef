// The one screen: the booted device's.
#include "objc/class.h"
#include "phone/device.h"
#include "platform/uikit.h"

namespace {

struct Screen : objc::Implements<Screen, UIScreen> {
    using Ivars = objc::NoIvars;

    static UIScreen* mainScreen(Class self) {
        static auto* const screen = objc::make<"init", UIScreen>(self).leak();
        return screen;
    }

    CGRect bounds() { return {{0, 0}, {sim::device().screen_width, sim::device().screen_height}}; }
    CGFloat scale() { return sim::device().screen_scale; }
    CGRect nativeBounds() {
        const CGFloat scale = this->scale();
        return {{0, 0}, {bounds().size.width * scale, bounds().size.height * scale}};
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIScreen, NSObject, Screen,
           class_method<"mainScreen", &Screen::mainScreen>,
           method<"bounds", &Screen::bounds>,
           method<"scale", &Screen::scale>,
           method<"nativeBounds", &Screen::nativeBounds>,
           method<"nativeScale", &Screen::scale>)
