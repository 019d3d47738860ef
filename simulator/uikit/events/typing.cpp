#include "uikit/events/typing.h"

#include "uikit/controllers/screen.h"
#include "uikit/controls/UITextField.h"
#include "uikit/events/first_responder.h"

namespace sim {
namespace {

using namespace objc::literals;

/// The text field that is typed into; nil, and why, when there is none.
TextField* typed_into(std::string& error) {
    UIResponder* responder = first_responder();
    if (auto* field = as<UITextField>(responder)) return static_cast<TextField*>(field);
    error = responder ? std::string("the first responder is of the class ") + object_getClassName(responder) +
                            ", which takes no text"
                      : "there is no first responder; tap a text field first";
    return nullptr;
}

bool done() {
    lay_out_screen();
    return true;
}

}  // namespace

bool type_text(NSString* text, std::string& error) {
    for (NSUInteger i = 0; i < text->length();) {
        // A return may end the editing.
        TextField* field = typed_into(error);
        if (!field) return false;
        const NSRange range = text->send<"rangeOfComposedCharacterSequenceAtIndex:", NSRange>(i);
        NSString* character = text->send<"substringWithRange:", NSString*>(range);
        if (character->isEqualToString("\n"_ns))
            field->type_return();
        else
            field->type(character);
        i = range.location + range.length;
    }
    return done();
}

bool delete_backward(std::string& error) {
    TextField* field = typed_into(error);
    if (!field) return false;
    field->type_deletion();
    return done();
}

bool press_return(std::string& error) {
    TextField* field = typed_into(error);
    if (!field) return false;
    field->type_return();
    return done();
}

bool select_text(NSRange range, std::string& error) {
    TextField* field = typed_into(error);
    if (!field) return false;
    if (field->select(range)) return done();
    error = "the range " + std::to_string(range.location) + ", " + std::to_string(range.length) +
            " is not in the text, which has " +
            std::to_string(static_cast<UITextField*>(field)->text()->length()) + " UTF-16 units";
    return false;
}

}  // namespace sim
