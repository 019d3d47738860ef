// UIKit's gesture recognisers.
#pragma once
#include "platform/application.h"

using UIGestureRecognizerState = NSInteger;
constexpr UIGestureRecognizerState UIGestureRecognizerStatePossible = 0;
constexpr UIGestureRecognizerState UIGestureRecognizerStateBegan = 1;
constexpr UIGestureRecognizerState UIGestureRecognizerStateChanged = 2;
/// Of a tap, too: recognised.
constexpr UIGestureRecognizerState UIGestureRecognizerStateEnded = 3;
constexpr UIGestureRecognizerState UIGestureRecognizerStateCancelled = 4;
constexpr UIGestureRecognizerState UIGestureRecognizerStateFailed = 5;

/// Watches the touches of its view. Once it recognises them, they are cancelled for the view.
struct UIGestureRecognizer : objc::Interface<UIGestureRecognizer, "UIGestureRecognizer", NSObject> {
    /// The target is not retained; the action takes nothing, or the recogniser.
    objc::strong<UIGestureRecognizer> initWithTarget(id target, SEL action) {
        return send<"initWithTarget:action:", objc::strong<UIGestureRecognizer>>(target, action);
    }
    void addTarget(id target, SEL action) { send<"addTarget:action:">(target, action); }
    void removeTarget(id target, SEL action) { send<"removeTarget:action:">(target, action); }
    UIGestureRecognizerState state() { return send<"state", UIGestureRecognizerState>(); }
    UIView* view() { return send<"view", UIView*>(); }
    bool isEnabled() { return send<"isEnabled", bool>(); }
    /// One that is going on is cancelled.
    void setEnabled(bool enabled) { send<"setEnabled:">(enabled); }
    bool cancelsTouchesInView() { return send<"cancelsTouchesInView", bool>(); }
    void setCancelsTouchesInView(bool cancels) { send<"setCancelsTouchesInView:">(cancels); }
    NSUInteger numberOfTouches() { return send<"numberOfTouches", NSUInteger>(); }
    /// The middle of its touches, in that view's coordinates; nil is the window's.
    CGPoint locationInView(UIView* view) { return send<"locationInView:", CGPoint>(view); }
    /// Not retained; a UIGestureRecognizerDelegate.
    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
};

/// All optional.
struct UIGestureRecognizerDelegate : objc::ProtocolInterface<"UIGestureRecognizerDelegate"> {
    bool shouldBegin(UIGestureRecognizer* recogniser) {
        return send<"gestureRecognizerShouldBegin:", bool>(recogniser);
    }
    bool shouldReceiveTouch(UIGestureRecognizer* recogniser, UITouch* touch) {
        return send<"gestureRecognizer:shouldReceiveTouch:", bool>(recogniser, touch);
    }
    bool shouldRecognizeWith(UIGestureRecognizer* recogniser, UIGestureRecognizer* other) {
        return send<"gestureRecognizer:shouldRecognizeSimultaneouslyWithGestureRecognizer:", bool>(recogniser,
                                                                                                   other);
    }
};

struct UITapGestureRecognizer
    : objc::Interface<UITapGestureRecognizer, "UITapGestureRecognizer", UIGestureRecognizer> {
    NSUInteger numberOfTapsRequired() { return send<"numberOfTapsRequired", NSUInteger>(); }
    void setNumberOfTapsRequired(NSUInteger taps) { send<"setNumberOfTapsRequired:">(taps); }
};

struct UILongPressGestureRecognizer
    : objc::Interface<UILongPressGestureRecognizer, "UILongPressGestureRecognizer", UIGestureRecognizer> {
    /// Seconds; half a second at first.
    double minimumPressDuration() { return send<"minimumPressDuration", double>(); }
    void setMinimumPressDuration(double seconds) { send<"setMinimumPressDuration:">(seconds); }
    CGFloat allowableMovement() { return send<"allowableMovement", CGFloat>(); }
    void setAllowableMovement(CGFloat points) { send<"setAllowableMovement:">(points); }
};

struct UIPanGestureRecognizer
    : objc::Interface<UIPanGestureRecognizer, "UIPanGestureRecognizer", UIGestureRecognizer> {
    /// Since it began, or since it was last set.
    CGPoint translationInView(UIView* view) { return send<"translationInView:", CGPoint>(view); }
    void setTranslation(CGPoint translation, UIView* view) {
        send<"setTranslation:inView:">(translation, view);
    }
    /// Points in a second.
    CGPoint velocityInView(UIView* view) { return send<"velocityInView:", CGPoint>(view); }
    NSUInteger minimumNumberOfTouches() { return send<"minimumNumberOfTouches", NSUInteger>(); }
    void setMinimumNumberOfTouches(NSUInteger count) { send<"setMinimumNumberOfTouches:">(count); }
    NSUInteger maximumNumberOfTouches() { return send<"maximumNumberOfTouches", NSUInteger>(); }
    void setMaximumNumberOfTouches(NSUInteger count) { send<"setMaximumNumberOfTouches:">(count); }
};

struct UIPinchGestureRecognizer
    : objc::Interface<UIPinchGestureRecognizer, "UIPinchGestureRecognizer", UIGestureRecognizer> {
    /// How far apart the two touches are, in their first distance, or since it was last set.
    CGFloat scale() { return send<"scale", CGFloat>(); }
    void setScale(CGFloat scale) { send<"setScale:">(scale); }
    /// Scales in a second.
    CGFloat velocity() { return send<"velocity", CGFloat>(); }
};
