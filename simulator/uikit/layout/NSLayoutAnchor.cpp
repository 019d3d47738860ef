// Anchors: what constraints are made of, one attribute of a view.
#include "uikit/layout/NSLayoutAnchor.h"

#include "uikit/layout/NSLayoutConstraint.h"

namespace sim {

NSLayoutConstraint* Anchor::related(NSLayoutRelation relation, NSLayoutAnchor* other, CGFloat multiplier,
                                    CGFloat constant) {
    const objc::strong<UIView> item = ivars().item.get();
    if (!other)  // a pair without its second half: refused where every constraint is checked
        return make_constraint({item, ivars().attribute, relation, nullptr, ivars().attribute, 1, constant});
    auto& others = static_cast<Anchor*>(other)->ivars();
    const objc::strong<UIView> second = others.item.get();
    return make_constraint(
        {item, ivars().attribute, relation, second, others.attribute, multiplier, constant});
}

NSLayoutConstraint* Anchor::related(NSLayoutRelation relation, CGFloat constant) {
    const objc::strong<UIView> item = ivars().item.get();
    return make_constraint(
        {.first = item, .first_attribute = ivars().attribute, .relation = relation, .constant = constant});
}

}  // namespace sim

using namespace objc::definition;
using sim::Anchor;

OBJC_CLASS(NSLayoutAnchor, NSObject, Anchor,
           ivar<"_item", &Anchor::Ivars::item>,
           ivar<"_attribute", &Anchor::Ivars::attribute>,
           method<"constraintEqualToAnchor:", &Anchor::equal>,
           method<"constraintEqualToAnchor:constant:", &Anchor::equal_and>,
           method<"constraintLessThanOrEqualToAnchor:", &Anchor::at_most>,
           method<"constraintLessThanOrEqualToAnchor:constant:", &Anchor::at_most_and>,
           method<"constraintGreaterThanOrEqualToAnchor:", &Anchor::at_least>,
           method<"constraintGreaterThanOrEqualToAnchor:constant:", &Anchor::at_least_and>)
