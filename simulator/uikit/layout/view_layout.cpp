// Views: what they have to say about their layout by constraints.
#include "foundation/raise.h"
#include "uikit/UIView.h"
#include "uikit/layout/layout_pass.h"

namespace sim {

using namespace objc::literals;

namespace {

UILayoutPriority& of_axis(UILayoutPriority (&priorities)[2], UILayoutConstraintAxis axis) {
    if (axis != UILayoutConstraintAxisHorizontal && axis != UILayoutConstraintAxisVertical)
        raise("NSInvalidArgumentException"_ns,
              "the axis is " + std::to_string(axis) + "; it is 0, horizontal, or 1, vertical");
    return priorities[axis];
}

}  // namespace

NSArray* View::constraints() {
    const auto& held = ivars().layout.constraints;
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(held.size());
    for (NSLayoutConstraint* constraint : held) list->addObject(constraint);
    return NSArray::arrayWithArray(list);
}

void View::setTranslatesAutoresizingMask(bool translates) {
    if (ivars().layout.translates_mask == translates) return;
    ivars().layout.translates_mask = translates;
    layout_changed(this);
}

bool View::hasAmbiguousLayout() {
    bring_layout_up_to_date(this);
    return ivars().layout.is_ambiguous;
}

void View::invalidateIntrinsicContentSize() { layout_changed_by_content(this); }

UILayoutPriority View::huggingPriority(UILayoutConstraintAxis axis) {
    return of_axis(ivars().layout.hugging, axis);
}

void View::setHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
    of_axis(ivars().layout.hugging, axis) = priority;
    layout_changed_by_content(this);
}

UILayoutPriority View::compressionPriority(UILayoutConstraintAxis axis) {
    return of_axis(ivars().layout.compression, axis);
}

void View::setCompressionPriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
    of_axis(ivars().layout.compression, axis) = priority;
    layout_changed_by_content(this);
}

}  // namespace sim
