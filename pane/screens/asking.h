// Alerts: what the pane tells, and what it asks before it does something.
#pragma once
#include "objc/block.h"
#include "pane/texts.h"
#include "platform/alerts.h"

namespace pane {

/// Says what went wrong, with nothing to choose.
void tell(UIViewController* page, NSString* title, NSError* error);
void tell(UIViewController* page, NSString* title, NSString* message);

inline UIAlertController* make_alert(NSString* title, NSString* message) {
    return UIAlertController::alertController(title, message, UIAlertControllerStyleAlert);
}
template <class Function>
void add_answer(UIAlertController* alert, NSString* title, UIAlertActionStyle style, Function chosen) {
    alert->addAction(
        UIAlertAction::action(title, style, objc::Block([chosen](UIAlertAction*) { chosen(); })));
}
void add_cancel(UIAlertController* alert);
void show(UIAlertController* alert, UIViewController* page);

}  // namespace pane
