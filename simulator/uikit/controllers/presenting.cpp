// Presenting one view controller over another. Transitions take no time.
#include <algorithm>
#include <string>

#include "foundation/raise.h"
#include "objc/string.h"
#include "phone/screen_kind.h"
#include "platform/alerts.h"
#include "runtime/block.h"
#include "runtime/not_modelled.h"
#include "uikit/controllers/UIViewController.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

/// How a controller is shown on this screen.
enum class Form {
    covering,     ///< over everything; what is behind it leaves the screen
    transparent,  ///< over everything, and what is behind it stays
    card,         ///< in the middle of an iPad
    popover,      ///< beside its source, on an iPad
};

bool is_popover_on_pads(UIViewController* controller) {
    if (auto* alert = as<UIAlertController>(controller))
        return alert->preferredStyle() == UIAlertControllerStyleActionSheet;
    return as<UIActivityViewController>(controller) ||
           controller->modalPresentationStyle() == UIModalPresentationPopover;
}

Form form_of(UIViewController* controller) {
    if (is_pad() && is_popover_on_pads(controller)) return Form::popover;
    switch (const auto style = controller->modalPresentationStyle()) {
        case UIModalPresentationFullScreen: return Form::covering;
        case UIModalPresentationPageSheet:
        case UIModalPresentationFormSheet: return is_pad() ? Form::card : Form::covering;
        case UIModalPresentationPopover: return Form::covering;
        case UIModalPresentationOverFullScreen:
        case UIModalPresentationOverCurrentContext: return Form::transparent;
        default: not_modelled("UIViewController", "modalPresentationStyle", "style " + std::to_string(style));
    }
}

/// Where a popover points, in the container's coordinates.
CGRect source_of(UIViewController* controller, UIView* container) {
    UIPopoverPresentationController* popover = controller->popoverPresentationController();
    if (UIView* source = popover->sourceView()) {
        CGRect rect = popover->sourceRect();
        if (rect.size.width == 0 && rect.size.height == 0) rect = source->bounds();
        return source->convertRectToView(rect, container);
    }
    // An item stands at the end of the bar.
    if (popover->barButtonItem()) return {{container->bounds().size.width - 60, 20}, {50, 44}};
    raise("NSGenericException"_ns,
          std::string("a popover (") + object_getClassName(controller) +
              ") needs a place that it comes from: set its popoverPresentationController's sourceView or "
              "barButtonItem before it is presented");
}

/// Below its source, or above it where there is more room. Its arrow is not drawn.
CGRect popover_frame(UIViewController* controller, UIView* container) {
    constexpr CGFloat usual_width = 320, usual_height = 480, margin = 10;
    const CGRect source = source_of(controller, container);
    const CGSize room = container->bounds().size, wanted = controller->preferredContentSize();
    const CGSize size{wanted.width > 0 ? wanted.width : usual_width,
                      wanted.height > 0 ? wanted.height : usual_height};
    const CGFloat below = source.origin.y + source.size.height + margin;
    const CGFloat above = source.origin.y - margin - size.height;
    const bool fits_below = below + size.height + margin <= room.height;
    const CGFloat x = source.origin.x + source.size.width / 2 - size.width / 2;
    return {{std::clamp(x, margin, std::max(margin, room.width - margin - size.width)),
             fits_below ? below : std::max(margin, above)},
            size};
}

CGRect frame_of(Form form, UIViewController* controller, UIView* container) {
    constexpr CGSize form_sheet{540, 620};
    const CGRect all = container->bounds();
    if (form == Form::popover) return popover_frame(controller, container);
    if (form != Form::card) return all;
    const CGSize size = controller->modalPresentationStyle() == UIModalPresentationPageSheet
                            ? CGSize{std::min(768.0, all.size.width), all.size.height - 40}
                            : form_sheet;
    return {{(all.size.width - size.width) / 2, (all.size.height - size.height) / 2}, size};
}

strong<UIView> dimming_view(CGRect frame) {
    auto view = UIView::alloc()->initWithFrame(frame);
    view->setBackgroundColor(UIColor::colorWithWhite(0, 0.4));
    return view;
}

/// The controller's topmost parent: what is presented covers all of it.
UIViewController* topmost_parent(UIViewController* controller) {
    while (UIViewController* parent = controller->parentViewController()) controller = parent;
    return controller;
}

}  // namespace

UIViewController* ViewController::presentedViewController() {
    if (ivars().presented) return ivars().presented;
    return ivars().parent ? ivars().parent->presentedViewController() : nullptr;
}

UIViewController* ViewController::presentingViewController() {
    if (ivars().presenting) return ivars().presenting;
    return ivars().parent ? ivars().parent->presentingViewController() : nullptr;
}

UIPopoverPresentationController* ViewController::popoverPresentationController() {
    auto* self = this->self();
    if (!is_popover_on_pads(self)) return nullptr;
    if (!ivars().popover) ivars().popover = UIPopoverPresentationController::make();
    return ivars().popover;
}

void ViewController::presentViewController(UIViewController* controller, bool animated, id completion) {
    auto* self = this->self();
    if (!controller)
        not_modelled("UIViewController",
                     "presentViewController:animated:completion:", "nil, for which the device raises");
    if (UIViewController* top = topmost_parent(self); top != self)
        return top->presentViewController(controller, animated, completion);
    if (ivars().presented || controller->presentingViewController()) return;  // the device logs a warning
    UIView* container = ivars().view ? ivars().view->superview() : nullptr;
    if (!container || !container->window()) return;  // the same
    const Form form = form_of(controller);
    UIView* view = controller->view();
    const CGRect frame = frame_of(form, controller, container);
    ivars().presented = controller;
    of(controller).presenting = self;
    view->setFrame(frame);
    if (form == Form::card || form == Form::popover) {
        of(controller).dimming = dimming_view(container->bounds());
        container->addSubview(of(controller).dimming);
        view->layer()->setCornerRadius(10);
        view->setClipsToBounds(true);
    }
    const bool covers = form == Form::covering;
    if (covers) self->viewWillDisappear(animated);
    controller->viewWillAppear(animated);
    container->addSubview(view);
    tell_of_safe_area(controller);
    container->layoutIfNeeded();
    controller->viewDidAppear(animated);
    if (covers) {
        ivars().view->removeFromSuperview();
        self->viewDidDisappear(animated);
    }
    call_block(completion);
}

void ViewController::dismissViewController(bool animated, id completion) {
    auto* self = this->self();
    if (!ivars().presented) {
        if (UIViewController* parent = ivars().parent)
            parent->dismissViewController(animated, completion);
        else if (UIViewController* presenting = ivars().presenting)
            presenting->dismissViewController(animated, completion);
        else
            call_block(completion);
        return;
    }
    const strong<UIViewController> kept = self, leaving = ivars().presented;
    if (of(leaving).presented) leaving->dismissViewController(false, nullptr);
    UIView* view = leaving->view();
    UIView* container = view->superview();
    const bool covers = form_of(leaving) == Form::covering;
    of(leaving).being_dismissed = true;
    leaving->viewWillDisappear(animated);
    if (covers) {
        self->viewWillAppear(animated);
        container->insertSubviewBelow(ivars().view, view);
        container->layoutIfNeeded();
    }
    of(leaving).dimming->removeFromSuperview();
    of(leaving).dimming = nullptr;
    view->removeFromSuperview();
    of(leaving).presenting = nullptr;
    ivars().presented = nullptr;
    if (covers) self->viewDidAppear(animated);
    leaving->viewDidDisappear(animated);
    of(leaving).being_dismissed = false;
    call_block(completion);
}

}  // namespace sim
