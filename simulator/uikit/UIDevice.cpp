// The one device: as it was booted.
#include "objc/class.h"
#include "phone/screen_kind.h"
#include "platform/uikit.h"

namespace {

using namespace objc::literals;

struct ThisDevice : objc::Implements<ThisDevice, UIDevice> {
    using Ivars = objc::NoIvars;

    static UIDevice* currentDevice(Class self) {
        static auto* const device = objc::make<"init", UIDevice>(self).leak();
        return device;
    }

    NSInteger userInterfaceIdiom() { return sim::is_pad() ? 1 : 0; }
    NSString* systemName() { return "iOS"_ns; }
    NSString* systemVersion() { return NSString::stringWithUTF8String(sim::device().system_version.c_str()); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIDevice, NSObject, ThisDevice,
           class_method<"currentDevice", &ThisDevice::currentDevice>,
           method<"userInterfaceIdiom", &ThisDevice::userInterfaceIdiom>,
           method<"systemName", &ThisDevice::systemName>,
           method<"systemVersion", &ThisDevice::systemVersion>)
