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

void show_from(const SheetSource& source, UIViewController* sheet, UIViewController* page) {
    UIPopoverPresentationController* popover = sheet->popoverPresentationController();
    popover->setBarButtonItem(source.button);
    popover->setSourceView(source.view);
    popover->setSourceRect(source.rect);
    page->presentViewController(sheet, true, nullptr);
}

UITextField* add_name_field(UIAlertController* alert, NSString* first) {
    alert->addTextField(objc::Block([first](UITextField* field) {
        field->setText(first);
        field->setPlaceholder(text<"Name">());
        field->setAccessibilityLabel(text<"Name">());
        field->setAutocapitalizationType(UITextAutocapitalizationTypeSentences);
    }));
    return static_cast<UITextField*>(alert->textFields()->firstObject());
}

NSString* given_name(UITextField* field) {
    NSString* name =
        field->text()->stringByTrimmingCharactersInSet(NSCharacterSet::whitespaceAndNewlineCharacterSet());
    return name && name->length() > 0 ? name : nullptr;
}

}  // namespace pane
