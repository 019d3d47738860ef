// The application: where actions go, and what the status bar says.
#include "objc/class.h"
#include "platform/application.h"
#include "uikit/controllers/screen.h"
#include "uikit/controls/action.h"
#include "uikit/events/first_responder.h"

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
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIApplication, UIResponder, Application,
           property<"statusBarOrientation", &Application::Ivars::statusBarOrientation>,
           class_method<"sharedApplication", &Application::sharedApplication>,
           method<"keyWindow", &Application::keyWindow>,
           method<"sendAction:to:from:forEvent:", &Application::sendAction>)
