// UIKit's layout by constraints: the anchors of views, and the equations between them.
#pragma once
#include "platform/coregraphics.h"
#include "platform/foundation.h"

/// What of a view an equation is about. Leading is left and trailing right here.
using NSLayoutAttribute = NSInteger;
constexpr NSLayoutAttribute NSLayoutAttributeNotAnAttribute = 0;
constexpr NSLayoutAttribute NSLayoutAttributeLeft = 1;
constexpr NSLayoutAttribute NSLayoutAttributeRight = 2;
constexpr NSLayoutAttribute NSLayoutAttributeTop = 3;
constexpr NSLayoutAttribute NSLayoutAttributeBottom = 4;
constexpr NSLayoutAttribute NSLayoutAttributeLeading = 5;
constexpr NSLayoutAttribute NSLayoutAttributeTrailing = 6;
constexpr NSLayoutAttribute NSLayoutAttributeWidth = 7;
constexpr NSLayoutAttribute NSLayoutAttributeHeight = 8;
constexpr NSLayoutAttribute NSLayoutAttributeCenterX = 9;
constexpr NSLayoutAttribute NSLayoutAttributeCenterY = 10;

using NSLayoutRelation = NSInteger;
constexpr NSLayoutRelation NSLayoutRelationLessThanOrEqual = -1;
constexpr NSLayoutRelation NSLayoutRelationEqual = 0;
constexpr NSLayoutRelation NSLayoutRelationGreaterThanOrEqual = 1;

/// Above 0, up to 1000, which must be met.
using UILayoutPriority = float;
constexpr UILayoutPriority UILayoutPriorityRequired = 1000;
constexpr UILayoutPriority UILayoutPriorityDefaultHigh = 750;
constexpr UILayoutPriority UILayoutPriorityDefaultLow = 250;

using UILayoutConstraintAxis = NSInteger;
constexpr UILayoutConstraintAxis UILayoutConstraintAxisHorizontal = 0;
constexpr UILayoutConstraintAxis UILayoutConstraintAxisVertical = 1;

/// No size of its own in that direction.
constexpr CGFloat UIViewNoIntrinsicMetric = -1;

/// first item's attribute (relation) second item's attribute * multiplier + constant. It has an effect while
/// it is active.
struct NSLayoutConstraint : objc::Interface<NSLayoutConstraint, "NSLayoutConstraint", NSObject> {
    /// Raises NSGenericException for views without a common superview.
    static void activateConstraints(NSArray* constraints) { class_send<"activateConstraints:">(constraints); }
    static void deactivateConstraints(NSArray* constraints) {
        class_send<"deactivateConstraints:">(constraints);
    }

    bool isActive() { return send<"isActive", bool>(); }
    void setActive(bool active) { send<"setActive:">(active); }
    /// nil once the view is gone.
    id firstItem() { return send<"firstItem", id>(); }
    id secondItem() { return send<"secondItem", id>(); }
    NSLayoutAttribute firstAttribute() { return send<"firstAttribute", NSLayoutAttribute>(); }
    NSLayoutAttribute secondAttribute() { return send<"secondAttribute", NSLayoutAttribute>(); }
    NSLayoutRelation relation() { return send<"relation", NSLayoutRelation>(); }
    CGFloat multiplier() { return send<"multiplier", CGFloat>(); }
    CGFloat constant() { return send<"constant", CGFloat>(); }
    void setConstant(CGFloat constant) { send<"setConstant:">(constant); }
    UILayoutPriority priority() { return send<"priority", UILayoutPriority>(); }
    /// An active constraint stays required, or stays optional.
    void setPriority(UILayoutPriority priority) { send<"setPriority:">(priority); }
    NSString* identifier() { return send<"identifier", NSString*>(); }
    void setIdentifier(NSString* identifier) { send<"setIdentifier:">(identifier); }
};

/// Makes inactive constraints between one attribute of a view and another. The constants are in points.
struct NSLayoutAnchor : objc::Interface<NSLayoutAnchor, "NSLayoutAnchor", NSObject> {
    NSLayoutConstraint* constraintEqualToAnchor(NSLayoutAnchor* other) {
        return send<"constraintEqualToAnchor:", NSLayoutConstraint*>(other);
    }
    NSLayoutConstraint* constraintEqualToAnchor(NSLayoutAnchor* other, CGFloat constant) {
        return send<"constraintEqualToAnchor:constant:", NSLayoutConstraint*>(other, constant);
    }
    NSLayoutConstraint* constraintLessThanOrEqualToAnchor(NSLayoutAnchor* other) {
        return send<"constraintLessThanOrEqualToAnchor:", NSLayoutConstraint*>(other);
    }
    NSLayoutConstraint* constraintLessThanOrEqualToAnchor(NSLayoutAnchor* other, CGFloat constant) {
        return send<"constraintLessThanOrEqualToAnchor:constant:", NSLayoutConstraint*>(other, constant);
    }
    NSLayoutConstraint* constraintGreaterThanOrEqualToAnchor(NSLayoutAnchor* other) {
        return send<"constraintGreaterThanOrEqualToAnchor:", NSLayoutConstraint*>(other);
    }
    NSLayoutConstraint* constraintGreaterThanOrEqualToAnchor(NSLayoutAnchor* other, CGFloat constant) {
        return send<"constraintGreaterThanOrEqualToAnchor:constant:", NSLayoutConstraint*>(other, constant);
    }
};

struct NSLayoutXAxisAnchor : objc::Interface<NSLayoutXAxisAnchor, "NSLayoutXAxisAnchor", NSLayoutAnchor> {};

struct NSLayoutYAxisAnchor : objc::Interface<NSLayoutYAxisAnchor, "NSLayoutYAxisAnchor", NSLayoutAnchor> {};

/// A width or a height.
struct NSLayoutDimension : objc::Interface<NSLayoutDimension, "NSLayoutDimension", NSLayoutAnchor> {
    NSLayoutConstraint* constraintEqualToConstant(CGFloat constant) {
        return send<"constraintEqualToConstant:", NSLayoutConstraint*>(constant);
    }
    NSLayoutConstraint* constraintLessThanOrEqualToConstant(CGFloat constant) {
        return send<"constraintLessThanOrEqualToConstant:", NSLayoutConstraint*>(constant);
    }
    NSLayoutConstraint* constraintGreaterThanOrEqualToConstant(CGFloat constant) {
        return send<"constraintGreaterThanOrEqualToConstant:", NSLayoutConstraint*>(constant);
    }
    NSLayoutConstraint* constraintEqualToAnchor(NSLayoutDimension* other, CGFloat multiplier,
                                                CGFloat constant) {
        return send<"constraintEqualToAnchor:multiplier:constant:", NSLayoutConstraint*>(other, multiplier,
                                                                                         constant);
    }
    NSLayoutConstraint* constraintLessThanOrEqualToAnchor(NSLayoutDimension* other, CGFloat multiplier,
                                                          CGFloat constant) {
        return send<"constraintLessThanOrEqualToAnchor:multiplier:constant:", NSLayoutConstraint*>(
            other, multiplier, constant);
    }
    NSLayoutConstraint* constraintGreaterThanOrEqualToAnchor(NSLayoutDimension* other, CGFloat multiplier,
                                                             CGFloat constant) {
        return send<"constraintGreaterThanOrEqualToAnchor:multiplier:constant:", NSLayoutConstraint*>(
            other, multiplier, constant);
    }
    using NSLayoutAnchor::constraintEqualToAnchor;
    using NSLayoutAnchor::constraintGreaterThanOrEqualToAnchor;
    using NSLayoutAnchor::constraintLessThanOrEqualToAnchor;
};
