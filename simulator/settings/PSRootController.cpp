// Settings' own navigation controller.
#include "objc/class.h"
#include "platform/preferences.h"

namespace {

struct Root : objc::Implements<Root, PSRootController> {
    struct Ivars {
        objc::weak<NSObject> parentController, rootController;
        objc::strong<PSSpecifier> specifier;
    };

    objc::strong<PSRootController> initWithTitle(NSString* title, NSString*) {
        auto self = initialised_by_super<"init">();
        if (self) self->self()->setTitle(title);
        return objc::strong<PSRootController>(self.get());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(PSRootController, UINavigationController, Root,
           property<"parentController", &Root::Ivars::parentController>,
           property<"rootController", &Root::Ivars::rootController>,
           property<"specifier", &Root::Ivars::specifier>,
           method<"initWithTitle:identifier:", &Root::initWithTitle>)
