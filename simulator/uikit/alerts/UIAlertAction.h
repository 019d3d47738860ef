// The implementation of alert actions: what their alert does with them.
#pragma once
#include "objc/class.h"
#include "platform/alerts.h"

namespace sim {

struct AlertAction : objc::Implements<AlertAction, UIAlertAction> {
    struct Ivars {
        objc::strong<NSString> title;
        UIAlertActionStyle style = UIAlertActionStyleDefault;
        bool enabled = true;
        objc::strong<NSObject> handler;
        objc::weak<NSObject> alert;
    };

    static UIAlertAction* action(Class, NSString* title, UIAlertActionStyle style, id handler);
    NSString* title() { return ivars().title; }
    UIAlertActionStyle style() { return ivars().style; }
    bool isEnabled() { return ivars().enabled; }
    void setEnabled(bool enabled);

    /// Calls the handler.
    void perform();
};

}  // namespace sim
