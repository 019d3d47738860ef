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
constexpr UIModalPresentationStyle UIModalPresentationOverFullScreen = 5;
constexpr UIModalPresentationStyle UIModalPresentationOverCurrentContext = 6;

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
};
