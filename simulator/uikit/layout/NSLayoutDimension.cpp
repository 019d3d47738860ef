// Anchors of sizes, which also compare with a constant or a multiple.
#include "uikit/layout/NSLayoutAnchor.h"

namespace {

struct Dimension : objc::Implements<Dimension, NSLayoutDimension> {
    using Ivars = objc::NoIvars;

    template <NSLayoutRelation Relation>
    NSLayoutConstraint* constant(CGFloat constant) {
        return anchor()->related(Relation, constant);
    }
    template <NSLayoutRelation Relation>
    NSLayoutConstraint* multiple(NSLayoutDimension* other, CGFloat multiplier) {
        return anchor()->related(Relation, other, multiplier, 0);
    }
    template <NSLayoutRelation Relation>
    NSLayoutConstraint* multiple_and(NSLayoutDimension* other, CGFloat multiplier, CGFloat constant) {
        return anchor()->related(Relation, other, multiplier, constant);
    }

  private:
    sim::Anchor* anchor() { return static_cast<sim::Anchor*>(static_cast<NSLayoutAnchor*>(this)); }
};

constexpr auto equal = NSLayoutRelationEqual, at_most = NSLayoutRelationLessThanOrEqual,
               at_least = NSLayoutRelationGreaterThanOrEqual;

}  // namespace

using namespace objc::definition;

OBJC_CLASS(NSLayoutDimension, NSLayoutAnchor, Dimension,
           method<"constraintEqualToConstant:", &Dimension::constant<equal>>,
           method<"constraintLessThanOrEqualToConstant:", &Dimension::constant<at_most>>,
           method<"constraintGreaterThanOrEqualToConstant:", &Dimension::constant<at_least>>,
           method<"constraintEqualToAnchor:multiplier:", &Dimension::multiple<equal>>,
           method<"constraintLessThanOrEqualToAnchor:multiplier:", &Dimension::multiple<at_most>>,
           method<"constraintGreaterThanOrEqualToAnchor:multiplier:", &Dimension::multiple<at_least>>,
           method<"constraintEqualToAnchor:multiplier:constant:", &Dimension::multiple_and<equal>>,
           method<"constraintLessThanOrEqualToAnchor:multiplier:constant:",
                  &Dimension::multiple_and<at_most>>,
           method<"constraintGreaterThanOrEqualToAnchor:multiplier:constant:",
                  &Dimension::multiple_and<at_least>>)
