// What the tests of the panel and the picker share: delegates that note what they are notified of, and
// layouts as text.
#pragma once
#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "views/observing.h"

namespace test {

using Selectors = std::vector<std::string>;

/// Notes its selector.
inline void note_selector(id, SEL selector) { heard.emplace_back(sel_getName(selector)); }

inline void tap(double x, double y) { ASSERT_EQ(sim_tap(x, y), SIM_OK) << sim_last_error(); }
inline void touch(sim_touch_phase phase, double x, double y) {
    ASSERT_EQ(sim_touch(phase, x, y), SIM_OK) << sim_last_error();
}
/// A view's middle on the screen.
inline CGPoint middle_of(UIView* view) {
    const CGSize size = view->bounds().size;
    return view->convertPointToView({size.width / 2, size.height / 2}, view->window());
}
inline void tap(UIView* view) {
    ASSERT_NE(view->window(), nullptr) << "not on the screen";
    const auto [x, y] = middle_of(view);
    tap(x, y);
}

/// The active constraints of a view and of all that is in it, in the order of the tree; views under the names
/// given: "contentView.left = panelView.left + 15".
using Names = std::map<id, std::string>;
inline std::string text_of(NSLayoutConstraint* constraint, const Names& names) {
    static constexpr const char* attributes[] = {"none",   "left",    "right",    "top",
                                                 "bottom", "leading", "trailing", "width",
                                                 "height", "centerX", "centerY"};
    auto name = [&](id view) { return names.contains(view) ? names.at(view) : "?"; };
    char constant[32];
    std::snprintf(constant, sizeof constant, "%g", std::abs(constraint->constant()));
    std::string line = name(constraint->firstItem()) + "." + attributes[constraint->firstAttribute()] + " = ";
    if (constraint->relation() != NSLayoutRelationEqual || constraint->multiplier() != 1 ||
        constraint->priority() != UILayoutPriorityRequired)
        line += "(not a plain equation) ";
    if (!constraint->secondItem()) return line + constant;
    line += name(constraint->secondItem()) + "." + attributes[constraint->secondAttribute()];
    if (constraint->constant() != 0)
        line += (constraint->constant() > 0 ? " + " : " - ") + std::string(constant);
    return line;
}
inline void add_constraints_in(UIView* view, const Names& names, std::vector<std::string>& lines) {
    for (id each : elements(view->constraints()))
        lines.push_back(text_of(static_cast<NSLayoutConstraint*>(each), names));
    for (id each : subviews_of(view)) add_constraints_in(static_cast<UIView*>(each), names, lines);
}
/// Sorted.
inline std::vector<std::string> constraints_in(UIView* view, const Names& names) {
    std::vector<std::string> lines;
    add_constraints_in(view, names, lines);
    std::sort(lines.begin(), lines.end());
    return lines;
}

inline Rgba rgba(CGColorRef color) { return rgba(UIColor::colorWithCGColor(color)); }
inline std::string hex(UIColor* color) {
    return utf8(objc::send<"hexStringFromColor:", id>(class_named("HCCITool"), color));
}
inline std::string hex(CGColorRef color) { return hex(UIColor::colorWithCGColor(color)); }

/// No constraint contradicted another one, and none was missing.
inline void expect_sound_layout() {
    for (size_t i = 0; i < sim_layout_report_count(); ++i) {
        sim_layout_report report;
        ASSERT_EQ(sim_layout_report_at(i, &report), SIM_OK);
        ADD_FAILURE() << report.line;
    }
}

}  // namespace test
