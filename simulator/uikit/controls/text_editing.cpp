// Text fields: editing, with the delegate's questions and notifications on the way.
#include <algorithm>

#include "uikit/controls/UITextField.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

// ---- The delegate ---------------------------------------------------------------------------------------

bool TextField::delegate_allows(SEL question) {
    const auto delegate = ivars().delegate.get();
    if (!delegate->respondsToSelector(question)) return true;
    const auto method = reinterpret_cast<int (*)(id, SEL, id)>(objc_msg_lookup(delegate, question));
    return objc::arrived<bool>(method(delegate, question, this));
}

void TextField::tell_delegate(SEL message) {
    const auto delegate = ivars().delegate.get();
    if (!delegate->respondsToSelector(message)) return;
    reinterpret_cast<void (*)(id, SEL, id)>(objc_msg_lookup(delegate, message))(delegate, message, this);
}

bool TextField::delegate_allows(NSRange range, NSString* replacement) {
    constexpr auto question = objc::selector<"textField:shouldChangeCharactersInRange:replacementString:">;
    const auto delegate = ivars().delegate.get();
    if (!delegate->respondsToSelector(question())) return true;
    return delegate->send<"textField:shouldChangeCharactersInRange:replacementString:", bool>(self(), range,
                                                                                              replacement);
}

// ---- Beginning and ending -------------------------------------------------------------------------------

bool TextField::becomeFirstResponder() {
    auto* self = this->self();
    if (self->isFirstResponder()) return true;
    if (!self->window() || !self->canBecomeFirstResponder() ||
        !delegate_allows(objc::selector<"textFieldShouldBeginEditing:">()))
        return false;
    if (!super<"becomeFirstResponder", bool>()) return false;
    content_changed();
    tell_delegate(objc::selector<"textFieldDidBeginEditing:">());
    self->sendActionsForControlEvents(UIControlEventEditingDidBegin);
    return true;
}

bool TextField::resignFirstResponder() {
    auto* self = this->self();
    if (!self->isFirstResponder()) return super<"resignFirstResponder", bool>();
    if (!delegate_allows(objc::selector<"textFieldShouldEndEditing:">())) return false;
    if (!super<"resignFirstResponder", bool>()) return false;
    content_changed();
    const auto delegate = ivars().delegate.get();
    if (delegate->respondsToSelector(objc::selector<"textFieldDidEndEditing:reason:">())) {
        constexpr NSInteger committed = 0;
        delegate->send<"textFieldDidEndEditing:reason:">(self, committed);
    } else {
        tell_delegate(objc::selector<"textFieldDidEndEditing:">());
    }
    self->sendActionsForControlEvents(UIControlEventEditingDidEnd);
    return true;
}

void TextField::endTracking(UITouch* touch, UIEvent* event) {
    super<"endTrackingWithTouch:withEvent:">(touch, event);
    auto* self = this->self();
    if (self->pointInside(touch->locationInView(self), event)) self->becomeFirstResponder();
}

// ---- Changing the text ----------------------------------------------------------------------------------

void TextField::replace_range(NSRange range, NSString* replacement) {
    NSString* text = ivars().text;
    // The delegate may have changed the text after it was asked.
    const NSUInteger length = text->length();
    range.location = std::min(range.location, length);
    range.length = std::min(range.length, length - range.location);
    ivars().text = strong<NSString>::adopt(
        text->send<"stringByReplacingCharactersInRange:withString:", NSString*>(range, replacement)
            ->send<"copy", NSString*>());
    ivars().selection = {range.location + replacement->length(), 0};
    content_changed();
    self()->sendActionsForControlEvents(UIControlEventEditingChanged);
}

// The selection, or the character before the caret, whole if it is made of several units.
NSRange TextField::range_before_caret() {
    const NSRange selection = ivars().selection;
    if (selection.length || !selection.location) return selection;
    return ivars().text->send<"rangeOfComposedCharacterSequenceAtIndex:", NSRange>(selection.location - 1);
}

void TextField::deleteBackward() {
    const NSRange range = range_before_caret();
    if (range.length) replace_range(range, ""_ns);
}

void TextField::type(NSString* text) {
    const NSRange range = ivars().selection;
    if (delegate_allows(range, text)) replace_range(range, text);
}

void TextField::type_deletion() {
    const NSRange range = range_before_caret();
    if (range.length && delegate_allows(range, ""_ns)) replace_range(range, ""_ns);
}

// Who listens to the end by return wants the keyboard to go.
void TextField::type_return() {
    auto* self = this->self();
    if (!delegate_allows(objc::selector<"textFieldShouldReturn:">())) return;
    const bool somebody_listens = self->allControlEvents() & UIControlEventEditingDidEndOnExit;
    self->sendActionsForControlEvents(UIControlEventEditingDidEndOnExit);
    if (somebody_listens) self->resignFirstResponder();
}

bool TextField::select(NSRange range) {
    const NSUInteger length = ivars().text->length();
    if (range.location > length || range.length > length - range.location) return false;
    ivars().selection = range;
    self()->setNeedsDisplay();
    return true;
}

}  // namespace sim
