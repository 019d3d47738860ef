// Views: the tree of them, and its layers, kept in step; and the window that a tree is in.
#include <algorithm>

#include "runtime/not_modelled.h"
#include "runtime/owned_list.h"
#include "uikit/UIView.h"
#include "uikit/events/first_responder.h"
#include "uikit/layout/activation.h"
#include "uikit/layout/layout_pass.h"

namespace sim {

using objc::strong;

namespace {

void tell_of_coming_window(UIView* view, UIWindow* window) {
    view->willMoveToWindow(window);
    const auto subviews = static_cast<View*>(view)->ivars().subviews;
    for (UIView* subview : subviews) tell_of_coming_window(subview, window);
}

void tell_of_window(UIView* view) {
    if (view->window()) apply_appearance(view);
    view->didMoveToWindow();
    const auto subviews = static_cast<View*>(view)->ivars().subviews;
    for (UIView* subview : subviews) tell_of_window(subview);
}

// Typing goes to views of the window only.
void give_up_first_responder_in(UIView* view) {
    auto* first = as<UIView>(first_responder());
    if (first && first->isDescendantOfView(view)) first->resignFirstResponder();
}

}  // namespace

UIWindow* View::window() {
    for (UIView* view = this; view; view = view->superview())
        if (auto* window = as<UIWindow>(view)) return window;
    return nullptr;
}

NSArray* View::subviews() {
    const auto& views = ivars().subviews;
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(views.size());
    for (UIView* view : views) list->addObject(view);
    return NSArray::arrayWithArray(list);
}

bool View::isDescendantOfView(UIView* view) {
    for (UIView* above = this; above; above = above->superview())
        if (above == view) return true;
    return false;
}

void View::addSubview(UIView* view) { insert(view, SIZE_MAX); }

void View::insertSubview(UIView* view, NSInteger index) {
    insert(view, index < 0 ? SIZE_MAX : static_cast<size_t>(index));
}

// A view that is not a sibling stands for the frontmost place.
void View::insertSubviewBelow(UIView* view, UIView* sibling) {
    const size_t index = index_of(sibling);
    insert(view, index_of(view) < index && contains(view) ? index - 1 : index);
}

void View::insertSubviewAbove(UIView* view, UIView* sibling) {
    const size_t index = index_of(sibling);
    insert(view, index_of(view) < index && contains(view) ? index : index + 1);
}

void View::bringSubviewToFront(UIView* view) {
    if (contains(view)) insert(view, SIZE_MAX);
}

void View::sendSubviewToBack(UIView* view) {
    if (contains(view)) insert(view, 0);
}

void View::removeFromSuperview() {
    auto* above = static_cast<View*>(ivars().superview);
    if (!above) return;
    auto* self = this->self();
    const strong<UIView> kept = self;
    const bool leaves_window = self->window() != nullptr;
    if (leaves_window) give_up_first_responder_in(self);
    self->willMoveToSuperview(nullptr);
    if (leaves_window) tell_of_coming_window(self, nullptr);
    static_cast<UIView*>(above)->willRemoveSubview(self);
    above->detach(self);
    if (leaves_window) tell_of_window(self);
    self->didMoveToSuperview();
}

bool View::contains(UIView* view) { return view && static_cast<View*>(view)->ivars().superview == this; }

// Where a subview stands; the end for any other view.
size_t View::index_of(UIView* subview) {
    const auto& views = ivars().subviews;
    return static_cast<size_t>(std::find(views.begin(), views.end(), subview) - views.begin());
}

// A view that is here already only changes its place. Another one is taken out of its superview first.
void View::insert(UIView* view, size_t index) {
    if (!view) return;
    auto* self = this->self();
    if (self->isDescendantOfView(view)) not_modelled("UIView", "addSubview:", "a view in its own tree");
    const strong<UIView> kept = view;
    auto& subviews = ivars().subviews;
    if (contains(view)) {
        subviews.erase(subviews.begin() + static_cast<ptrdiff_t>(index_of(view)));
        place_layer(view, index);
        return;
    }
    const strong<UIColor> old_tint = view->tintColor();
    UIWindow* const window = self->window();
    const bool changes_window = window != view->window();
    view->willMoveToSuperview(self);
    if (changes_window) tell_of_coming_window(view, window);
    if (auto* above = static_cast<View*>(view->superview())) {
        static_cast<UIView*>(above)->willRemoveSubview(view);
        above->detach(view);
    }
    static_cast<View*>(view)->ivars().superview = self;
    place_layer(view, index);
    layout_changed(self);
    if (!static_cast<View*>(view)->ivars().tintColor && !old_tint->isEqual(view->tintColor()))
        tell_of_tint(view);
    if (changes_window) tell_of_window(view);
    view->didMoveToSuperview();
    self->didAddSubview(view);
}

// Its layer comes to lie below the layer of the next subview, above whatever other layers there are.
void View::place_layer(UIView* view, size_t index) {
    auto& subviews = ivars().subviews;
    index = std::min(index, subviews.size());
    subviews.insert(subviews.begin() + static_cast<ptrdiff_t>(index), view);
    CALayer* layer = self()->layer();
    for (size_t next = index + 1; next < subviews.size(); ++next) {
        CALayer* above = subviews[next]->layer();
        if (above->superlayer() == layer) return layer->insertSublayerBelow(view->layer(), above);
    }
    layer->addSublayer(view->layer());
}

void View::detach(UIView* view) {
    drop_constraints_across(view);
    layout_changed(this);
    const strong<UIView> taken = taken_from(ivars().subviews, view);
    static_cast<View*>(view)->ivars().superview = nullptr;
    view->layer()->removeFromSuperlayer();
    layout_changed(view);  // a tree of its own now
}

}  // namespace sim
