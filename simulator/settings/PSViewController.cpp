// A page of Settings: knows its root, its parent and the row that led to it.
#include "objc/class.h"
#include "platform/preferences.h"
#include "runtime/not_modelled.h"

namespace {

struct Page : objc::Implements<Page, PSViewController> {
    struct Ivars {
        objc::weak<NSObject> parentController, rootController;
        objc::strong<PSSpecifier> specifier;
    };

    UINavigationItemLargeTitleDisplayMode navigationItemLargeTitleDisplayMode() {
        return UINavigationItemLargeTitleDisplayModeNever;
    }
    void heard() {}
    bool canBeShownFromSuspendedState() { return true; }

    void showController(id controller) { self()->showController(controller, true); }
    void showControllerAnimated(id controller, bool animate) {
        prepare(controller);
        self()->navigationController()->pushViewController(static_cast<UIViewController*>(controller),
                                                           animate);
    }
    void pushController(id controller) { self()->pushController(controller, true); }
    void pushControllerAnimated(id controller, bool animate) { showControllerAnimated(controller, animate); }

    id readPreferenceValue(PSSpecifier*) {
        sim::not_modelled("PSViewController", "readPreferenceValue:", "the defaults system");
    }
    void setPreferenceValue(id, PSSpecifier*) {
        sim::not_modelled("PSViewController", "setPreferenceValue:specifier:", "the defaults system");
    }
    void handleURL(id) { sim::not_modelled("PSViewController", "handleURL:", "addresses inside Settings"); }

  private:
    void prepare(id controller) {
        if (auto* page = as<PSViewController>(controller)) {
            page->setRootController(self()->rootController());
            page->setParentController(self());
        }
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(PSViewController, UIViewController, Page,
           property<"parentController", &Page::Ivars::parentController>,
           property<"rootController", &Page::Ivars::rootController>,
           property<"specifier", &Page::Ivars::specifier>,
           method<"navigationItemLargeTitleDisplayMode", &Page::navigationItemLargeTitleDisplayMode>,
           method<"canBeShownFromSuspendedState", &Page::canBeShownFromSuspendedState>,
           method<"showController:", &Page::showController>,
           method<"showController:animate:", &Page::showControllerAnimated>,
           method<"pushController:", &Page::pushController>,
           method<"pushController:animate:", &Page::pushControllerAnimated>,
           method<"readPreferenceValue:", &Page::readPreferenceValue>,
           method<"setPreferenceValue:specifier:", &Page::setPreferenceValue>,
           method<"handleURL:", &Page::handleURL>,
           method<"suspend", &Page::heard>,
           method<"willBecomeActive", &Page::heard>,
           method<"willResignActive", &Page::heard>,
           method<"didLock", &Page::heard>,
           method<"willUnlock", &Page::heard>,
           method<"didUnlock", &Page::heard>,
           method<"didWake", &Page::heard>)
