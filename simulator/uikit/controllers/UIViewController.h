// The implementation of view controllers: their state, which several files share.
#pragma once
#include <vector>

#include "objc/class.h"
#include "platform/navigation.h"
#include "platform/sharing.h"

namespace sim {

struct ViewController : objc::Implements<ViewController, UIViewController> {
    struct Ivars {
        objc::strong<UIView> view;
        objc::strong<UIViewController> presented;
        /// Not owned: it owns this one.
        UIViewController* presenting = nullptr;
        /// Behind a card or a popover: darkens what is behind it.
        objc::strong<UIView> dimming;
        UIModalPresentationStyle modalPresentationStyle = UIModalPresentationFullScreen;
        objc::strong<NSString> title;
        /// Not owned, the same way round.
        UIViewController* parent = nullptr;
        std::vector<objc::strong<UIViewController>> children;
        objc::strong<UINavigationItem> navigationItem;
        objc::strong<UIBarButtonItem> editButtonItem;
        objc::strong<UIPopoverPresentationController> popover;
        bool editing = false, moving_from_parent = false, moving_to_parent = false, being_dismissed = false;
        UIRectEdge edgesForExtendedLayout = UIRectEdgeAll;
        CGSize preferredContentSize{};
        /// What the controller was last notified of.
        UIEdgeInsets safe_area{};
        objc::strong<NSArray> toolbarItems;
        bool definesPresentationContext = false;
        NSInteger modalTransitionStyle = 0;
    };

    objc::strong<UIViewController> initWithNibName(NSString* name, id bundle);
    objc::strong<UIViewController> init();
    void dealloc();

    // The view
    UIView* view();
    void setView(UIView* view);
    bool isViewLoaded() { return ivars().view != nullptr; }
    void loadView();
    void loadViewIfNeeded() { self()->view(); }
    void heard() {}
    void heard_of(bool) {}
    UIResponder* nextResponder();
    NSString* title() { return ivars().title; }
    void setTitle(NSString* title);

    // Presenting
    UIViewController* presentedViewController();
    UIViewController* presentingViewController();
    void presentViewController(UIViewController* controller, bool animated, id completion);
    void dismissViewController(bool animated, id completion);
    bool isBeingDismissed() { return ivars().being_dismissed; }
    UIPopoverPresentationController* popoverPresentationController();

    // Parents and children
    UIViewController* parentViewController() { return ivars().parent; }
    NSArray* childViewControllers();
    void addChildViewController(UIViewController* child);
    void removeFromParentViewController();
    void willMoveToParentViewController(UIViewController*) {}
    void didMoveToParentViewController(UIViewController*) {}
    bool isMovingFromParentViewController() { return ivars().moving_from_parent; }
    bool isMovingToParentViewController() { return ivars().moving_to_parent; }
    UINavigationController* navigationController();

    // Its page
    UINavigationItem* navigationItem();
    bool isEditing() { return ivars().editing; }
    void setEditing(bool editing) { self()->setEditing(editing, false); }
    void setEditingAnimated(bool editing, bool animated);
    UIBarButtonItem* editButtonItem();
    void toggle_editing() { self()->setEditing(!self()->isEditing(), true); }
    UITraitCollection* traitCollection();

    static Ivars& of(UIViewController* controller) {
        return static_cast<ViewController*>(controller)->ivars();
    }

  private:
    void leave(UIView* view);
};

/// Notifies the controller when what bars and edges cover of its view has changed.
void tell_of_safe_area(UIViewController*);

}  // namespace sim
