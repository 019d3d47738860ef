#include "uikit/layout/activation.h"

#include <utility>

#include "foundation/raise.h"
#include "runtime/owned_list.h"
#include "uikit/UIView.h"
#include "uikit/layout/layout_pass.h"
#include "uikit/layout/layout_reports.h"

namespace sim {

using namespace objc::literals;
using objc::strong;

namespace {

size_t active_count = 0;

UIView* common_ancestor(UIView* a, UIView* b) {
    for (UIView* above = a; above; above = above->superview())
        if (b->isDescendantOfView(above)) return above;
    return nullptr;
}

void count_naming(Constraint* constraint, int change) {
    for (auto* item : {&constraint->ivars().firstItem, &constraint->ivars().secondItem})
        if (const strong<UIView> view = item->get()) layout_state_of(view).naming += change;
}

/// Everything but taking it from its holder's list.
void released_by_holder(Constraint* constraint) {
    constraint->ivars().holder = nullptr;
    --active_count;
    count_naming(constraint, -1);
}

}  // namespace

size_t active_constraint_count() { return active_count; }

void activate(Constraint* constraint) {
    auto& ivars = constraint->ivars();
    const strong<UIView> first = ivars.firstItem.get(), second = ivars.secondItem.get();
    const bool is_pair = ivars.secondAttribute != NSLayoutAttributeNotAnAttribute;
    if (ivars.holder || !first || (is_pair && !second)) return;
    UIView* holder = is_pair ? common_ancestor(first, second) : first.get();
    if (!holder)
        raise("NSGenericException"_ns, "the constraint " + description_of(constraint) +
                                           " cannot be active: its views have no common superview");
    static size_t turns = 0;
    ivars.turn = ++turns;
    ivars.holder = holder;
    layout_state_of(holder).constraints.emplace_back(constraint);
    ++active_count;
    count_naming(constraint, +1);
    layout_changed(holder);
}

void deactivate(Constraint* constraint) {
    UIView* holder = constraint->ivars().holder;
    if (!holder) return;
    layout_changed(holder);
    const auto taken =
        taken_from(layout_state_of(holder).constraints, static_cast<NSLayoutConstraint*>(constraint));
    released_by_holder(constraint);
}

void drop_constraints_across(UIView* leaving) {
    if (!active_count) return;
    for (UIView* above = leaving->superview(); above; above = above->superview()) {
        const auto held = layout_state_of(above).constraints;
        for (NSLayoutConstraint* each : held) {
            auto* constraint = static_cast<Constraint*>(each);
            const strong<UIView> first = constraint->ivars().firstItem.get(),
                                 second = constraint->ivars().secondItem.get();
            if (first->isDescendantOfView(leaving) || second->isDescendantOfView(leaving))
                deactivate(constraint);
        }
    }
}

void drop_constraints_of(UIView* dying) {
    for (NSLayoutConstraint* each : std::exchange(layout_state_of(dying).constraints, {}))
        released_by_holder(static_cast<Constraint*>(each));
}

}  // namespace sim
