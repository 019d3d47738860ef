// Windows: the topmost views, filled by the view of their root controller.
#include "objc/class.h"
#include "platform/application.h"

namespace {

using objc::strong;

struct Window : objc::Implements<Window, UIWindow> {
    struct Ivars {
        strong<UIViewController> rootViewController;
    };

    UIResponder* nextResponder() { return UIApplication::sharedApplication(); }

    UIViewController* rootViewController() { return ivars().rootViewController; }
    void setRootViewController(UIViewController* controller) {
        if (UIViewController* old = ivars().rootViewController; old->isViewLoaded())
            old->view()->removeFromSuperview();
        ivars().rootViewController = controller;
        if (!controller) return;
        auto* self = this->self();
        UIView* view = controller->view();
        view->setFrame(self->bounds());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        controller->viewWillAppear(false);
        self->addSubview(view);
        self->layoutIfNeeded();
        controller->viewDidAppear(false);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIWindow, UIView, Window,
           ivar<"_rootViewController", &Window::Ivars::rootViewController>,
           method<"nextResponder", &Window::nextResponder>,
           method<"rootViewController", &Window::rootViewController>,
           method<"setRootViewController:", &Window::setRootViewController>)
