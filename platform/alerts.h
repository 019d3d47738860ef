// UIKit's alerts and action sheets.
#pragma once
#include "platform/controls.h"

using UIAlertControllerStyle = NSInteger;
/// On an iPad an action sheet is a popover, and needs a source.
constexpr UIAlertControllerStyle UIAlertControllerStyleActionSheet = 0;
constexpr UIAlertControllerStyle UIAlertControllerStyleAlert = 1;

using UIAlertActionStyle = NSInteger;
constexpr UIAlertActionStyle UIAlertActionStyleDefault = 0;
constexpr UIAlertActionStyle UIAlertActionStyleCancel = 1;
constexpr UIAlertActionStyle UIAlertActionStyleDestructive = 2;

struct UIAlertAction : objc::Interface<UIAlertAction, "UIAlertAction", NSObject> {
    /// The handler, a block that gets the UIAlertAction, or nil, is called when the alert has gone.
    static UIAlertAction* action(NSString* title, UIAlertActionStyle style, id handler) {
        return class_send<"actionWithTitle:style:handler:", UIAlertAction*>(title, style, handler);
    }
    NSString* title() { return send<"title", NSString*>(); }
    UIAlertActionStyle style() { return send<"style", UIAlertActionStyle>(); }
    bool isEnabled() { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) { send<"setEnabled:">(enabled); }
};

/// Presented as any controller is; a touch on one of its actions dismisses it.
struct UIAlertController : objc::Interface<UIAlertController, "UIAlertController", UIViewController> {
    static UIAlertController* alertController(NSString* title, NSString* message,
                                              UIAlertControllerStyle style) {
        return class_send<"alertControllerWithTitle:message:preferredStyle:", UIAlertController*>(
            title, message, style);
    }
    NSString* message() { return send<"message", NSString*>(); }
    void setMessage(NSString* message) { send<"setMessage:">(message); }
    UIAlertControllerStyle preferredStyle() { return send<"preferredStyle", UIAlertControllerStyle>(); }
    /// Raises for a second one that cancels.
    void addAction(UIAlertAction* action) { send<"addAction:">(action); }
    NSArray* actions() { return send<"actions", NSArray*>(); }
    UIAlertAction* preferredAction() { return send<"preferredAction", UIAlertAction*>(); }
    /// One of its actions: drawn bold, in an alert the return key's.
    void setPreferredAction(UIAlertAction* action) { send<"setPreferredAction:">(action); }
    /// The handler, a block that gets the UITextField, or nil, is called at once. Raises for an action sheet.
    void addTextField(id handler) { send<"addTextFieldWithConfigurationHandler:">(handler); }
    /// nil when it has none.
    NSArray* textFields() { return send<"textFields", NSArray*>(); }
};
