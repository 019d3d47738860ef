#include "uikit/layout/layout_system.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>
#include <unordered_map>

#include "platform/scrolling.h"
#include "uikit/UIView.h"
#include "uikit/autoresizing.h"
#include "uikit/layout/layout_reports.h"
#include "uikit/layout/solver.h"

namespace sim {
namespace {

using objc::strong;

/// A stretch of a view along one axis. Places are measured from the topmost view's corner.
struct Stretch {
    Expression start, length;
    Expression end() const { return start + length; }
    Expression middle() const { return start + length * 0.5; }
};

constexpr size_t none = std::numeric_limits<size_t>::max();

struct Node {
    UIView* view;
    /// The superview's place among the nodes.
    size_t above;
    /// By axis.
    Stretch stretch[2];
    /// A scroll view's edges are those of its content to what is inside; this is how long that is.
    bool scrolls = false;
    Expression content[2];
};

/// What is asked of the solver, and what is said when it cannot be met.
struct Demand {
    Expression expression;
    Relation relation;
    UILayoutPriority priority;
    /// Among demands of one priority: equations, which need no search, come first; then the sizes, which are
    /// not negative.
    int rank;
    /// Among those of one rank.
    size_t turn;
    /// nil for a demand that the system makes itself.
    Constraint* constraint = nullptr;
    UIView* view = nullptr;
    const char* what = nullptr;

    std::string description() const { return constraint ? description_of(constraint) : path_of(view) + what; }
};

class LayoutSystem {
  public:
    explicit LayoutSystem(UIView* top) : top_(top) {}

    void solve() {
        mark(top_);
        if (!has_constraints_) return layout_state_of(top_).reported.clear();
        nodes_.reserve(taking_part_);
        list(top_, none);
        for (Node& node : nodes_) {
            place(node);
            place_content(node);
        }
        for (const Node& node : nodes_) demand_constraints(node.view);
        hold_demands();
        settle_the_rest();
        keep_solution();
        report();
    }

  private:
    // ---- Who takes part

    // Those that constraints are about or that wait for some, and the superviews between them and the top.
    // A tree without constraints is not laid out by any: views in it that wait for some keep their frames.
    bool mark(UIView* view) {
        LayoutState& state = layout_state_of(view);
        state.takes_part = state.naming || !state.translates_mask;
        state.has_solution = state.is_ambiguous = false;
        has_constraints_ |= !state.constraints.empty();
        for (UIView* subview : static_cast<View*>(view)->ivars().subviews)
            if (mark(subview)) state.takes_part = true;
        taking_part_ += state.takes_part;
        return state.takes_part;
    }

    void list(UIView* view, size_t above) {
        if (!layout_state_of(view).takes_part) return;
        const size_t here = nodes_.size();
        nodes_.push_back({view, above, {}, false, {}});
        places_[view] = here;
        for (UIView* subview : static_cast<View*>(view)->ivars().subviews) list(subview, here);
    }

    // ---- Where each view is, in variables or numbers

    void place(Node& node) {
        const bool is_top = node.above == none;
        const LayoutState& state = layout_state_of(node.view);
        const CGSize size = node.view->bounds().size;
        if (is_top) {
            // Its place is nobody's business here. A size that constraints may say is as it is otherwise.
            node.stretch[0] = {0, state.translates_mask ? Expression(size.width) : variable(size.width)};
            node.stretch[1] = {0, state.translates_mask ? Expression(size.height) : variable(size.height)};
        } else if (state.translates_mask) {
            place_by_mask(node);
        } else {
            const CGSize content = node.view->intrinsicContentSize();
            place_freely(node, UILayoutConstraintAxisHorizontal, content.width, ".content width");
            place_freely(node, UILayoutConstraintAxisVertical, content.height, ".content height");
        }
        if (!state.translates_mask)
            for (const Stretch& stretch : node.stretch)
                demands_.push_back({.expression = stretch.length,
                                    .relation = Relation::at_least,
                                    .priority = UILayoutPriorityRequired,
                                    .rank = 1,
                                    .turn = demands_.size(),
                                    .view = node.view,
                                    .what = ", which cannot be smaller than nothing"});
    }

    void place_content(Node& node) {
        node.scrolls = as<UIScrollView>(node.view);
        if (!node.scrolls) return;
        for (Expression& length : node.content) length = variable(0);
    }

    Expression variable(double start) {
        return Expression::of(solver_.add_variable(std::isfinite(start) ? start : 0));
    }

    // As the autoresizing mask continues from the present frame.
    void place_by_mask(Node& node) {
        UIView* superview = nodes_[node.above].view;
        const CGSize size = node.view->bounds().size, around = superview->bounds().size;
        const CGPoint center = node.view->center(), anchor = node.view->layer()->anchorPoint();
        const CGRect frame{{center.x - anchor.x * size.width, center.y - anchor.y * size.height}, size};
        const UIViewAutoresizing mask = superview->autoresizesSubviews() ? node.view->autoresizingMask() : 0;
        const CGRect larger = autoresized(frame, mask, around, {around.width + 1, around.height + 1});
        auto along = [](const Stretch& outer, double now, double start, double length, double start_share,
                        double length_share) {
            const Expression growth = outer.length - now;
            return Stretch{outer.start + start + growth * start_share, length + growth * length_share};
        };
        const auto& outer = nodes_[node.above].stretch;
        node.stretch[0] = along(outer[0], around.width, frame.origin.x, size.width,
                                larger.origin.x - frame.origin.x, larger.size.width - size.width);
        node.stretch[1] = along(outer[1], around.height, frame.origin.y, size.height,
                                larger.origin.y - frame.origin.y, larger.size.height - size.height);
    }

    void place_freely(Node& node, UILayoutConstraintAxis axis, CGFloat content, const char* what) {
        const bool has_content = content >= 0 && std::isfinite(content);
        Stretch& stretch = node.stretch[axis];
        stretch = {variable(0), variable(has_content ? content : 0)};
        if (!has_content) return;
        const LayoutState& state = layout_state_of(node.view);
        demands_.push_back({.expression = stretch.length - content,
                            .relation = Relation::at_least,
                            .priority = state.compression[axis],
                            .rank = 3,
                            .turn = demands_.size(),
                            .view = node.view,
                            .what = what});
        demands_.push_back({.expression = stretch.length - content,
                            .relation = Relation::at_most,
                            .priority = state.hugging[axis],
                            .rank = 3,
                            .turn = demands_.size(),
                            .view = node.view,
                            .what = what});
    }

    // ---- What is demanded

    Expression value_of(UIView* view, NSLayoutAttribute attribute, const Node& holder) const {
        const Node& node = nodes_[places_.at(view)];
        const auto& [across, down] = node.stretch;
        const Expression &left = holder.stretch[0].start, &top = holder.stretch[1].start;
        if (node.scrolls && &node == &holder) {
            if (attribute == NSLayoutAttributeRight || attribute == NSLayoutAttributeTrailing)
                return node.content[0];
            if (attribute == NSLayoutAttributeBottom) return node.content[1];
        }
        switch (attribute) {
            case NSLayoutAttributeLeft:
            case NSLayoutAttributeLeading: return across.start - left;
            case NSLayoutAttributeRight:
            case NSLayoutAttributeTrailing: return across.end() - left;
            case NSLayoutAttributeCenterX: return across.middle() - left;
            case NSLayoutAttributeTop: return down.start - top;
            case NSLayoutAttributeBottom: return down.end() - top;
            case NSLayoutAttributeCenterY: return down.middle() - top;
            case NSLayoutAttributeWidth: return across.length;
            case NSLayoutAttributeHeight: return down.length;
        }
        return {};
    }

    /// The same of a constraint between leading and trailing edges where text runs from right to left:
    /// counted from the right, so that constants lead inwards there, too.
    Expression mirrored_value_of(UIView* view, NSLayoutAttribute attribute, const Node& holder) const {
        if (attribute == NSLayoutAttributeLeading) return value_of(view, NSLayoutAttributeRight, holder) * -1;
        if (attribute == NSLayoutAttributeTrailing) return value_of(view, NSLayoutAttributeLeft, holder) * -1;
        return value_of(view, attribute, holder) * -1;
    }

    static bool is_mirrored(UIView* view, NSLayoutAttribute first, NSLayoutAttribute second) {
        const auto follows_text = [](NSLayoutAttribute attribute) {
            return attribute == NSLayoutAttributeLeading || attribute == NSLayoutAttributeTrailing;
        };
        return (follows_text(first) || follows_text(second)) &&
               view->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
    }

    void demand_constraints(UIView* view) {
        for (NSLayoutConstraint* each : layout_state_of(view).constraints) {
            auto* constraint = static_cast<Constraint*>(each);
            auto& ivars = constraint->ivars();
            const strong<UIView> first = ivars.firstItem.get(), second = ivars.secondItem.get();
            // A view that is just going away is nobody's any more.
            const bool is_pair = ivars.secondAttribute != NSLayoutAttributeNotAnAttribute;
            if (!places_.contains(first) || (is_pair && !places_.contains(second))) continue;
            const Node& holder = nodes_[places_.at(view)];
            const bool mirrored = is_mirrored(first, ivars.firstAttribute, ivars.secondAttribute);
            const auto value = [&](UIView* of, NSLayoutAttribute attribute) {
                return mirrored ? mirrored_value_of(of, attribute, holder) : value_of(of, attribute, holder);
            };
            Expression difference = value(first, ivars.firstAttribute) - ivars.constant;
            if (is_pair) difference = difference - value(second, ivars.secondAttribute) * ivars.multiplier;
            demands_.push_back({.expression = std::move(difference),
                                .relation = static_cast<Relation>(ivars.relation),
                                .priority = ivars.priority,
                                .rank = ivars.relation == NSLayoutRelationEqual ? 0 : 2,
                                .turn = ivars.turn,
                                .constraint = constraint});
        }
    }

    void hold_demands() {
        auto importance = [](const Demand& demand) {
            return std::tuple(-demand.priority, demand.rank, demand.turn);
        };
        std::sort(demands_.begin(), demands_.end(),
                  [&](const Demand& a, const Demand& b) { return importance(a) < importance(b); });
        for (unsigned i = 0; i < demands_.size(); ++i) {
            const Demand& demand = demands_[i];
            const bool required = demand.priority >= UILayoutPriorityRequired;
            const auto verdict =
                solver_.hold(demand.expression, demand.relation,
                             required ? Solver::Importance::required : Solver::Importance::optional, i);
            if (required && !verdict.met) note_conflict(demand, verdict.against);
        }
    }

    void note_conflict(const Demand& demand, const std::vector<unsigned>& against) {
        std::string line = "cannot be met and is left out: " + demand.description();
        for (unsigned other : against)
            line += (other == against.front() ? "; against it: " : ", ") + demands_[other].description();
        if (against.empty()) line += "; its views have the frames that their autoresizing masks say";
        reports_.push_back({LayoutReport::Problem::conflict, std::move(line)});
    }

    // ---- What is left open: from the top down, sizes are as small as they may be, then places

    void settle_the_rest() {
        auto source = static_cast<unsigned>(demands_.size());
        auto settle = [&](const Expression& towards_zero) {
            solver_.hold(towards_zero, Relation::equal, Solver::Importance::optional, source++);
        };
        for (Node& node : nodes_) {
            LayoutState& state = layout_state_of(node.view);
            if (node.scrolls)
                for (const Expression& length : node.content)
                    if (!solver_.is_determined(length)) settle(length);
            if (state.translates_mask) continue;
            if (node.above == none) {
                const CGSize size = node.view->bounds().size;
                settle(node.stretch[0].length - size.width);
                settle(node.stretch[1].length - size.height);
                continue;
            }
            static constexpr const char* names[2][2] = {{"width", "horizontal place"},
                                                        {"height", "vertical place"}};
            std::string open;
            for (size_t axis : {0, 1}) {
                const Expression& length = node.stretch[axis].length;
                const Expression place = node.stretch[axis].start - nodes_[node.above].stretch[axis].start;
                const bool open_length = !solver_.is_determined(length),
                           open_place = !solver_.is_determined(place);
                if (open_length) open += (open.empty() ? "" : ", ") + std::string(names[axis][0]);
                if (open_place) open += (open.empty() ? "" : ", ") + std::string(names[axis][1]);
                if (open_length) settle(length);
                if (open_place) settle(place);
            }
            if (open.empty()) continue;
            state.is_ambiguous = true;
            reports_.push_back({LayoutReport::Problem::ambiguity, "is ambiguous: " + path_of(node.view) +
                                                                      " has more than one possible " + open});
        }
    }

    // ---- What comes of it

    void keep_solution() {
        const CGFloat scale = UIScreen::mainScreen()->scale();
        // Rounded from the top, so that edges which are one in the equations are one on the screen.
        auto pixel = [&](const Expression& place) {
            return std::round(solver_.value(place) * scale) / scale;
        };
        for (const Node& node : nodes_) {
            LayoutState& state = layout_state_of(node.view);
            if (state.translates_mask) continue;
            CGFloat start[2], length[2];
            for (size_t axis : {0, 1}) {
                const Stretch& stretch = node.stretch[axis];
                start[axis] = pixel(stretch.start);
                length[axis] = std::max(0.0, pixel(stretch.end()) - start[axis]);
                if (node.above != none) start[axis] -= pixel(nodes_[node.above].stretch[axis].start);
            }
            state.solution = {{start[0], start[1]}, {length[0], length[1]}};
            state.has_solution = true;
        }
    }

    void report() {
        std::vector<std::string> lines;
        auto& before = layout_state_of(top_).reported;
        for (LayoutReport& each : reports_) {
            lines.push_back(each.line);
            if (std::find(before.begin(), before.end(), each.line) == before.end())
                report_layout(std::move(each));
        }
        before = std::move(lines);
    }

    UIView* top_;
    bool has_constraints_ = false;
    size_t taking_part_ = 0;
    std::vector<Node> nodes_;
    std::unordered_map<UIView*, size_t> places_;
    std::vector<Demand> demands_;
    std::vector<LayoutReport> reports_;
    Solver solver_;
};

}  // namespace

void solve_layout(UIView* top) {
    const strong<UIView> kept = top;
    LayoutSystem(top).solve();
}

}  // namespace sim
