#include "coregraphics/CGColorSpace.h"

#include "objc/class.h"
#include "runtime/exported.h"

namespace {

using objc::strong;

struct ColorSpace : objc::Implements<ColorSpace, CGColorSpace> {
    struct Ivars {
        CGColorSpaceModel model;
    };
};

CGColorSpaceRef made(CGColorSpaceModel model) {
    auto space = strong<CGColorSpace>::adopt(CGColorSpace::alloc());
    static_cast<ColorSpace*>(space.get())->ivars().model = model;
    return space.leak();  // the process keeps each of them
}

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGColorSpace, NSObject, ColorSpace, ivar<"model", &ColorSpace::Ivars::model>)

namespace sim {

CGColorSpaceRef color_space_of(CGColorSpaceModel model) {
    static const CGColorSpaceRef grey = made(kCGColorSpaceModelMonochrome);
    static const CGColorSpaceRef rgb = made(kCGColorSpaceModelRGB);
    static const CGColorSpaceRef pattern = made(kCGColorSpaceModelPattern);
    switch (model) {
        case kCGColorSpaceModelMonochrome: return grey;
        case kCGColorSpaceModelRGB: return rgb;
        case kCGColorSpaceModelPattern: return pattern;
    }
    return nullptr;
}

}  // namespace sim

SIM_EXPORTED CGColorSpaceRef CGColorSpaceCreateDeviceGray() {
    return CGColorSpaceRetain(sim::color_space_of(kCGColorSpaceModelMonochrome));
}

SIM_EXPORTED CGColorSpaceRef CGColorSpaceCreateDeviceRGB() {
    return CGColorSpaceRetain(sim::color_space_of(kCGColorSpaceModelRGB));
}

SIM_EXPORTED CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space) {
    return space ? static_cast<ColorSpace*>(space)->ivars().model : kCGColorSpaceModelUnknown;
}

SIM_EXPORTED size_t CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space) {
    switch (CGColorSpaceGetModel(space)) {
        case kCGColorSpaceModelMonochrome: return 1;
        case kCGColorSpaceModelRGB: return 3;
    }
    return 0;
}

SIM_EXPORTED CGColorSpaceRef CGColorSpaceRetain(CGColorSpaceRef space) {
    objc_retain(space);
    return space;
}

SIM_EXPORTED void CGColorSpaceRelease(CGColorSpaceRef space) { objc_release(space); }
