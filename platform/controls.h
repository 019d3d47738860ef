// UIKit's controls: what a person touches, and what then happens.
#pragma once
#include "platform/application.h"

/// A bit mask.
using UIControlEvents = NSUInteger;
constexpr UIControlEvents UIControlEventTouchDown = 1;
constexpr UIControlEvents UIControlEventTouchDownRepeat = 1 << 1;
constexpr UIControlEvents UIControlEventTouchDragInside = 1 << 2;
constexpr UIControlEvents UIControlEventTouchDragOutside = 1 << 3;
constexpr UIControlEvents UIControlEventTouchDragEnter = 1 << 4;
constexpr UIControlEvents UIControlEventTouchDragExit = 1 << 5;
constexpr UIControlEvents UIControlEventTouchUpInside = 1 << 6;
constexpr UIControlEvents UIControlEventTouchUpOutside = 1 << 7;
constexpr UIControlEvents UIControlEventTouchCancel = 1 << 8;
constexpr UIControlEvents UIControlEventValueChanged = 1 << 12;
constexpr UIControlEvents UIControlEventEditingDidBegin = 1 << 16;
constexpr UIControlEvents UIControlEventEditingChanged = 1 << 17;
constexpr UIControlEvents UIControlEventEditingDidEnd = 1 << 18;
constexpr UIControlEvents UIControlEventEditingDidEndOnExit = 1 << 19;

/// A bit mask; 0 is normal.
using UIControlState = NSUInteger;
constexpr UIControlState UIControlStateNormal = 0;
constexpr UIControlState UIControlStateHighlighted = 1;
constexpr UIControlState UIControlStateDisabled = 2;
constexpr UIControlState UIControlStateSelected = 4;

struct UIControl : objc::Interface<UIControl, "UIControl", UIView> {
    /// The target is not retained; once it is gone, nothing happens. nil asks the responders. The action
    /// takes nothing, the sender, or the sender and the UIEvent.
    void addTarget(id target, SEL action, UIControlEvents events) {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }
    /// nil and NULL stand for every target and every action.
    void removeTarget(id target, SEL action, UIControlEvents events) {
        send<"removeTarget:action:forControlEvents:">(target, action, events);
    }
    /// NSNull for targets that are nil.
    NSSet* allTargets() { return send<"allTargets", NSSet*>(); }
    UIControlEvents allControlEvents() { return send<"allControlEvents", UIControlEvents>(); }
    /// Names of selectors; nil when there is none. `event` is one.
    NSArray* actionsForTarget(id target, UIControlEvents event) {
        return send<"actionsForTarget:forControlEvent:", NSArray*>(target, event);
    }
    void sendActionsForControlEvents(UIControlEvents events) { send<"sendActionsForControlEvents:">(events); }
    void sendAction(SEL action, id target, UIEvent* event) {
        send<"sendAction:to:forEvent:">(action, target, event);
    }

    UIControlState state() { return send<"state", UIControlState>(); }
    bool isEnabled() { return send<"isEnabled", bool>(); }
    void setEnabled(bool enabled) { send<"setEnabled:">(enabled); }
    bool isSelected() { return send<"isSelected", bool>(); }
    void setSelected(bool selected) { send<"setSelected:">(selected); }
    bool isHighlighted() { return send<"isHighlighted", bool>(); }
    void setHighlighted(bool highlighted) { send<"setHighlighted:">(highlighted); }

    /// Whether a finger that began in the control is down, and whether it is still inside.
    bool isTracking() { return send<"isTracking", bool>(); }
    bool isTouchInside() { return send<"isTouchInside", bool>(); }
    /// Whether the control goes on with the touch.
    bool beginTracking(UITouch* touch, UIEvent* event) {
        return send<"beginTrackingWithTouch:withEvent:", bool>(touch, event);
    }
    bool continueTracking(UITouch* touch, UIEvent* event) {
        return send<"continueTrackingWithTouch:withEvent:", bool>(touch, event);
    }
    void endTracking(UITouch* touch, UIEvent* event) {
        send<"endTrackingWithTouch:withEvent:">(touch, event);
    }
    void cancelTracking(UIEvent* event) { send<"cancelTrackingWithEvent:">(event); }
};

using UIButtonType = NSInteger;
constexpr UIButtonType UIButtonTypeCustom = 0;
/// Title and template image in the tint colour.
constexpr UIButtonType UIButtonTypeSystem = 1;

/// What is not set for a state is as in the normal state.
struct UIButton : objc::Interface<UIButton, "UIButton", UIControl> {
    static UIButton* buttonWithType(UIButtonType type) {
        return class_send<"buttonWithType:", UIButton*>(type);
    }

    UIButtonType buttonType() { return send<"buttonType", UIButtonType>(); }
    NSString* titleForState(UIControlState state) { return send<"titleForState:", NSString*>(state); }
    void setTitle(NSString* title, UIControlState state) { send<"setTitle:forState:">(title, state); }
    UIColor* titleColorForState(UIControlState state) { return send<"titleColorForState:", UIColor*>(state); }
    void setTitleColor(UIColor* color, UIControlState state) {
        send<"setTitleColor:forState:">(color, state);
    }
    UIImage* imageForState(UIControlState state) { return send<"imageForState:", UIImage*>(state); }
    void setImage(UIImage* image, UIControlState state) { send<"setImage:forState:">(image, state); }
    UIImage* backgroundImageForState(UIControlState state) {
        return send<"backgroundImageForState:", UIImage*>(state);
    }
    void setBackgroundImage(UIImage* image, UIControlState state) {
        send<"setBackgroundImage:forState:">(image, state);
    }
    NSString* currentTitle() { return send<"currentTitle", NSString*>(); }
    UIColor* currentTitleColor() { return send<"currentTitleColor", UIColor*>(); }
    UIImage* currentImage() { return send<"currentImage", UIImage*>(); }
    UIImage* currentBackgroundImage() { return send<"currentBackgroundImage", UIImage*>(); }
    UILabel* titleLabel() { return send<"titleLabel", UILabel*>(); }
    UIImageView* imageView() { return send<"imageView", UIImageView*>(); }
    bool adjustsImageWhenHighlighted() { return send<"adjustsImageWhenHighlighted", bool>(); }
    void setAdjustsImageWhenHighlighted(bool adjusts) { send<"setAdjustsImageWhenHighlighted:">(adjusts); }
    UIEdgeInsets contentEdgeInsets() { return send<"contentEdgeInsets", UIEdgeInsets>(); }
    void setContentEdgeInsets(UIEdgeInsets insets) { send<"setContentEdgeInsets:">(insets); }
};

struct UISlider : objc::Interface<UISlider, "UISlider", UIControl> {
    /// From 0 to 1 at first; kept between minimum and maximum.
    float value() { return send<"value", float>(); }
    void setValue(float value) { send<"setValue:">(value); }
    void setValue(float value, bool animated) { send<"setValue:animated:">(value, animated); }
    float minimumValue() { return send<"minimumValue", float>(); }
    void setMinimumValue(float value) { send<"setMinimumValue:">(value); }
    float maximumValue() { return send<"maximumValue", float>(); }
    void setMaximumValue(float value) { send<"setMaximumValue:">(value); }
    /// Whether a change of value is sent while the knob moves, or when it is let go.
    bool isContinuous() { return send<"isContinuous", bool>(); }
    void setContinuous(bool continuous) { send<"setContinuous:">(continuous); }
    /// nil is the tint colour.
    UIColor* minimumTrackTintColor() { return send<"minimumTrackTintColor", UIColor*>(); }
    void setMinimumTrackTintColor(UIColor* color) { send<"setMinimumTrackTintColor:">(color); }
    /// nil is grey.
    UIColor* maximumTrackTintColor() { return send<"maximumTrackTintColor", UIColor*>(); }
    void setMaximumTrackTintColor(UIColor* color) { send<"setMaximumTrackTintColor:">(color); }
    CGRect trackRectForBounds(CGRect bounds) { return send<"trackRectForBounds:", CGRect>(bounds); }
    CGRect thumbRectForBounds(CGRect bounds, CGRect track, float value) {
        return send<"thumbRectForBounds:trackRect:value:", CGRect>(bounds, track, value);
    }
};

/// As large as it is, whatever frame it is given. A touch turns it over, and changes its value.
struct UISwitch : objc::Interface<UISwitch, "UISwitch", UIControl> {
    bool isOn() { return send<"isOn", bool>(); }
    void setOn(bool on) { send<"setOn:">(on); }
    /// Notifies nobody.
    void setOn(bool on, bool animated) { send<"setOn:animated:">(on, animated); }
    /// nil is green.
    UIColor* onTintColor() { return send<"onTintColor", UIColor*>(); }
    void setOnTintColor(UIColor* color) { send<"setOnTintColor:">(color); }
};

struct UISegmentedControl : objc::Interface<UISegmentedControl, "UISegmentedControl", UIControl> {
    /// Strings and UIImages.
    objc::strong<UISegmentedControl> initWithItems(NSArray* items) {
        return send<"initWithItems:", objc::strong<UISegmentedControl>>(items);
    }
    NSUInteger numberOfSegments() { return send<"numberOfSegments", NSUInteger>(); }
    NSString* titleForSegment(NSUInteger segment) {
        return send<"titleForSegmentAtIndex:", NSString*>(segment);
    }
    void setTitle(NSString* title, NSUInteger segment) {
        send<"setTitle:forSegmentAtIndex:">(title, segment);
    }
    void insertSegment(NSString* title, NSUInteger index, bool animated) {
        send<"insertSegmentWithTitle:atIndex:animated:">(title, index, animated);
    }
    void removeSegment(NSUInteger index, bool animated) {
        send<"removeSegmentAtIndex:animated:">(index, animated);
    }
    /// -1 is none.
    NSInteger selectedSegmentIndex() { return send<"selectedSegmentIndex", NSInteger>(); }
    void setSelectedSegmentIndex(NSInteger index) { send<"setSelectedSegmentIndex:">(index); }
    bool isEnabledForSegment(NSUInteger segment) {
        return send<"isEnabledForSegmentAtIndex:", bool>(segment);
    }
    void setEnabled(bool enabled, NSUInteger segment) {
        send<"setEnabled:forSegmentAtIndex:">(enabled, segment);
    }
    using UIControl::setEnabled;
};

using UITextFieldViewMode = NSInteger;
constexpr UITextFieldViewMode UITextFieldViewModeNever = 0;
constexpr UITextFieldViewMode UITextFieldViewModeWhileEditing = 1;
constexpr UITextFieldViewMode UITextFieldViewModeUnlessEditing = 2;
constexpr UITextFieldViewMode UITextFieldViewModeAlways = 3;

using UIReturnKeyType = NSInteger;
constexpr UIReturnKeyType UIReturnKeyDone = 9;

using UITextAutocapitalizationType = NSInteger;
constexpr UITextAutocapitalizationType UITextAutocapitalizationTypeSentences = 2;
constexpr UITextAutocapitalizationType UITextAutocapitalizationTypeAllCharacters = 3;

using UITextBorderStyle = NSInteger;
constexpr UITextBorderStyle UITextBorderStyleNone = 0;
constexpr UITextBorderStyle UITextBorderStyleRoundedRect = 3;

struct UITextField : objc::Interface<UITextField, "UITextField", UIControl> {
    /// Stands for every text field that comes into a window from now on.
    static UITextField* appearance() { return class_send<"appearance", UITextField*>(); }

    /// Never nil.
    NSString* text() { return send<"text", NSString*>(); }
    /// The delegate is not asked. The caret goes to the end.
    void setText(NSString* text) { send<"setText:">(text); }
    NSString* placeholder() { return send<"placeholder", NSString*>(); }
    void setPlaceholder(NSString* placeholder) { send<"setPlaceholder:">(placeholder); }
    UIFont* font() { return send<"font", UIFont*>(); }
    void setFont(UIFont* font) { send<"setFont:">(font); }
    UIColor* textColor() { return send<"textColor", UIColor*>(); }
    void setTextColor(UIColor* color) { send<"setTextColor:">(color); }
    NSTextAlignment textAlignment() { return send<"textAlignment", NSTextAlignment>(); }
    void setTextAlignment(NSTextAlignment alignment) { send<"setTextAlignment:">(alignment); }
    UITextFieldViewMode clearButtonMode() { return send<"clearButtonMode", UITextFieldViewMode>(); }
    void setClearButtonMode(UITextFieldViewMode mode) { send<"setClearButtonMode:">(mode); }
    UITextBorderStyle borderStyle() { return send<"borderStyle", UITextBorderStyle>(); }
    void setBorderStyle(UITextBorderStyle style) { send<"setBorderStyle:">(style); }
    /// Not retained.
    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
    bool isEditing() { return send<"isEditing", bool>(); }
    UIView* leftView() { return send<"leftView", UIView*>(); }
    void setLeftView(UIView* view) { send<"setLeftView:">(view); }
    UITextFieldViewMode leftViewMode() { return send<"leftViewMode", UITextFieldViewMode>(); }
    void setLeftViewMode(UITextFieldViewMode mode) { send<"setLeftViewMode:">(mode); }
    UIView* rightView() { return send<"rightView", UIView*>(); }
    void setRightView(UIView* view) { send<"setRightView:">(view); }
    UITextFieldViewMode rightViewMode() { return send<"rightViewMode", UITextFieldViewMode>(); }
    void setRightViewMode(UITextFieldViewMode mode) { send<"setRightViewMode:">(mode); }
    UIReturnKeyType returnKeyType() { return send<"returnKeyType", UIReturnKeyType>(); }
    void setReturnKeyType(UIReturnKeyType type) { send<"setReturnKeyType:">(type); }
    UITextAutocapitalizationType autocapitalizationType() {
        return send<"autocapitalizationType", UITextAutocapitalizationType>();
    }
    void setAutocapitalizationType(UITextAutocapitalizationType type) {
        send<"setAutocapitalizationType:">(type);
    }
    CGRect textRectForBounds(CGRect bounds) { return send<"textRectForBounds:", CGRect>(bounds); }
    CGRect leftViewRectForBounds(CGRect bounds) { return send<"leftViewRectForBounds:", CGRect>(bounds); }
    CGRect rightViewRectForBounds(CGRect bounds) { return send<"rightViewRectForBounds:", CGRect>(bounds); }
};

/// What is copied and pasted between applications. One content takes the place of the other.
struct UIPasteboard : objc::Interface<UIPasteboard, "UIPasteboard", NSObject> {
    static UIPasteboard* generalPasteboard() { return class_send<"generalPasteboard", UIPasteboard*>(); }

    /// nil when it holds no text.
    NSString* string() { return send<"string", NSString*>(); }
    void setString(NSString* string) { send<"setString:">(string); }
    bool hasStrings() { return send<"hasStrings", bool>(); }
    /// nil when it holds no image.
    UIImage* image() { return send<"image", UIImage*>(); }
    void setImage(UIImage* image) { send<"setImage:">(image); }
};
