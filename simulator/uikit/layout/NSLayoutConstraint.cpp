// Constraints: equations between the attributes of views.
#include "uikit/layout/NSLayoutConstraint.h"

#include <cmath>

#include "foundation/raise.h"
#include "objc/fast_enumeration.h"
#include "uikit/layout/activation.h"
#include "uikit/layout/layout_pass.h"

namespace sim {

using namespace objc::literals;
using objc::strong;

namespace {

enum class Kind { none, across, down, size };

struct Attribute {
    const char* name;
    Kind kind;
    /// 1 for left and right, 2 for leading and trailing, which do not go together.
    int direction;
};
constexpr Attribute attributes[] = {
    {"nothing", Kind::none, 0},    {"left", Kind::across, 1},  {"right", Kind::across, 1},
    {"top", Kind::down, 0},        {"bottom", Kind::down, 0},  {"leading", Kind::across, 2},
    {"trailing", Kind::across, 2}, {"width", Kind::size, 0},   {"height", Kind::size, 0},
    {"centerX", Kind::across, 0},  {"centerY", Kind::down, 0},
};

const Attribute& attribute_of(NSLayoutAttribute number) {
    if (number < 0 || number >= static_cast<NSLayoutAttribute>(std::size(attributes)))
        raise("NSInvalidArgumentException"_ns,
              "the layout attribute " + std::to_string(number) + " is not modelled");
    return attributes[number];
}

void check(const ConstraintParts& parts) {
    const Attribute &first = attribute_of(parts.first_attribute),
                    &second = attribute_of(parts.second_attribute);
    auto refuse = [&](const std::string& why) {
        raise("NSInvalidArgumentException"_ns,
              std::string("no constraint between ") + first.name + " and " + second.name + ": " + why);
    };
    if (!parts.first) refuse("there is no first view");
    if (parts.relation < NSLayoutRelationLessThanOrEqual ||
        parts.relation > NSLayoutRelationGreaterThanOrEqual)
        refuse("the relation is " + std::to_string(parts.relation) + "; it is -1, 0 or 1");
    if (!std::isfinite(parts.multiplier) || !std::isfinite(parts.constant))
        refuse("multiplier and constant are finite numbers");
    if ((second.kind == Kind::none) != !parts.second) refuse("a second attribute goes with a second view");
    if (first.kind == Kind::none || (first.kind != Kind::size && second.kind == Kind::none))
        refuse("a position is only equal to another position");
    if (second.kind == Kind::none) return;
    if (first.kind != second.kind) refuse("they are not of one kind");
    if (first.direction && second.direction && first.direction != second.direction)
        refuse("left and right do not go with leading and trailing");
}

}  // namespace

std::string name_of_attribute(NSLayoutAttribute attribute) { return attribute_of(attribute).name; }

NSLayoutConstraint* make_constraint(const ConstraintParts& parts) {
    check(parts);
    auto made = NSLayoutConstraint::make();
    auto& ivars = static_cast<Constraint*>(made.get())->ivars();
    ivars.firstItem = parts.first;
    ivars.firstAttribute = parts.first_attribute;
    ivars.relation = parts.relation;
    ivars.secondItem = parts.second;
    ivars.secondAttribute = parts.second_attribute;
    ivars.multiplier = parts.multiplier;
    ivars.constant = parts.constant;
    return std::move(made).autoreleased();
}

NSLayoutConstraint* Constraint::between(Class, UIView* first, NSLayoutAttribute first_attribute,
                                        NSLayoutRelation relation, UIView* second,
                                        NSLayoutAttribute second_attribute, CGFloat multiplier,
                                        CGFloat constant) {
    return make_constraint(
        {first, first_attribute, relation, second, second_attribute, multiplier, constant});
}

void Constraint::activateConstraints(Class, NSArray* constraints) {
    objc::for_each<NSLayoutConstraint>(constraints, [](auto* constraint) { constraint->setActive(true); });
}

void Constraint::deactivateConstraints(Class, NSArray* constraints) {
    objc::for_each<NSLayoutConstraint>(constraints, [](auto* constraint) { constraint->setActive(false); });
}

void Constraint::setActive(bool active) { active ? activate(this) : deactivate(this); }

void Constraint::setConstant(CGFloat constant) {
    if (!std::isfinite(constant))
        raise("NSInvalidArgumentException"_ns, "a constraint's constant is a finite number");
    if (ivars().constant == constant) return;
    ivars().constant = constant;
    if (ivars().holder) layout_changed(ivars().holder);
}

void Constraint::setPriority(UILayoutPriority priority) {
    if (!(priority > 0 && priority <= UILayoutPriorityRequired))
        raise("NSInternalInconsistencyException"_ns,
              "the priority is " + std::to_string(priority) + "; it is above 0 and not above 1000");
    UILayoutPriority& mine = ivars().priority;
    if (ivars().holder && (mine == UILayoutPriorityRequired) != (priority == UILayoutPriorityRequired))
        raise("NSInternalInconsistencyException"_ns,
              "the priority of an active constraint changes from " + std::to_string(mine) + " to " +
                  std::to_string(priority) + "; it stays required, or stays optional");
    mine = priority;
    if (ivars().holder) layout_changed(ivars().holder);
}

bool Constraint::names(UIView* view) {
    return ivars().firstItem.get() == view || ivars().secondItem.get() == view;
}

}  // namespace sim

using namespace objc::definition;
using sim::Constraint;

OBJC_CLASS(NSLayoutConstraint, NSObject, Constraint,
           ivar<"_firstItem", &sim::Constraint::Ivars::firstItem>,
           ivar<"_secondItem", &sim::Constraint::Ivars::secondItem>,
           ivar<"_firstAttribute", &sim::Constraint::Ivars::firstAttribute>,
           ivar<"_secondAttribute", &sim::Constraint::Ivars::secondAttribute>,
           ivar<"_relation", &sim::Constraint::Ivars::relation>,
           ivar<"_multiplier", &sim::Constraint::Ivars::multiplier>,
           ivar<"_constant", &sim::Constraint::Ivars::constant>,
           ivar<"_priority", &sim::Constraint::Ivars::priority>,
           property<"identifier", &sim::Constraint::Ivars::identifier>,
           ivar<"_holder", &sim::Constraint::Ivars::holder>,
           ivar<"_turn", &sim::Constraint::Ivars::turn>,
           class_method<"constraintWithItem:attribute:relatedBy:toItem:attribute:multiplier:constant:",
                        &Constraint::between>,
           class_method<"activateConstraints:", &Constraint::activateConstraints>,
           class_method<"deactivateConstraints:", &Constraint::deactivateConstraints>,
           method<"isActive", &Constraint::isActive>,
           method<"setActive:", &Constraint::setActive>,
           method<"firstItem", &Constraint::firstItem>,
           method<"secondItem", &Constraint::secondItem>,
           method<"firstAttribute", &Constraint::firstAttribute>,
           method<"secondAttribute", &Constraint::secondAttribute>,
           method<"relation", &Constraint::relation>,
           method<"multiplier", &Constraint::multiplier>,
           method<"constant", &Constraint::constant>,
           method<"setConstant:", &Constraint::setConstant>,
           method<"priority", &Constraint::priority>,
           method<"setPriority:", &Constraint::setPriority>)
