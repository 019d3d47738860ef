// Preferences.framework: the Settings app's pages. Private; public dumps of iOS 12.0 to 12.4 have these
// types.
#pragma once
#include "platform/navigation.h"

/// A row of a list in Settings.
struct PSSpecifier : objc::Interface<PSSpecifier, "PSSpecifier", NSObject> {
    NSString* name() { return send<"name", NSString*>(); }
    void setName(NSString* name) { send<"setName:">(name); }
    NSString* identifier() { return send<"identifier", NSString*>(); }
    id propertyForKey(NSString* key) { return send<"propertyForKey:", id>(key); }
    void setProperty(id value, NSString* key) { send<"setProperty:forKey:">(value, key); }
};

/// A page of Settings. Whoever shows it sets root, parent and specifier before its view is loaded; none of
/// them is retained.
struct PSViewController : objc::Interface<PSViewController, "PSViewController", UIViewController> {
    id rootController() { return send<"rootController", id>(); }
    void setRootController(id controller) { send<"setRootController:">(controller); }
    id parentController() { return send<"parentController", id>(); }
    void setParentController(id controller) { send<"setParentController:">(controller); }
    PSSpecifier* specifier() { return send<"specifier", PSSpecifier*>(); }
    void setSpecifier(PSSpecifier* specifier) { send<"setSpecifier:">(specifier); }
    void pushController(id controller, bool animate) { send<"pushController:animate:">(controller, animate); }
    void showController(id controller, bool animate) { send<"showController:animate:">(controller, animate); }
    UINavigationItemLargeTitleDisplayMode navigationItemLargeTitleDisplayMode() {
        return send<"navigationItemLargeTitleDisplayMode", UINavigationItemLargeTitleDisplayMode>();
    }
    /// Settings comes to the front, or leaves it.
    void willBecomeActive() { send<"willBecomeActive">(); }
    void willResignActive() { send<"willResignActive">(); }
    void suspend() { send<"suspend">(); }
};

/// Settings' own navigation controller.
struct PSRootController : objc::Interface<PSRootController, "PSRootController", UINavigationController> {
    objc::strong<PSRootController> initWithTitle(NSString* title, NSString* identifier) {
        return send<"initWithTitle:identifier:", objc::strong<PSRootController>>(title, identifier);
    }
};
