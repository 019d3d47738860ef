// The implementation of constraints: their state, which the solution of a layout reads.
#pragma once
#include <string>

#include "objc/class.h"
#include "platform/uikit.h"

namespace sim {

struct Constraint : objc::Implements<Constraint, NSLayoutConstraint> {
    struct Ivars {
        objc::weak<UIView> firstItem, secondItem;
        NSLayoutAttribute firstAttribute = NSLayoutAttributeNotAnAttribute;
        NSLayoutAttribute secondAttribute = NSLayoutAttributeNotAnAttribute;
        NSLayoutRelation relation = NSLayoutRelationEqual;
        CGFloat multiplier = 1, constant = 0;
        UILayoutPriority priority = UILayoutPriorityRequired;
        objc::strong<NSString> identifier;
        /// Not owned: the view that holds this one while it is active, and clears this when it lets go.
        UIView* holder = nullptr;
        /// When it became active, among all.
        size_t turn = 0;
    };

    static NSLayoutConstraint* between(Class, UIView* first, NSLayoutAttribute first_attribute,
                                       NSLayoutRelation relation, UIView* second,
                                       NSLayoutAttribute second_attribute, CGFloat multiplier,
                                       CGFloat constant);
    static void activateConstraints(Class, NSArray* constraints);
    static void deactivateConstraints(Class, NSArray* constraints);
    bool isActive() { return ivars().holder != nullptr; }
    void setActive(bool active);
    id firstItem() { return ivars().firstItem.get().autoreleased(); }
    id secondItem() { return ivars().secondItem.get().autoreleased(); }
    NSLayoutAttribute firstAttribute() { return ivars().firstAttribute; }
    NSLayoutAttribute secondAttribute() { return ivars().secondAttribute; }
    NSLayoutRelation relation() { return ivars().relation; }
    CGFloat multiplier() { return ivars().multiplier; }
    CGFloat constant() { return ivars().constant; }
    void setConstant(CGFloat constant);
    UILayoutPriority priority() { return ivars().priority; }
    void setPriority(UILayoutPriority priority);

    /// Whether it is about this view.
    bool names(UIView* view);
};

/// A constraint as it is made: both sides are checked to be of one kind.
struct ConstraintParts {
    UIView* first;
    NSLayoutAttribute first_attribute;
    NSLayoutRelation relation;
    /// nil for a size that is compared with the constant alone.
    UIView* second = nullptr;
    NSLayoutAttribute second_attribute = NSLayoutAttributeNotAnAttribute;
    CGFloat multiplier = 1, constant = 0;
};
/// Inactive and required. Raises NSInvalidArgumentException for what is not an equation.
NSLayoutConstraint* make_constraint(const ConstraintParts&);

/// "width", "centerX".
std::string name_of_attribute(NSLayoutAttribute);

}  // namespace sim
