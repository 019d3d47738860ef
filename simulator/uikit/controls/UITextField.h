// The implementation of text fields: a line of text, what stands beside it, and editing it.
#pragma once
#include "objc/class.h"
#include "platform/controls.h"

namespace sim {

struct TextField : objc::Implements<TextField, UITextField> {
    struct Ivars {
        objc::strong<NSString> text, placeholder;
        objc::strong<UIFont> font;
        objc::strong<UIColor> textColor;
        NSTextAlignment textAlignment = NSTextAlignmentNatural;
        UITextBorderStyle borderStyle = UITextBorderStyleNone;
        objc::weak<NSObject> delegate;
        objc::strong<UIView> leftView, rightView;
        UITextFieldViewMode leftViewMode = UITextFieldViewModeNever;
        UITextFieldViewMode rightViewMode = UITextFieldViewModeNever;
        /// In UTF-16 units; the caret is an empty range.
        NSRange selection{};
        NSInteger returnKeyType = 0, keyboardType = 0, autocorrectionType = 0;
        UITextAutocapitalizationType autocapitalizationType = UITextAutocapitalizationTypeSentences;
    };

    objc::strong<UITextField> initWithFrame(CGRect frame);

    // What it shows
    NSString* text() { return ivars().text; }
    void setText(NSString* text);
    NSString* placeholder() { return ivars().placeholder; }
    void setPlaceholder(NSString* placeholder);
    UIFont* font() { return ivars().font; }
    void setFont(UIFont* font);
    UIColor* textColor() { return ivars().textColor; }
    void setTextColor(UIColor* color);
    NSTextAlignment textAlignment() { return ivars().textAlignment; }
    void setTextAlignment(NSTextAlignment alignment);
    UITextBorderStyle borderStyle() { return ivars().borderStyle; }
    void setBorderStyle(UITextBorderStyle style);
    void tintColorDidChange();
    void drawRect(CGRect);

    // Where
    UIView* leftView() { return ivars().leftView; }
    void setLeftView(UIView* view) { replace(ivars().leftView, view); }
    UITextFieldViewMode leftViewMode() { return ivars().leftViewMode; }
    void setLeftViewMode(UITextFieldViewMode mode) { change(ivars().leftViewMode, mode); }
    UIView* rightView() { return ivars().rightView; }
    void setRightView(UIView* view) { replace(ivars().rightView, view); }
    UITextFieldViewMode rightViewMode() { return ivars().rightViewMode; }
    void setRightViewMode(UITextFieldViewMode mode) { change(ivars().rightViewMode, mode); }
    CGRect textRectForBounds(CGRect bounds);
    CGRect leftViewRectForBounds(CGRect bounds);
    CGRect rightViewRectForBounds(CGRect bounds);
    void layoutSubviews();
    CGSize sizeThatFits(CGSize);
    CGSize intrinsicContentSize();

    // Editing
    bool isEditing() { return self()->isFirstResponder(); }
    bool canBecomeFirstResponder() { return self()->isEnabled(); }
    bool becomeFirstResponder();
    bool resignFirstResponder();
    void endTracking(UITouch* touch, UIEvent* event);
    bool hasText() { return ivars().text->length() > 0; }
    void insertText(NSString* text) { replace_range(ivars().selection, text); }
    void deleteBackward();

    /// What a keyboard does: the delegate is asked first.
    void type(NSString* text);
    void type_deletion();
    void type_return();
    /// False beyond the end of the text.
    bool select(NSRange range);

  private:
    bool delegate_allows(SEL question);
    void tell_delegate(SEL message);
    bool delegate_allows(NSRange range, NSString* replacement);
    void replace_range(NSRange range, NSString* replacement);
    NSRange range_before_caret();
    void replace(objc::strong<UIView>& side, UIView* view);
    void change(UITextFieldViewMode& mode, UITextFieldViewMode wanted);
    bool shows(UIView* view, UITextFieldViewMode mode);
    void content_changed();
};

}  // namespace sim
