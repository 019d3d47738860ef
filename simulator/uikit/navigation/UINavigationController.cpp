// Navigation controllers: a stack of controllers, the last of which is shown. Transitions take no time.
#include "uikit/navigation/UINavigationController.h"

#include <algorithm>

#include "foundation/raise.h"
#include "objc/string.h"
#include "uikit/UIView.h"
#include "uikit/controllers/UIViewController.h"
#include "uikit/navigation/UINavigationBar.h"
#include "uikit/navigation/covering_bars.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

strong<UINavigationController> NavigationController::initWithNibName(NSString* name, id bundle) {
    auto self = initialised_by_super<"initWithNibName:bundle:">(name, bundle);
    if (!self) return nullptr;
    auto& bar = self->ivars().bar;
    bar = objc::adopt(static_cast<UINavigationBar*>(UINavigationBar::alloc()->initWithFrame({}).leak()));
    static_cast<NavigationBar*>(bar.get())->ivars().controller = self.get();
    return strong<UINavigationController>(self.get());
}

strong<UINavigationController> NavigationController::initWithRootViewController(UIViewController* root) {
    auto self = send<"initWithNibName:bundle:", strong<UINavigationController>>(
        static_cast<NSString*>(nullptr), id{});
    if (self && root) self->pushViewController(root, false);
    return self;
}

void NavigationController::dealloc() {
    static_cast<NavigationBar*>(ivars().bar.get())->ivars().controller = nullptr;
}

void NavigationController::loadView() {
    super<"loadView">();
    UIView* view = self()->view();
    view->setBackgroundColor(UIColor::whiteColor());
    view->setClipsToBounds(true);
    view->addSubview(ivars().bar);
}

void NavigationController::setNavigationBarHiddenAnimated(bool hidden, bool) {
    ivars().bar_hidden = hidden;
    ivars().bar->setHidden(hidden);
    if (self()->isViewLoaded()) self()->view()->setNeedsLayout();
}

// ---- The stack ----------------------------------------------------------------------------------

UIViewController* NavigationController::topViewController() {
    return ivars().stack.empty() ? nullptr : ivars().stack.back().get();
}

UIViewController* NavigationController::visibleViewController() {
    UIViewController* presented = self()->presentedViewController();
    return presented ? presented : self()->topViewController();
}

NSArray* NavigationController::viewControllers() {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(ivars().stack.size());
    for (UIViewController* controller : ivars().stack) list->addObject(controller);
    return NSArray::arrayWithArray(list);
}

void NavigationController::setViewControllersAnimated(NSArray* controllers, bool animated) {
    Stack stack;
    for (NSUInteger i = 0; i < controllers->count(); ++i)
        stack.emplace_back(static_cast<UIViewController*>(controllers->objectAtIndex(i)));
    change_to(std::move(stack), animated);
}

void NavigationController::pushViewController(UIViewController* controller, bool animated) {
    if (!controller) raise("NSInvalidArgumentException"_ns, "a nil controller is pushed");
    if (as<UINavigationController>(controller))
        raise("NSInvalidArgumentException"_ns, "Pushing a navigation controller is not supported");
    Stack stack = ivars().stack;
    for (UIViewController* known : stack)
        if (known == controller)
            raise("NSInvalidArgumentException"_ns,
                  "Pushing the same view controller instance more than once is not supported");
    stack.emplace_back(controller);
    change_to(std::move(stack), animated);
}

UIViewController* NavigationController::popViewController(bool animated) {
    if (ivars().stack.size() < 2) return nullptr;
    strong<UIViewController> popped = ivars().stack.back();
    Stack stack = ivars().stack;
    stack.pop_back();
    change_to(std::move(stack), animated);
    return std::move(popped).autoreleased();
}

NSArray* NavigationController::popToRootViewController(bool animated) {
    return ivars().stack.empty() ? nullptr : self()->popToViewController(ivars().stack.front(), animated);
}

NSArray* NavigationController::popToViewController(UIViewController* controller, bool animated) {
    const auto found = std::find_if(ivars().stack.begin(), ivars().stack.end(),
                                    [&](const auto& known) { return known == controller; });
    if (found == ivars().stack.end())
        raise("NSInternalInconsistencyException"_ns, "Tried to pop to a view controller that doesn't exist.");
    NSMutableArray* popped = NSMutableArray::arrayWithCapacity(1);
    for (auto each = found + 1; each != ivars().stack.end(); ++each) popped->addObject(*each);
    if (popped->count()) change_to(Stack(ivars().stack.begin(), found + 1), animated);
    return popped;
}

template <objc::Name Message>
void NavigationController::tell_delegate(UIViewController* controller, bool animated) {
    if (const auto delegate = ivars().delegate.get();
        delegate && controller && delegate->respondsToSelector(objc::selector<Message>()))
        delegate->send<Message>(self(), controller, animated);
}

// Those that leave are no longer children; of those that come and go only the tops appear and disappear.
void NavigationController::change_to(Stack stack, bool animated) {
    auto* self = this->self();
    const strong<UINavigationController> kept = self;
    const Stack before = ivars().stack;
    const strong<UIViewController> old_top = before.empty() ? nullptr : before.back();
    const strong<UIViewController> new_top = stack.empty() ? nullptr : stack.back();
    auto holds = [](const Stack& list, UIViewController* controller) {
        return std::any_of(list.begin(), list.end(), [&](const auto& each) { return each == controller; });
    };
    for (UIViewController* controller : stack)
        if (!holds(before, controller)) self->addChildViewController(controller);
    for (UIViewController* controller : before)
        if (!holds(stack, controller)) controller->willMoveToParentViewController(nullptr);
    const bool changes_top = old_top != new_top;
    const bool leaves = old_top && !holds(stack, old_top), comes = new_top && !holds(before, new_top);
    ivars().stack = std::move(stack);
    static_cast<NavigationBar*>(ivars().bar.get())->show(ivars().stack);
    const bool is_shown = ivars().is_shown && changes_top;
    if (is_shown) {
        tell_delegate<"navigationController:willShowViewController:animated:">(new_top, animated);
        ViewController::of(old_top).moving_from_parent = leaves;
        ViewController::of(new_top).moving_to_parent = comes;
        if (old_top) old_top->viewWillDisappear(animated);
        if (new_top) {
            new_top->view();
            new_top->viewWillAppear(animated);
        }
    }
    if (changes_top && old_top && old_top->isViewLoaded()) old_top->view()->removeFromSuperview();
    if (self->isViewLoaded()) {
        place_top();
        if (is_shown) self->view()->layoutIfNeeded();
    }
    if (is_shown) {
        if (old_top) old_top->viewDidDisappear(animated);
        if (new_top) new_top->viewDidAppear(animated);
        if (old_top) ViewController::of(old_top).moving_from_parent = false;
        if (new_top) ViewController::of(new_top).moving_to_parent = false;
        tell_delegate<"navigationController:didShowViewController:animated:">(new_top, animated);
    }
    for (UIViewController* controller : before)
        if (!holds(ivars().stack, controller)) controller->removeFromParentViewController();
    for (UIViewController* controller : ivars().stack)
        if (!holds(before, controller)) controller->didMoveToParentViewController(self);
}

// ---- The page -----------------------------------------------------------------------------------

// Below the bar, which lies over it unless the page says that it begins where the bar ends.
void NavigationController::place_top() {
    auto* self = this->self();
    UIView* view = self->view();
    const CGSize size = view->bounds().size;
    const CGFloat bar_top = view->safeAreaInsets().top;
    ivars().bar->setFrame({{0, bar_top}, {size.width, NavigationBar::height}});
    ivars().bar->setNeedsLayout();
    UIViewController* top = self->topViewController();
    if (!top) return;
    constexpr UIRectEdge top_edge = 1;
    const bool lies_below = ivars().bar->isTranslucent() && top->edgesForExtendedLayout() & top_edge;
    const CGFloat above = ivars().bar_hidden || lies_below ? 0 : bar_top + NavigationBar::height;
    top->view()->setFrame({{0, above}, {size.width, size.height - above}});
    if (top->view()->superview() != view) view->insertSubviewBelow(top->view(), ivars().bar);
    tell_of_safe_area(top);
}

void NavigationController::viewDidLayoutSubviews() {
    super<"viewDidLayoutSubviews">();
    place_top();
}

void NavigationController::viewWillAppear(bool animated) {
    super<"viewWillAppear:">(animated);
    UIViewController* top = self()->topViewController();
    tell_delegate<"navigationController:willShowViewController:animated:">(top, animated);
    if (top) top->view();
    place_top();
    top->viewWillAppear(animated);
}
void NavigationController::viewDidAppear(bool animated) {
    super<"viewDidAppear:">(animated);
    ivars().is_shown = true;
    UIViewController* top = self()->topViewController();
    top->viewDidAppear(animated);
    tell_delegate<"navigationController:didShowViewController:animated:">(top, animated);
}
void NavigationController::viewWillDisappear(bool animated) {
    super<"viewWillDisappear:">(animated);
    self()->topViewController()->viewWillDisappear(animated);
}
void NavigationController::viewDidDisappear(bool animated) {
    super<"viewDidDisappear:">(animated);
    ivars().is_shown = false;
    self()->topViewController()->viewDidDisappear(animated);
}

CGFloat bar_bottom_above(UIView* view) {
    for (; view; view = view->superview()) {
        UIViewController* controller = static_cast<View*>(view)->ivars().controller;
        auto* navigation =
            as<UINavigationController>(controller ? controller->parentViewController() : nullptr);
        if (!navigation || navigation->isNavigationBarHidden()) continue;
        UIView* bar = navigation->navigationBar();
        const CGRect frame = bar->convertRectToView(bar->bounds(), bar->window());
        return frame.origin.y + frame.size.height;
    }
    return 0;
}

}  // namespace sim

using namespace objc::definition;
using sim::NavigationController;

OBJC_CLASS(UINavigationController, UIViewController, NavigationController,
           ivar<"_stack", &NavigationController::Ivars::stack>,
           ivar<"_navigationBar", &NavigationController::Ivars::bar>,
           ivar<"_navigationBarHidden", &NavigationController::Ivars::bar_hidden>,
           ivar<"_isShown", &NavigationController::Ivars::is_shown>,
           property<"delegate", &NavigationController::Ivars::delegate>,
           method<"initWithNibName:bundle:", &NavigationController::initWithNibName>,
           method<"initWithRootViewController:", &NavigationController::initWithRootViewController>,
           method<"loadView", &NavigationController::loadView>,
           method<"navigationBar", &NavigationController::navigationBar>,
           method<"isNavigationBarHidden", &NavigationController::isNavigationBarHidden>,
           method<"setNavigationBarHidden:", &NavigationController::setNavigationBarHidden>,
           method<"setNavigationBarHidden:animated:", &NavigationController::setNavigationBarHiddenAnimated>,
           method<"topViewController", &NavigationController::topViewController>,
           method<"visibleViewController", &NavigationController::visibleViewController>,
           method<"viewControllers", &NavigationController::viewControllers>,
           method<"setViewControllers:", &NavigationController::setViewControllers>,
           method<"setViewControllers:animated:", &NavigationController::setViewControllersAnimated>,
           method<"pushViewController:animated:", &NavigationController::pushViewController>,
           method<"popViewControllerAnimated:", &NavigationController::popViewController>,
           method<"popToRootViewControllerAnimated:", &NavigationController::popToRootViewController>,
           method<"popToViewController:animated:", &NavigationController::popToViewController>,
           method<"viewWillAppear:", &NavigationController::viewWillAppear>,
           method<"viewDidAppear:", &NavigationController::viewDidAppear>,
           method<"viewWillDisappear:", &NavigationController::viewWillDisappear>,
           method<"viewDidDisappear:", &NavigationController::viewDidDisappear>,
           method<"viewDidLayoutSubviews", &NavigationController::viewDidLayoutSubviews>)
