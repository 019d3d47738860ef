// The application: where actions go, and what the status bar says.
#include "foundation/text.h"
#include "objc/class.h"
#include "objc/string.h"
#include "phone/device.h"
#include "phone/notes.h"
#include "platform/application.h"
#include "platform/services.h"
#include "runtime/block.h"
#include "uikit/controllers/memory_warning.h"
#include "uikit/controllers/screen.h"
#include "uikit/controls/action.h"
#include "uikit/events/first_responder.h"
#include "uikit/surroundings/text_styles.h"

using namespace objc::literals;
extern "C" {
[[gnu::visibility("default")]] NSString* const UIApplicationDidBecomeActiveNotification =
    "UIApplicationDidBecomeActiveNotification"_ns;
[[gnu::visibility("default")]] NSString* const UIApplicationWillResignActiveNotification =
    "UIApplicationWillResignActiveNotification"_ns;
[[gnu::visibility("default")]] NSString* const UIApplicationDidEnterBackgroundNotification =
    "UIApplicationDidEnterBackgroundNotification"_ns;
[[gnu::visibility("default")]] NSString* const UIApplicationWillEnterForegroundNotification =
    "UIApplicationWillEnterForegroundNotification"_ns;
[[gnu::visibility("default")]] NSString* const UIApplicationDidReceiveMemoryWarningNotification =
    "UIApplicationDidReceiveMemoryWarningNotification"_ns;
[[gnu::visibility("default")]] NSString* const UIContentSizeCategoryDidChangeNotification =
    "UIContentSizeCategoryDidChangeNotification"_ns;
}

namespace {

using objc::strong;

struct Application : objc::Implements<Application, UIApplication> {
    struct Ivars {
        UIInterfaceOrientation statusBarOrientation = UIInterfaceOrientationPortrait;
    };

    static UIApplication* sharedApplication(Class) {
        static UIApplication* const application = UIApplication::class_send<"new", UIApplication*>();
        return application;
    }

    UIWindow* keyWindow() { return sim::screen_window(); }

    bool sendAction(SEL action, id target, id sender, UIEvent* event) {
        if (!action) return false;
        if (target) {
            sim::perform_action(target, action, sender, event);
            return true;
        }
        UIResponder* responder = sim::first_responder();
        if (!responder) responder = as<UIResponder>(sender);
        for (; responder; responder = responder->nextResponder())
            if (responder->respondsToSelector(action)) {
                sim::perform_action(responder, action, sender, event);
                return true;
            }
        return false;
    }

    UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() {
        return sim::device().right_to_left ? UIUserInterfaceLayoutDirectionRightToLeft
                                           : UIUserInterfaceLayoutDirectionLeftToRight;
    }
    NSString* preferredContentSizeCategory() { return sim::content_size_category(); }

    // Noted, and said to have been opened.
    void openURL(NSURL* url, NSDictionary*, id completion) {
        sim::opened_addresses().push_back(sim::utf8_of(url->absoluteString()).value_or(""));
        sim::call_block(completion, true);
    }
};

/// The controller, its children, and what it presents.
void warn(UIViewController* controller) {
    if (!controller) return;
    const strong<UIViewController> kept = controller;
    NSArray* children = controller->childViewControllers();
    for (NSUInteger i = 0; i < children->count(); ++i)
        warn(static_cast<UIViewController*>(children->objectAtIndex(i)));
    if (!controller->parentViewController()) warn(controller->presentedViewController());
    controller->didReceiveMemoryWarning();
}

}  // namespace

namespace sim {

void warn_of_memory() {
    NSNotificationCenter::defaultCenter()->post(UIApplicationDidReceiveMemoryWarningNotification,
                                                UIApplication::sharedApplication());
    if (UIWindow* window = screen_window()) warn(window->rootViewController());
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(UIApplication, UIResponder, Application,
           property<"statusBarOrientation", &Application::Ivars::statusBarOrientation>,
           class_method<"sharedApplication", &Application::sharedApplication>,
           method<"keyWindow", &Application::keyWindow>,
           method<"userInterfaceLayoutDirection", &Application::userInterfaceLayoutDirection>,
           method<"preferredContentSizeCategory", &Application::preferredContentSizeCategory>,
           method<"openURL:options:completionHandler:", &Application::openURL>,
           method<"sendAction:to:from:forEvent:", &Application::sendAction>)
