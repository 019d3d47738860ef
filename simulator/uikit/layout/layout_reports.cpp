#include "uikit/layout/layout_reports.h"

#include <charconv>
#include <cstdio>

namespace sim {

using objc::strong;

namespace {

std::vector<LayoutReport>& reports() {
    static auto* all = new std::vector<LayoutReport>;
    return *all;
}

std::string text_of(double number) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

}  // namespace

const std::vector<LayoutReport>& layout_reports() { return reports(); }

void report_layout(LayoutReport report) {
    std::fprintf(stderr, "layout: %s\n", report.line.c_str());
    reports().push_back(std::move(report));
}

std::string path_of(UIView* view) {
    UIView* above = view->superview();
    if (!above) return object_getClassName(view);
    NSArray* siblings = above->subviews();
    NSUInteger index = 0;
    while (index < siblings->count() && siblings->objectAtIndex(index) != view) ++index;
    return path_of(above) + "/" + object_getClassName(view) + "[" + std::to_string(index) + "]";
}

std::string description_of(Constraint* constraint) {
    auto& ivars = constraint->ivars();
    auto side = [](UIView* view, NSLayoutAttribute attribute) {
        return (view ? path_of(view) : "(a view that is gone)") + "." + name_of_attribute(attribute);
    };
    const strong<UIView> first = ivars.firstItem.get(), second = ivars.secondItem.get();
    std::string text = side(first, ivars.firstAttribute);
    text += ivars.relation < 0 ? " <= " : ivars.relation > 0 ? " >= " : " == ";
    if (ivars.secondAttribute == NSLayoutAttributeNotAnAttribute) {
        text += text_of(ivars.constant);
    } else {
        text += side(second, ivars.secondAttribute);
        if (ivars.multiplier != 1) text += " * " + text_of(ivars.multiplier);
        if (ivars.constant > 0) text += " + " + text_of(ivars.constant);
        if (ivars.constant < 0) text += " - " + text_of(-ivars.constant);
    }
    if (ivars.priority != UILayoutPriorityRequired) text += " @" + text_of(ivars.priority);
    if (ivars.identifier) text += std::string(" (") + ivars.identifier->UTF8String() + ")";
    return text;
}

}  // namespace sim
