#include "uikit/layout/layout_pass.h"

#include "uikit/UIView.h"
#include "uikit/layout/activation.h"
#include "uikit/layout/layout_system.h"

namespace sim {

using objc::strong;

namespace {

/// How many moves to solutions are under way: frames that they set need no new solution.
int placing = 0;

UIView* topmost(UIView* view) {
    while (UIView* above = view->superview()) view = above;
    return view;
}

struct Place {
    CGRect bounds;
    CGPoint center;
    friend bool operator==(const Place&, const Place&) = default;
};

Place place_now(UIView* view) { return {view->bounds(), view->center()}; }

/// Where the solution has it; what scrolls and transforms it stays. Nothing moves the topmost view.
Place place_wanted(UIView* view) {
    const auto [origin, size] = layout_state_of(view).solution;
    const CGPoint anchor = view->layer()->anchorPoint();
    if (!view->superview()) return {{view->bounds().origin, size}, view->center()};
    return {{view->bounds().origin, size},
            {origin.x + anchor.x * size.width, origin.y + anchor.y * size.height}};
}

void move_to_solution(UIView* view) {
    if (!layout_state_of(view).has_solution) return;
    const Place wanted = place_wanted(view);
    if (place_now(view) == wanted) return;
    struct Placing {
        Placing() { ++placing; }
        ~Placing() { --placing; }
    } now;
    view->setBounds(wanted.bounds);
    view->setCenter(wanted.center);
}

void demand_layout_where_views_move(UIView* view) {
    const auto subviews = static_cast<View*>(view)->ivars().subviews;
    bool one_moves = false;
    for (UIView* subview : subviews) {
        const LayoutState& state = layout_state_of(subview);
        if (!state.takes_part) continue;
        one_moves = one_moves || (state.has_solution && place_now(subview) != place_wanted(subview));
        demand_layout_where_views_move(subview);
    }
    if (one_moves) view->setNeedsLayout();
}

}  // namespace

void layout_changed(UIView* view) {
    if (active_constraint_count()) layout_state_of(topmost(view)).is_outdated = true;
}

void layout_changed_by_frame(UIView* view) {
    if (placing || !active_constraint_count()) return;
    const LayoutState& state = layout_state_of(view);
    if (state.takes_part && (!state.has_solution || !view->superview())) layout_changed(view);
}

void layout_changed_by_content(UIView* view) {
    if (!layout_state_of(view).translates_mask) layout_changed(view);
}

void bring_layout_up_to_date(UIView* view) {
    UIView* top = topmost(view);
    if (!layout_state_of(top).is_outdated) return;
    layout_state_of(top).is_outdated = false;
    solve_layout(top);
    move_to_solution(top);
    demand_layout_where_views_move(top);
}

void place_subviews(UIView* view) {
    if (!active_constraint_count()) return;
    bring_layout_up_to_date(view);
    const auto subviews = static_cast<View*>(view)->ivars().subviews;
    for (UIView* subview : subviews) move_to_solution(subview);
}

}  // namespace sim
