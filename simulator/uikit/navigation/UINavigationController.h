// The implementation of navigation controllers: the stack, and what is notified when it changes.
#pragma once
#include <vector>

#include "objc/class.h"
#include "platform/navigation.h"

namespace sim {

struct NavigationController : objc::Implements<NavigationController, UINavigationController> {
    struct Ivars {
        std::vector<objc::strong<UIViewController>> stack;
        objc::strong<UINavigationBar> bar;
        bool bar_hidden = false;
        /// Whether its own view has appeared: only then does the top appear with a change.
        bool is_shown = false;
        objc::weak<NSObject> delegate;
    };

    objc::strong<UINavigationController> initWithNibName(NSString* name, id bundle);
    objc::strong<UINavigationController> initWithRootViewController(UIViewController* root);
    void dealloc();
    void loadView();
    UINavigationBar* navigationBar() { return ivars().bar; }
    bool isNavigationBarHidden() { return ivars().bar_hidden; }
    void setNavigationBarHidden(bool hidden) { self()->setNavigationBarHidden(hidden, false); }
    void setNavigationBarHiddenAnimated(bool hidden, bool animated);

    UIViewController* topViewController();
    UIViewController* visibleViewController();
    NSArray* viewControllers();
    void setViewControllers(NSArray* controllers) { self()->setViewControllers(controllers, false); }
    void setViewControllersAnimated(NSArray* controllers, bool animated);
    void pushViewController(UIViewController* controller, bool animated);
    UIViewController* popViewController(bool animated);
    NSArray* popToRootViewController(bool animated);
    NSArray* popToViewController(UIViewController* controller, bool animated);

    void viewWillAppear(bool animated);
    void viewDidAppear(bool animated);
    void viewWillDisappear(bool animated);
    void viewDidDisappear(bool animated);
    void viewDidLayoutSubviews();

  private:
    using Stack = std::vector<objc::strong<UIViewController>>;
    void change_to(Stack stack, bool animated);
    void place_top();
    template <objc::Name Message>
    void tell_delegate(UIViewController* controller, bool animated);
};

}  // namespace sim
