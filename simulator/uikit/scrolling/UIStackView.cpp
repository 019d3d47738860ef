// Stack views: a row or a column of views, which constraints hold together.
#include <algorithm>
#include <string>
#include <vector>

#include "objc/class.h"
#include "platform/scrolling.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

struct StackView : objc::Implements<StackView, UIStackView> {
    struct Ivars {
        std::vector<strong<UIView>> arranged;
        UILayoutConstraintAxis axis = UILayoutConstraintAxisHorizontal;
        UIStackViewDistribution distribution = UIStackViewDistributionFill;
        UIStackViewAlignment alignment = UIStackViewAlignmentFill;
        CGFloat spacing = 0;
        UIEdgeInsets layoutMargins{8, 8, 8, 8};
        bool relativeToMargins = false;
        std::vector<strong<NSLayoutConstraint>> constraints;
        /// Hidden views between the arranged ones, where gaps are to be equal.
        std::vector<strong<UIView>> spacers;
    };

    strong<UIStackView> initWithArrangedSubviews(NSArray* views) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        for (NSUInteger i = 0; i < views->count(); ++i)
            static_cast<UIStackView*>(self.get())
                ->addArrangedSubview(static_cast<UIView*>(views->objectAtIndex(i)));
        return self;
    }

    // ---- Who is arranged ------------------------------------------------------------------------

    NSArray* arrangedSubviews() {
        const auto& views = ivars().arranged;
        NSMutableArray* list = NSMutableArray::arrayWithCapacity(views.size());
        for (UIView* view : views) list->addObject(view);
        return NSArray::arrayWithArray(list);
    }
    void addArrangedSubview(UIView* view) { self()->insertArrangedSubview(view, ivars().arranged.size()); }
    void insertArrangedSubview(UIView* view, NSUInteger index) {
        if (!view) return;
        forget(view);
        auto& arranged = ivars().arranged;
        const auto place = static_cast<ptrdiff_t>(std::min<NSUInteger>(index, arranged.size()));
        arranged.insert(arranged.begin() + place, view);
        view->setTranslatesAutoresizingMaskIntoConstraints(false);
        if (view->superview() != this) self()->addSubview(view);
        arrange();
    }
    void removeArrangedSubview(UIView* view) {
        forget(view);
        arrange();
    }
    void willRemoveSubview(UIView* view) {
        super<"willRemoveSubview:">(view);
        if (forget(view)) arrange();
    }

    // ---- How ------------------------------------------------------------------------------------

    template <auto Member>
    auto get() {
        return ivars().*Member;
    }
    template <auto Member, class Value = typename objc::detail::MemberOf<decltype(Member)>::type>
    void set(Value value) {
        ivars().*Member = value;
        arrange();
    }

  private:
    bool forget(UIView* view) { return std::erase(ivars().arranged, view) > 0; }

    bool is_column() { return ivars().axis == UILayoutConstraintAxisVertical; }
    NSLayoutAnchor* start(UIView* view) {
        if (is_column()) return view->topAnchor();
        return view->leadingAnchor();
    }
    NSLayoutAnchor* end(UIView* view) {
        if (is_column()) return view->bottomAnchor();
        return view->trailingAnchor();
    }
    NSLayoutDimension* length(UIView* view) {
        return is_column() ? view->heightAnchor() : view->widthAnchor();
    }
    NSLayoutAnchor* side_start(UIView* view) {
        if (is_column()) return view->leadingAnchor();
        return view->topAnchor();
    }
    NSLayoutAnchor* side_end(UIView* view) {
        if (is_column()) return view->trailingAnchor();
        return view->bottomAnchor();
    }
    NSLayoutAnchor* side_middle(UIView* view) {
        if (is_column()) return view->centerXAnchor();
        return view->centerYAnchor();
    }
    NSLayoutDimension* breadth(UIView* view) {
        return is_column() ? view->widthAnchor() : view->heightAnchor();
    }

    void hold(NSLayoutConstraint* constraint, UILayoutPriority priority = UILayoutPriorityRequired) {
        constraint->setPriority(priority);
        constraint->setActive(true);
        ivars().constraints.push_back(constraint);
    }

    UIView* add_spacer() {
        auto spacer = UIView::alloc()->init();
        spacer->setHidden(true);
        spacer->setTranslatesAutoresizingMaskIntoConstraints(false);
        self()->addSubview(spacer);
        ivars().spacers.push_back(spacer);
        return spacer;
    }

    // All of it again: what is arranged, and how, rarely changes.
    void arrange() {
        for (NSLayoutConstraint* old : ivars().constraints) old->setActive(false);
        ivars().constraints.clear();
        const auto old_spacers = std::exchange(ivars().spacers, {});
        for (UIView* old : old_spacers) old->removeFromSuperview();
        const auto views = ivars().arranged;
        if (views.empty()) return;

        auto* self = this->self();
        const UIEdgeInsets margins = ivars().relativeToMargins ? ivars().layoutMargins : UIEdgeInsets{};
        const auto [before, after] =
            is_column() ? std::pair(margins.top, margins.bottom) : std::pair(margins.left, margins.right);
        hold(start(views.front())->constraintEqualToAnchor(start(self), before));
        hold(end(views.back())->constraintEqualToAnchor(end(self), -after));
        for (size_t i = 1; i < views.size(); ++i) separate(views[i - 1], views[i]);
        if (ivars().distribution == UIStackViewDistributionFillEqually)
            for (size_t i = 1; i < views.size(); ++i)
                hold(length(views[i])->constraintEqualToAnchor(length(views[0])));
        for (UIView* view : views) align(view, margins);
        // No broader than it must be.
        constexpr UILayoutPriority slightest = 1;
        hold(breadth(self)->constraintEqualToConstant(0), slightest);
    }

    void separate(UIView* view, UIView* next) {
        const CGFloat spacing = ivars().spacing;
        switch (ivars().distribution) {
            case UIStackViewDistributionFill:
            case UIStackViewDistributionFillEqually:
                return hold(start(next)->constraintEqualToAnchor(end(view), spacing));
            case UIStackViewDistributionEqualSpacing: break;
            default:
                sim::not_modelled("UIStackView", "distribution",
                                  "the distribution " + std::to_string(ivars().distribution));
        }
        constexpr UILayoutPriority faint = 49;
        UIView* spacer = add_spacer();
        hold(start(spacer)->constraintEqualToAnchor(end(view)));
        hold(start(next)->constraintEqualToAnchor(end(spacer)));
        hold(length(spacer)->constraintGreaterThanOrEqualToConstant(spacing));
        if (UIView* first = ivars().spacers.front(); first != spacer)
            hold(length(spacer)->constraintEqualToAnchor(length(first)));
        else
            hold(length(spacer)->constraintEqualToConstant(spacing), faint);
        hold(side_start(spacer)->constraintEqualToAnchor(side_start(self())));
        hold(breadth(spacer)->constraintEqualToConstant(0));
    }

    void align(UIView* view, const UIEdgeInsets& margins) {
        auto* self = this->self();
        const auto [before, after] =
            is_column() ? std::pair(margins.left, margins.right) : std::pair(margins.top, margins.bottom);
        const UIStackViewAlignment alignment = ivars().alignment;
        const bool starts = alignment == UIStackViewAlignmentFill || alignment == UIStackViewAlignmentLeading;
        const bool ends = alignment == UIStackViewAlignmentFill || alignment == UIStackViewAlignmentTrailing;
        if (!starts && !ends && alignment != UIStackViewAlignmentCenter)
            sim::not_modelled("UIStackView", "alignment", "the alignment " + std::to_string(alignment));
        NSLayoutAnchor *first = side_start(view), *last = side_end(view);
        hold(starts ? first->constraintEqualToAnchor(side_start(self), before)
                    : first->constraintGreaterThanOrEqualToAnchor(side_start(self), before));
        hold(ends ? last->constraintEqualToAnchor(side_end(self), -after)
                  : last->constraintLessThanOrEqualToAnchor(side_end(self), -after));
        if (alignment == UIStackViewAlignmentCenter)
            hold(side_middle(view)->constraintEqualToAnchor(side_middle(self), (before - after) / 2));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIStackView, UIView, StackView,
           method<"initWithArrangedSubviews:", &StackView::initWithArrangedSubviews>,
           ivar<"_arranged", &StackView::Ivars::arranged>,
           ivar<"_axis", &StackView::Ivars::axis>,
           ivar<"_distribution", &StackView::Ivars::distribution>,
           ivar<"_alignment", &StackView::Ivars::alignment>,
           ivar<"_spacing", &StackView::Ivars::spacing>,
           ivar<"_layoutMargins", &StackView::Ivars::layoutMargins>,
           ivar<"_relativeToMargins", &StackView::Ivars::relativeToMargins>,
           ivar<"_constraints", &StackView::Ivars::constraints>,
           ivar<"_spacers", &StackView::Ivars::spacers>,
           method<"arrangedSubviews", &StackView::arrangedSubviews>,
           method<"addArrangedSubview:", &StackView::addArrangedSubview>,
           method<"insertArrangedSubview:atIndex:", &StackView::insertArrangedSubview>,
           method<"removeArrangedSubview:", &StackView::removeArrangedSubview>,
           method<"willRemoveSubview:", &StackView::willRemoveSubview>,
           method<"axis", &StackView::get<&StackView::Ivars::axis>>,
           method<"setAxis:", &StackView::set<&StackView::Ivars::axis>>,
           method<"distribution", &StackView::get<&StackView::Ivars::distribution>>,
           method<"setDistribution:", &StackView::set<&StackView::Ivars::distribution>>,
           method<"alignment", &StackView::get<&StackView::Ivars::alignment>>,
           method<"setAlignment:", &StackView::set<&StackView::Ivars::alignment>>,
           method<"spacing", &StackView::get<&StackView::Ivars::spacing>>,
           method<"setSpacing:", &StackView::set<&StackView::Ivars::spacing>>,
           method<"layoutMargins", &StackView::get<&StackView::Ivars::layoutMargins>>,
           method<"setLayoutMargins:", &StackView::set<&StackView::Ivars::layoutMargins>>,
           method<"isLayoutMarginsRelativeArrangement", &StackView::get<&StackView::Ivars::relativeToMargins>>,
           method<"setLayoutMarginsRelativeArrangement:", &StackView::set<&StackView::Ivars::relativeToMargins>>)
