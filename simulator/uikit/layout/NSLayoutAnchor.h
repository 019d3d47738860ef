// The implementation of anchors: one attribute of a view.
#pragma once
#include "objc/class.h"
#include "platform/uikit.h"

namespace sim {

struct Anchor : objc::Implements<Anchor, NSLayoutAnchor> {
    struct Ivars {
        objc::weak<UIView> item;
        NSLayoutAttribute attribute = NSLayoutAttributeNotAnAttribute;
    };

    /// The constraint between this anchor and the other.
    NSLayoutConstraint* related(NSLayoutRelation relation, NSLayoutAnchor* other, CGFloat multiplier,
                                CGFloat constant);
    /// The constraint between this anchor, a size, and a constant.
    NSLayoutConstraint* related(NSLayoutRelation relation, CGFloat constant);

    NSLayoutConstraint* equal(NSLayoutAnchor* other) { return related(NSLayoutRelationEqual, other, 1, 0); }
    NSLayoutConstraint* at_most(NSLayoutAnchor* other) {
        return related(NSLayoutRelationLessThanOrEqual, other, 1, 0);
    }
    NSLayoutConstraint* at_least(NSLayoutAnchor* other) {
        return related(NSLayoutRelationGreaterThanOrEqual, other, 1, 0);
    }
    NSLayoutConstraint* equal_and(NSLayoutAnchor* other, CGFloat constant) {
        return related(NSLayoutRelationEqual, other, 1, constant);
    }
    NSLayoutConstraint* at_most_and(NSLayoutAnchor* other, CGFloat constant) {
        return related(NSLayoutRelationLessThanOrEqual, other, 1, constant);
    }
    NSLayoutConstraint* at_least_and(NSLayoutAnchor* other, CGFloat constant) {
        return related(NSLayoutRelationGreaterThanOrEqual, other, 1, constant);
    }
};

/// The view's anchor for the attribute.
template <class Kind>
Kind* make_anchor(UIView* view, NSLayoutAttribute attribute) {
    auto made = Kind::make();
    auto& ivars = static_cast<Anchor*>(static_cast<NSLayoutAnchor*>(made.get()))->ivars();
    ivars.item = view;
    ivars.attribute = attribute;
    return std::move(made).autoreleased();
}

}  // namespace sim
