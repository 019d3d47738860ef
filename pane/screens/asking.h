// Alerts: what the pane says, and what it asks before it does something.
#pragma once
#include "objc/block.h"
#include "pane/texts.h"
#include "platform/alerts.h"
#include "platform/sharing.h"

namespace pane {

/// Says what went wrong, with nothing to choose.
void tell(UIViewController* page, NSString* title, NSError* error);
void tell(UIViewController* page, NSString* title, NSString* message);

inline UIAlertController* make_alert(NSString* title, NSString* message) {
    return UIAlertController::alertController(title, message, UIAlertControllerStyleAlert);
}
template <class Function>
void add_answer(UIAlertController* alert, NSString* title, UIAlertActionStyle style, const Function& chosen) {
    alert->addAction(
        UIAlertAction::action(title, style, objc::Block([chosen](UIAlertAction*) { chosen(); })));
}
void add_cancel(UIAlertController* alert);
void show(UIAlertController* alert, UIViewController* page);

/// From where on the page a sheet comes, which an iPad shows: a button of the bar, or a part of a view.
struct SheetSource {
    objc::strong<UIBarButtonItem> button = nullptr;
    objc::strong<UIView> view = nullptr;
    CGRect rect{};
};
inline UIAlertController* make_sheet(NSString* title, NSString* message = nullptr) {
    return UIAlertController::alertController(title, message, UIAlertControllerStyleActionSheet);
}
void show_from(const SheetSource& source, UIViewController* sheet, UIViewController* page);

UITextField* add_name_field(UIAlertController* alert, NSString* first);
/// Without blanks at its ends; nil when nothing is left.
NSString* given_name(UITextField* field);

/// An alert with a name to fill in, which `named` is called with.
template <class Function>
void ask_for_name(UIViewController* page, NSString* title, NSString* first, NSString* answer,
                  const Function& named) {
    UIAlertController* alert = make_alert(title, nullptr);
    UITextField* field = add_name_field(alert, first);
    add_cancel(alert);
    add_answer(
        alert, answer, UIAlertActionStyleDefault,
        [page = objc::strong<UIViewController>(page), field = objc::strong<UITextField>(field), named] {
            if (NSString* name = given_name(field))
                named(name);
            else
                tell(page, text<"A theme needs a name.">(), static_cast<NSString*>(nullptr));
        });
    show(alert, page);
}

}  // namespace pane
