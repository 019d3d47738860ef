// Traits: what the device is, and what its user has chosen.
#include "uikit/surroundings/UITraitCollection.h"

#include "objc/class.h"
#include "phone/screen_kind.h"
#include "uikit/controllers/screen.h"

namespace {

struct Traits : objc::Implements<Traits, UITraitCollection> {
    using Ivars = objc::NoIvars;

    UIUserInterfaceIdiom userInterfaceIdiom() {
        return sim::is_pad() ? UIUserInterfaceIdiomPad : UIUserInterfaceIdiomPhone;
    }
    // The largest phones are regular sideways, which the model leaves out.
    UIUserInterfaceSizeClass horizontalSizeClass() {
        return sim::is_pad() ? UIUserInterfaceSizeClassRegular : UIUserInterfaceSizeClassCompact;
    }
    UIUserInterfaceSizeClass verticalSizeClass() {
        UIWindow* window = sim::screen_window();
        const CGSize size = window ? window->bounds().size : UIScreen::mainScreen()->bounds().size;
        const bool sideways = size.width > size.height;
        return sideways && !sim::is_pad() ? UIUserInterfaceSizeClassCompact : UIUserInterfaceSizeClassRegular;
    }
    CGFloat displayScale() { return UIScreen::mainScreen()->scale(); }
    NSString* preferredContentSizeCategory() {
        return UIApplication::sharedApplication()->preferredContentSizeCategory();
    }
    UIUserInterfaceLayoutDirection layoutDirection() {
        return UIApplication::sharedApplication()->userInterfaceLayoutDirection();
    }
};

}  // namespace

namespace sim {

UITraitCollection* current_traits() {
    static UITraitCollection* const traits = UITraitCollection::class_send<"new", UITraitCollection*>();
    return traits;
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(UITraitCollection, NSObject, Traits,
           method<"userInterfaceIdiom", &Traits::userInterfaceIdiom>,
           method<"horizontalSizeClass", &Traits::horizontalSizeClass>,
           method<"verticalSizeClass", &Traits::verticalSizeClass>,
           method<"displayScale", &Traits::displayScale>,
           method<"preferredContentSizeCategory", &Traits::preferredContentSizeCategory>,
           method<"layoutDirection", &Traits::layoutDirection>)
