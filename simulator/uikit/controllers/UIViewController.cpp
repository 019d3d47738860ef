// View controllers: their view, and presenting one over another. Transitions take no time.
#include <string>

#include "objc/class.h"
#include "runtime/block.h"
#include "runtime/not_modelled.h"
#include "uikit/UIView.h"

namespace {

using objc::strong;

struct ViewController : objc::Implements<ViewController, UIViewController> {
    struct Ivars {
        strong<UIView> view;
        strong<UIViewController> presented;
        /// Not owned: it owns this one.
        UIViewController* presenting = nullptr;
        UIModalPresentationStyle modalPresentationStyle = UIModalPresentationFullScreen;
        strong<NSString> title;
    };

    strong<UIViewController> initWithNibName(NSString* name, id) {
        if (name) sim::not_modelled("UIViewController", "initWithNibName:bundle:", "interface files");
        auto self = initialised_by_super<"init">();
        return strong<UIViewController>(self.get());
    }
    strong<UIViewController> init() {
        return send<"initWithNibName:bundle:", strong<UIViewController>>(static_cast<NSString*>(nullptr),
                                                                         id{});
    }
    void dealloc() {
        leave(ivars().view);
        if (UIViewController* presented = ivars().presented) of(presented).presenting = nullptr;
    }

    // ---- The view -------------------------------------------------------------------------------

    UIView* view() {
        auto* self = this->self();
        if (!ivars().view) {
            self->loadView();
            if (!ivars().view) sim::not_modelled("UIViewController", "loadView", "it made no view");
            self->viewDidLoad();
        }
        return ivars().view;
    }
    void setView(UIView* view) {
        leave(ivars().view);
        ivars().view = view;
        if (view) static_cast<sim::View*>(view)->ivars().controller = this;
    }
    bool isViewLoaded() { return ivars().view != nullptr; }
    void loadView() {
        auto view = UIView::alloc()->initWithFrame(UIScreen::mainScreen()->bounds());
        view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        self()->setView(view);
    }
    void heard() {}
    void heard_of(bool) {}

    UIResponder* nextResponder() { return ivars().view ? ivars().view->superview() : nullptr; }

    // ---- Presenting -----------------------------------------------------------------------------

    UIViewController* presentedViewController() { return ivars().presented; }
    UIViewController* presentingViewController() { return ivars().presenting; }

    void presentViewController(UIViewController* controller, bool animated, id completion) {
        auto* self = this->self();
        if (!controller)
            sim::not_modelled("UIViewController", "presentViewController:animated:completion:",
                              "nil, for which the device raises");
        if (ivars().presented || controller->presentingViewController()) return;  // the device logs a warning
        UIView* container = ivars().view ? ivars().view->superview() : nullptr;
        if (!container || !container->window()) return;  // the same
        ivars().presented = controller;
        of(controller).presenting = self;
        UIView* view = controller->view();
        view->setFrame(container->bounds());
        const bool covers = covers_presenter(controller);
        if (covers) self->viewWillDisappear(animated);
        controller->viewWillAppear(animated);
        container->addSubview(view);
        container->layoutIfNeeded();
        controller->viewDidAppear(animated);
        if (covers) {
            ivars().view->removeFromSuperview();
            self->viewDidDisappear(animated);
        }
        sim::call_block(completion);
    }

    void dismissViewController(bool animated, id completion) {
        auto* self = this->self();
        if (!ivars().presented) {
            if (UIViewController* presenting = self->presentingViewController())
                presenting->dismissViewController(animated, completion);
            else
                sim::call_block(completion);
            return;
        }
        const strong<UIViewController> leaving = ivars().presented;
        if (of(leaving).presented) leaving->dismissViewController(false, nullptr);
        UIView* view = leaving->view();
        UIView* container = view->superview();
        const bool covers = covers_presenter(leaving);
        leaving->viewWillDisappear(animated);
        if (covers) {
            self->viewWillAppear(animated);
            container->insertSubviewBelow(ivars().view, view);
            container->layoutIfNeeded();
        }
        view->removeFromSuperview();
        of(leaving).presenting = nullptr;
        ivars().presented = nullptr;
        if (covers) self->viewDidAppear(animated);
        leaving->viewDidDisappear(animated);
        sim::call_block(completion);
    }

  private:
    static Ivars& of(UIViewController* controller) {
        return static_cast<ViewController*>(controller)->ivars();
    }
    void leave(UIView* view) {
        if (view) static_cast<sim::View*>(view)->ivars().controller = nullptr;
    }
    static bool covers_presenter(UIViewController* controller) {
        switch (const auto style = controller->modalPresentationStyle()) {
            case UIModalPresentationFullScreen: return true;
            case UIModalPresentationOverFullScreen:
            case UIModalPresentationOverCurrentContext: return false;
            default:
                sim::not_modelled("UIViewController", "modalPresentationStyle",
                                  "style " + std::to_string(style));
        }
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIViewController, UIResponder, ViewController,
           ivar<"_view", &ViewController::Ivars::view>,
           ivar<"_presented", &ViewController::Ivars::presented>,
           ivar<"_presenting", &ViewController::Ivars::presenting>,
           property<"modalPresentationStyle", &ViewController::Ivars::modalPresentationStyle>,
           property<"title", &ViewController::Ivars::title>,
           method<"initWithNibName:bundle:", &ViewController::initWithNibName>,
           method<"init", &ViewController::init>,
           method<"view", &ViewController::view>,
           method<"setView:", &ViewController::setView>,
           method<"isViewLoaded", &ViewController::isViewLoaded>,
           method<"loadView", &ViewController::loadView>,
           method<"viewDidLoad", &ViewController::heard>,
           method<"viewWillAppear:", &ViewController::heard_of>,
           method<"viewDidAppear:", &ViewController::heard_of>,
           method<"viewWillDisappear:", &ViewController::heard_of>,
           method<"viewDidDisappear:", &ViewController::heard_of>,
           method<"viewWillLayoutSubviews", &ViewController::heard>,
           method<"viewDidLayoutSubviews", &ViewController::heard>,
           method<"didReceiveMemoryWarning", &ViewController::heard>,
           method<"nextResponder", &ViewController::nextResponder>,
           method<"presentedViewController", &ViewController::presentedViewController>,
           method<"presentingViewController", &ViewController::presentingViewController>,
           method<"presentViewController:animated:completion:", &ViewController::presentViewController>,
           method<"dismissViewControllerAnimated:completion:", &ViewController::dismissViewController>)
