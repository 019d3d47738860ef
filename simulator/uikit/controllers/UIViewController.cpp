// View controllers: their view, and the list of their methods.
#include "uikit/controllers/UIViewController.h"

#include "runtime/not_modelled.h"
#include "uikit/UIView.h"
#include "uikit/surroundings/UITraitCollection.h"

namespace sim {

using objc::strong;

strong<UIViewController> ViewController::initWithNibName(NSString* name, id) {
    if (name) not_modelled("UIViewController", "initWithNibName:bundle:", "interface files");
    auto self = initialised_by_super<"init">();
    return strong<UIViewController>(self.get());
}

strong<UIViewController> ViewController::init() {
    return send<"initWithNibName:bundle:", strong<UIViewController>>(static_cast<NSString*>(nullptr), id{});
}

void ViewController::dealloc() {
    leave(ivars().view);
    if (UIViewController* presented = ivars().presented) of(presented).presenting = nullptr;
    for (UIViewController* child : ivars().children) of(child).parent = nullptr;
}

UIView* ViewController::view() {
    auto* self = this->self();
    if (!ivars().view) {
        self->loadView();
        if (!ivars().view) not_modelled("UIViewController", "loadView", "it made no view");
        self->viewDidLoad();
    }
    return ivars().view;
}

void ViewController::setView(UIView* view) {
    leave(ivars().view);
    ivars().view = view;
    if (view) static_cast<View*>(view)->ivars().controller = this;
}

void ViewController::leave(UIView* view) {
    if (view) static_cast<View*>(view)->ivars().controller = nullptr;
}

void ViewController::loadView() {
    auto view = UIView::alloc()->initWithFrame(UIScreen::mainScreen()->bounds());
    view->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    self()->setView(view);
}

UIResponder* ViewController::nextResponder() { return ivars().view ? ivars().view->superview() : nullptr; }

void ViewController::setTitle(NSString* title) {
    ivars().title = strong<NSString>::adopt(title->send<"copy", NSString*>());
    if (ivars().navigationItem) ivars().navigationItem->setTitle(title);
}

UITraitCollection* ViewController::traitCollection() { return current_traits(); }

void tell_of_safe_area(UIViewController* controller) {
    if (!controller->isViewLoaded()) return;
    UIView* view = controller->view();
    UIEdgeInsets& last_known = ViewController::of(controller).safe_area;
    const UIEdgeInsets now = view->safeAreaInsets();
    if (now == last_known) return;
    last_known = now;
    controller->viewSafeAreaInsetsDidChange();
    view->safeAreaInsetsDidChange();
    view->setNeedsLayout();
}

}  // namespace sim

using namespace objc::definition;
using sim::ViewController;

OBJC_CLASS(UIViewController, UIResponder, ViewController,
           ivar<"_view", &sim::ViewController::Ivars::view>,
           ivar<"_presented", &sim::ViewController::Ivars::presented>,
           ivar<"_presenting", &sim::ViewController::Ivars::presenting>,
           ivar<"_dimmingView", &sim::ViewController::Ivars::dimming>,
           property<"modalPresentationStyle", &sim::ViewController::Ivars::modalPresentationStyle>,
           ivar<"_title", &sim::ViewController::Ivars::title>,
           ivar<"_parentViewController", &sim::ViewController::Ivars::parent>,
           ivar<"_childViewControllers", &sim::ViewController::Ivars::children>,
           ivar<"_navigationItem", &sim::ViewController::Ivars::navigationItem>,
           ivar<"_editButtonItem", &sim::ViewController::Ivars::editButtonItem>,
           ivar<"_popoverPresentationController", &sim::ViewController::Ivars::popover>,
           ivar<"_editing", &sim::ViewController::Ivars::editing>,
           ivar<"_movingFromParent", &sim::ViewController::Ivars::moving_from_parent>,
           ivar<"_movingToParent", &sim::ViewController::Ivars::moving_to_parent>,
           ivar<"_beingDismissed", &sim::ViewController::Ivars::being_dismissed>,
           property<"edgesForExtendedLayout", &sim::ViewController::Ivars::edgesForExtendedLayout>,
           property<"preferredContentSize", &sim::ViewController::Ivars::preferredContentSize>,
           ivar<"_safeArea", &sim::ViewController::Ivars::safe_area>,
           property<"toolbarItems", &sim::ViewController::Ivars::toolbarItems>,
           property<"definesPresentationContext", &sim::ViewController::Ivars::definesPresentationContext>,
           property<"modalTransitionStyle", &sim::ViewController::Ivars::modalTransitionStyle>,
           method<"initWithNibName:bundle:", &ViewController::initWithNibName>,
           method<"init", &ViewController::init>,
           method<"view", &ViewController::view>,
           method<"setView:", &ViewController::setView>,
           method<"isViewLoaded", &ViewController::isViewLoaded>,
           method<"loadView", &ViewController::loadView>,
           method<"loadViewIfNeeded", &ViewController::loadViewIfNeeded>,
           method<"title", &ViewController::title>,
           method<"setTitle:", &ViewController::setTitle>,
           method<"viewDidLoad", &ViewController::heard>,
           method<"viewWillAppear:", &ViewController::heard_of>,
           method<"viewDidAppear:", &ViewController::heard_of>,
           method<"viewWillDisappear:", &ViewController::heard_of>,
           method<"viewDidDisappear:", &ViewController::heard_of>,
           method<"viewWillLayoutSubviews", &ViewController::heard>,
           method<"viewDidLayoutSubviews", &ViewController::heard>,
           method<"viewSafeAreaInsetsDidChange", &ViewController::heard>,
           method<"didReceiveMemoryWarning", &ViewController::heard>,
           method<"nextResponder", &ViewController::nextResponder>,
           method<"presentedViewController", &ViewController::presentedViewController>,
           method<"presentingViewController", &ViewController::presentingViewController>,
           method<"presentViewController:animated:completion:", &ViewController::presentViewController>,
           method<"dismissViewControllerAnimated:completion:", &ViewController::dismissViewController>,
           method<"isBeingDismissed", &ViewController::isBeingDismissed>,
           method<"popoverPresentationController", &ViewController::popoverPresentationController>,
           method<"parentViewController", &ViewController::parentViewController>,
           method<"childViewControllers", &ViewController::childViewControllers>,
           method<"addChildViewController:", &ViewController::addChildViewController>,
           method<"removeFromParentViewController", &ViewController::removeFromParentViewController>,
           method<"willMoveToParentViewController:", &ViewController::willMoveToParentViewController>,
           method<"didMoveToParentViewController:", &ViewController::didMoveToParentViewController>,
           method<"isMovingFromParentViewController", &ViewController::isMovingFromParentViewController>,
           method<"isMovingToParentViewController", &ViewController::isMovingToParentViewController>,
           method<"navigationController", &ViewController::navigationController>,
           method<"navigationItem", &ViewController::navigationItem>,
           method<"isEditing", &ViewController::isEditing>,
           method<"setEditing:", &ViewController::setEditing>,
           method<"setEditing:animated:", &ViewController::setEditingAnimated>,
           method<"editButtonItem", &ViewController::editButtonItem>,
           method<"_toggleEditing", &ViewController::toggle_editing>,
           method<"traitCollection", &ViewController::traitCollection>)
