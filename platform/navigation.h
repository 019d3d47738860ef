// UIKit's navigation: stacks of controllers, and the bar above them.
#pragma once
#include "platform/application.h"

using UIBarButtonItemStyle = NSInteger;
constexpr UIBarButtonItemStyle UIBarButtonItemStylePlain = 0;
/// Bold.
constexpr UIBarButtonItemStyle UIBarButtonItemStyleDone = 2;

using UIBarButtonSystemItem = NSInteger;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemDone = 0;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemCancel = 1;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemEdit = 2;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemSave = 3;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemAdd = 4;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemFlexibleSpace = 5;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemFixedSpace = 6;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemAction = 9;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemTrash = 16;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemUndo = 21;
constexpr UIBarButtonSystemItem UIBarButtonSystemItemRedo = 22;

struct UIBarItem : objc::Interface<UIBarItem, "UIBarItem", NSObject> {
    NSInteger tag() { return send<"tag", NSInteger>(); }
    void setTag(NSInteger tag) { send<"setTag:">(tag); }
};

/// The target is not retained; the action gets the item.
struct UIBarButtonItem : objc::Interface<UIBarButtonItem, "UIBarButtonItem", UIBarItem> {
    objc::strong<UIBarButtonItem> initWithTitle(NSString* title, UIBarButtonItemStyle style, id target,
                                                SEL action) {
        return send<"initWithTitle:style:target:action:", objc::strong<UIBarButtonItem>>(title, style, target,
                                                                                         action);
    }
    objc::strong<UIBarButtonItem> initWithImage(UIImage* image, UIBarButtonItemStyle style, id target,
                                                SEL action) {
        return send<"initWithImage:style:target:action:", objc::strong<UIBarButtonItem>>(image, style, target,
                                                                                         action);
    }
    objc::strong<UIBarButtonItem> initWithSystemItem(UIBarButtonSystemItem item, id target, SEL action) {
        return send<"initWithBarButtonSystemItem:target:action:", objc::strong<UIBarButtonItem>>(item, target,
                                                                                                 action);
    }
    objc::strong<UIBarButtonItem> initWithCustomView(UIView* view) {
        return send<"initWithCustomView:", objc::strong<UIBarButtonItem>>(view);
    }
    NSString* title() { return send<"title", NSString*>(); }
    void setTitle(NSString* title) { send<"setTitle:">(title); }
    UIImage* image() { return send<"image", UIImage*>(); }
    void setImage(UIImage* image) { send<"setImage:">(image); }
    bool isEnabled() { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) { send<"setEnabled:">(enabled); }
    UIBarButtonItemStyle style() { return send<"style", UIBarButtonItemStyle>(); }
    void setStyle(UIBarButtonItemStyle style) { send<"setStyle:">(style); }
    id target() { return send<"target", id>(); }
    void setTarget(id target) { send<"setTarget:">(target); }
    SEL action() { return send<"action", SEL>(); }
    void setAction(SEL action) { send<"setAction:">(action); }
    UIView* customView() { return send<"customView", UIView*>(); }
    UIColor* tintColor() { return send<"tintColor", UIColor*>(); }
    void setTintColor(UIColor* color) { send<"setTintColor:">(color); }
};

using UINavigationItemLargeTitleDisplayMode = NSInteger;
constexpr UINavigationItemLargeTitleDisplayMode UINavigationItemLargeTitleDisplayModeAutomatic = 0;
constexpr UINavigationItemLargeTitleDisplayMode UINavigationItemLargeTitleDisplayModeAlways = 1;
constexpr UINavigationItemLargeTitleDisplayMode UINavigationItemLargeTitleDisplayModeNever = 2;

/// What the bar shows while a controller is on top.
struct UINavigationItem : objc::Interface<UINavigationItem, "UINavigationItem", NSObject> {
    objc::strong<UINavigationItem> initWithTitle(NSString* title) {
        return send<"initWithTitle:", objc::strong<UINavigationItem>>(title);
    }
    NSString* title() { return send<"title", NSString*>(); }
    void setTitle(NSString* title) { send<"setTitle:">(title); }
    /// In place of the title.
    UIView* titleView() { return send<"titleView", UIView*>(); }
    void setTitleView(UIView* view) { send<"setTitleView:">(view); }
    UIBarButtonItem* leftBarButtonItem() { return send<"leftBarButtonItem", UIBarButtonItem*>(); }
    /// In place of the button that goes back.
    void setLeftBarButtonItem(UIBarButtonItem* item) { send<"setLeftBarButtonItem:">(item); }
    UIBarButtonItem* rightBarButtonItem() { return send<"rightBarButtonItem", UIBarButtonItem*>(); }
    void setRightBarButtonItem(UIBarButtonItem* item) { send<"setRightBarButtonItem:">(item); }
    void setLeftBarButtonItem(UIBarButtonItem* item, bool animated) {
        send<"setLeftBarButtonItem:animated:">(item, animated);
    }
    void setRightBarButtonItem(UIBarButtonItem* item, bool animated) {
        send<"setRightBarButtonItem:animated:">(item, animated);
    }
    NSArray* leftBarButtonItems() { return send<"leftBarButtonItems", NSArray*>(); }
    void setLeftBarButtonItems(NSArray* items) { send<"setLeftBarButtonItems:">(items); }
    /// The first is at the edge.
    NSArray* rightBarButtonItems() { return send<"rightBarButtonItems", NSArray*>(); }
    void setRightBarButtonItems(NSArray* items) { send<"setRightBarButtonItems:">(items); }
    /// Of the button that leads back here.
    UIBarButtonItem* backBarButtonItem() { return send<"backBarButtonItem", UIBarButtonItem*>(); }
    void setBackBarButtonItem(UIBarButtonItem* item) { send<"setBackBarButtonItem:">(item); }
    bool hidesBackButton() { return send<"hidesBackButton", bool>(); }
    void setHidesBackButton(bool hides) { send<"setHidesBackButton:">(hides); }
    UINavigationItemLargeTitleDisplayMode largeTitleDisplayMode() {
        return send<"largeTitleDisplayMode", UINavigationItemLargeTitleDisplayMode>();
    }
    void setLargeTitleDisplayMode(UINavigationItemLargeTitleDisplayMode mode) {
        send<"setLargeTitleDisplayMode:">(mode);
    }
};

struct UINavigationBar : objc::Interface<UINavigationBar, "UINavigationBar", UIView> {
    UINavigationItem* topItem() { return send<"topItem", UINavigationItem*>(); }
    UINavigationItem* backItem() { return send<"backItem", UINavigationItem*>(); }
    NSArray* items() { return send<"items", NSArray*>(); }
    bool isTranslucent() { return send<"isTranslucent", bool>(); }
    void setTranslucent(bool translucent) { send<"setTranslucent:">(translucent); }
};

struct UINavigationController
    : objc::Interface<UINavigationController, "UINavigationController", UIViewController> {
    objc::strong<UINavigationController> initWithRootViewController(UIViewController* root) {
        return send<"initWithRootViewController:", objc::strong<UINavigationController>>(root);
    }
    /// Raises NSInvalidArgumentException for one that is on the stack already, or is a navigation controller.
    void pushViewController(UIViewController* controller, bool animated) {
        send<"pushViewController:animated:">(controller, animated);
    }
    /// What was popped; nil when only the root is left.
    UIViewController* popViewController(bool animated) {
        return send<"popViewControllerAnimated:", UIViewController*>(animated);
    }
    NSArray* popToRootViewController(bool animated) {
        return send<"popToRootViewControllerAnimated:", NSArray*>(animated);
    }
    NSArray* popToViewController(UIViewController* controller, bool animated) {
        return send<"popToViewController:animated:", NSArray*>(controller, animated);
    }
    UIViewController* topViewController() { return send<"topViewController", UIViewController*>(); }
    /// What the top presents, or the top.
    UIViewController* visibleViewController() { return send<"visibleViewController", UIViewController*>(); }
    /// The root first.
    NSArray* viewControllers() { return send<"viewControllers", NSArray*>(); }
    void setViewControllers(NSArray* controllers, bool animated) {
        send<"setViewControllers:animated:">(controllers, animated);
    }
    UINavigationBar* navigationBar() { return send<"navigationBar", UINavigationBar*>(); }
    bool isNavigationBarHidden() { return send<"isNavigationBarHidden", bool>(); }
    void setNavigationBarHidden(bool hidden, bool animated) {
        send<"setNavigationBarHidden:animated:">(hidden, animated);
    }
    /// Not retained; a UINavigationControllerDelegate.
    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
};

/// All optional.
struct UINavigationControllerDelegate : objc::ProtocolInterface<"UINavigationControllerDelegate"> {
    void willShow(UINavigationController* navigation, UIViewController* controller, bool animated) {
        send<"navigationController:willShowViewController:animated:">(navigation, controller, animated);
    }
    void didShow(UINavigationController* navigation, UIViewController* controller, bool animated) {
        send<"navigationController:didShowViewController:animated:">(navigation, controller, animated);
    }
};
