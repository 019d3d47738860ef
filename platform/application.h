// UIKit's application, windows, view controllers and events.
#pragma once
#include "platform/uikit.h"

using NSTimeInterval = double;

using UITouchPhase = NSInteger;
constexpr UITouchPhase UITouchPhaseBegan = 0;
constexpr UITouchPhase UITouchPhaseMoved = 1;
constexpr UITouchPhase UITouchPhaseStationary = 2;
constexpr UITouchPhase UITouchPhaseEnded = 3;
constexpr UITouchPhase UITouchPhaseCancelled = 4;

/// What becomes of the view behind a presented one.
using UIModalPresentationStyle = NSInteger;
constexpr UIModalPresentationStyle UIModalPresentationFullScreen = 0;
constexpr UIModalPresentationStyle UIModalPresentationPageSheet = 1;
constexpr UIModalPresentationStyle UIModalPresentationFormSheet = 2;
constexpr UIModalPresentationStyle UIModalPresentationOverFullScreen = 5;
constexpr UIModalPresentationStyle UIModalPresentationOverCurrentContext = 6;
constexpr UIModalPresentationStyle UIModalPresentationPopover = 7;

/// A finger on the screen, from its landing to its lifting.
struct UITouch : objc::Interface<UITouch, "UITouch", NSObject> {
    UITouchPhase phase() { return send<"phase", UITouchPhase>(); }
    /// The view where it began.
    UIView* view() { return send<"view", UIView*>(); }
    UIWindow* window() { return send<"window", UIWindow*>(); }
    /// In that view's coordinates; nil is the window's.
    CGPoint locationInView(UIView* view) { return send<"locationInView:", CGPoint>(view); }
    CGPoint previousLocationInView(UIView* view) { return send<"previousLocationInView:", CGPoint>(view); }
    NSTimeInterval timestamp() { return send<"timestamp", NSTimeInterval>(); }
    NSUInteger tapCount() { return send<"tapCount", NSUInteger>(); }
};

struct UIEvent : objc::Interface<UIEvent, "UIEvent", NSObject> {
    NSSet* allTouches() { return send<"allTouches", NSSet*>(); }
    NSTimeInterval timestamp() { return send<"timestamp", NSTimeInterval>(); }
};

/// A bit mask of the edges at which a view goes on below bars.
using UIRectEdge = NSUInteger;
constexpr UIRectEdge UIRectEdgeNone = 0;
constexpr UIRectEdge UIRectEdgeAll = 15;

using UIUserInterfaceSizeClass = NSInteger;
constexpr UIUserInterfaceSizeClass UIUserInterfaceSizeClassCompact = 1;
constexpr UIUserInterfaceSizeClass UIUserInterfaceSizeClassRegular = 2;

using UIUserInterfaceIdiom = NSInteger;
constexpr UIUserInterfaceIdiom UIUserInterfaceIdiomPhone = 0;
constexpr UIUserInterfaceIdiom UIUserInterfaceIdiomPad = 1;

/// What a view or a controller finds itself in.
struct UITraitCollection : objc::Interface<UITraitCollection, "UITraitCollection", NSObject> {
    UIUserInterfaceIdiom userInterfaceIdiom() { return send<"userInterfaceIdiom", UIUserInterfaceIdiom>(); }
    UIUserInterfaceSizeClass horizontalSizeClass() {
        return send<"horizontalSizeClass", UIUserInterfaceSizeClass>();
    }
    UIUserInterfaceSizeClass verticalSizeClass() {
        return send<"verticalSizeClass", UIUserInterfaceSizeClass>();
    }
    CGFloat displayScale() { return send<"displayScale", CGFloat>(); }
    /// "UICTContentSizeCategoryL" at first.
    NSString* preferredContentSizeCategory() { return send<"preferredContentSizeCategory", NSString*>(); }
    UIUserInterfaceLayoutDirection layoutDirection() {
        return send<"layoutDirection", UIUserInterfaceLayoutDirection>();
    }
};

struct UIBarButtonItem;
struct UINavigationController;
struct UINavigationItem;
struct UIPopoverPresentationController;

struct UIViewController : objc::Interface<UIViewController, "UIViewController", UIResponder> {
    /// Loads it when it is first asked for.
    UIView* view() { return send<"view", UIView*>(); }
    void setView(UIView* view) { send<"setView:">(view); }
    bool isViewLoaded() { return send<"isViewLoaded", bool>(); }
    void loadView() { send<"loadView">(); }
    void viewDidLoad() { send<"viewDidLoad">(); }
    void viewWillAppear(bool animated) { send<"viewWillAppear:">(animated); }
    void viewDidAppear(bool animated) { send<"viewDidAppear:">(animated); }
    void viewWillDisappear(bool animated) { send<"viewWillDisappear:">(animated); }
    void viewDidDisappear(bool animated) { send<"viewDidDisappear:">(animated); }
    void viewWillLayoutSubviews() { send<"viewWillLayoutSubviews">(); }
    void viewDidLayoutSubviews() { send<"viewDidLayoutSubviews">(); }
    void didReceiveMemoryWarning() { send<"didReceiveMemoryWarning">(); }

    /// Of its page's bar, too.
    NSString* title() { return send<"title", NSString*>(); }
    void setTitle(NSString* title) { send<"setTitle:">(title); }
    /// Made when it is first asked for.
    UINavigationItem* navigationItem() { return send<"navigationItem", UINavigationItem*>(); }
    /// The one that it, or a parent of it, is on; nil when there is none.
    UINavigationController* navigationController() {
        return send<"navigationController", UINavigationController*>();
    }
    UIViewController* parentViewController() { return send<"parentViewController", UIViewController*>(); }
    NSArray* childViewControllers() { return send<"childViewControllers", NSArray*>(); }
    /// Its view is for the caller to place; afterwards the child wants didMoveToParentViewController:.
    void addChildViewController(UIViewController* child) { send<"addChildViewController:">(child); }
    void removeFromParentViewController() { send<"removeFromParentViewController">(); }
    void willMoveToParentViewController(UIViewController* parent) {
        send<"willMoveToParentViewController:">(parent);
    }
    void didMoveToParentViewController(UIViewController* parent) {
        send<"didMoveToParentViewController:">(parent);
    }
    /// While it disappears: whether its stack is losing it.
    bool isMovingFromParentViewController() { return send<"isMovingFromParentViewController", bool>(); }
    bool isMovingToParentViewController() { return send<"isMovingToParentViewController", bool>(); }
    bool isBeingDismissed() { return send<"isBeingDismissed", bool>(); }
    bool isEditing() { return send<"isEditing", bool>(); }
    void setEditing(bool editing, bool animated) { send<"setEditing:animated:">(editing, animated); }
    /// "Edit", and "Done" while editing; sends setEditing:animated:.
    UIBarButtonItem* editButtonItem() { return send<"editButtonItem", UIBarButtonItem*>(); }
    UIRectEdge edgesForExtendedLayout() { return send<"edgesForExtendedLayout", UIRectEdge>(); }
    void setEdgesForExtendedLayout(UIRectEdge edges) { send<"setEdgesForExtendedLayout:">(edges); }
    UITraitCollection* traitCollection() { return send<"traitCollection", UITraitCollection*>(); }
    void viewSafeAreaInsetsDidChange() { send<"viewSafeAreaInsetsDidChange">(); }
    CGSize preferredContentSize() { return send<"preferredContentSize", CGSize>(); }
    void setPreferredContentSize(CGSize size) { send<"setPreferredContentSize:">(size); }
    /// nil unless it is, or will be, presented as a popover.
    UIPopoverPresentationController* popoverPresentationController() {
        return send<"popoverPresentationController", UIPopoverPresentationController*>();
    }

    UIModalPresentationStyle modalPresentationStyle() {
        return send<"modalPresentationStyle", UIModalPresentationStyle>();
    }
    void setModalPresentationStyle(UIModalPresentationStyle style) {
        send<"setModalPresentationStyle:">(style);
    }
    UIViewController* presentedViewController() {
        return send<"presentedViewController", UIViewController*>();
    }
    UIViewController* presentingViewController() {
        return send<"presentingViewController", UIViewController*>();
    }
    /// The completion is a block without arguments, or nil.
    void presentViewController(UIViewController* controller, bool animated, id completion) {
        send<"presentViewController:animated:completion:">(controller, animated, completion);
    }
    /// Takes away what this controller presents or, when it presents nothing, the controller itself.
    void dismissViewController(bool animated, id completion) {
        send<"dismissViewControllerAnimated:completion:">(animated, completion);
    }
};

struct UIWindow : objc::Interface<UIWindow, "UIWindow", UIView> {
    UIViewController* rootViewController() { return send<"rootViewController", UIViewController*>(); }
    /// Its view fills the window.
    void setRootViewController(UIViewController* controller) { send<"setRootViewController:">(controller); }
};

struct UIApplication : objc::Interface<UIApplication, "UIApplication", UIResponder> {
    static UIApplication* sharedApplication() { return class_send<"sharedApplication", UIApplication*>(); }

    UIWindow* keyWindow() { return send<"keyWindow", UIWindow*>(); }
    UIInterfaceOrientation statusBarOrientation() {
        return send<"statusBarOrientation", UIInterfaceOrientation>();
    }
    void setStatusBarOrientation(UIInterfaceOrientation orientation) {
        send<"setStatusBarOrientation:">(orientation);
    }
    /// With no target the first responder and those after it are asked. Whether somebody took it.
    bool sendAction(SEL action, id target, id sender, UIEvent* event) {
        return send<"sendAction:to:from:forEvent:", bool>(action, target, sender, event);
    }
    UIUserInterfaceLayoutDirection userInterfaceLayoutDirection() {
        return send<"userInterfaceLayoutDirection", UIUserInterfaceLayoutDirection>();
    }
    /// "UICTContentSizeCategoryL" at first.
    NSString* preferredContentSizeCategory() { return send<"preferredContentSizeCategory", NSString*>(); }
    /// The completion is a block that gets whether somebody opened it (bool), or nil.
    void openURL(NSURL* url, NSDictionary* options, id completion) {
        send<"openURL:options:completionHandler:">(url, options, completion);
    }
};

extern "C" {
/// What UIApplication posts.
extern NSString* const UIApplicationDidBecomeActiveNotification;
extern NSString* const UIApplicationWillResignActiveNotification;
extern NSString* const UIApplicationDidEnterBackgroundNotification;
extern NSString* const UIApplicationWillEnterForegroundNotification;
extern NSString* const UIApplicationDidReceiveMemoryWarningNotification;
extern NSString* const UIContentSizeCategoryDidChangeNotification;
}
