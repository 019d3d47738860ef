// Alerts: see the header.
#include "pane/screens/asking.h"

namespace pane {

void tell(UIViewController* page, NSString* title, NSString* message) {
    UIAlertController* alert = make_alert(title, message);
    alert->addAction(UIAlertAction::action(text<"OK">(), UIAlertActionStyleDefault, nullptr));
    show(alert, page);
}

void tell(UIViewController* page, NSString* title, NSError* error) {
    tell(page, title, error ? error->localizedDescription() : nullptr);
}

void add_cancel(UIAlertController* alert) {
    alert->addAction(UIAlertAction::action(text<"Cancel">(), UIAlertActionStyleCancel, nullptr));
}

void show(UIAlertController* alert, UIViewController* page) {
    page->presentViewController(alert, true, nullptr);
}

}  // namespace pane
