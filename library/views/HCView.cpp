#include "views/HCView.h"

#include "objc/class.h"

namespace {

using namespace objc::literals;
using objc::strong;

void pin_to_edges(UIView* inner, UIView* outer) {
    inner->setTranslatesAutoresizingMaskIntoConstraints(false);
    inner->topAnchor()->constraintEqualToAnchor(outer->topAnchor())->setActive(true);
    inner->leadingAnchor()->constraintEqualToAnchor(outer->leadingAnchor())->setActive(true);
    inner->trailingAnchor()->constraintEqualToAnchor(outer->trailingAnchor())->setActive(true);
    inner->bottomAnchor()->constraintEqualToAnchor(outer->bottomAnchor())->setActive(true);
}

/// Exactly _UIBackdropView, not a subclass.
bool is_plain_backdrop(UIView* view) {
    return NSStringFromClass(view->send<"class", Class>())->isEqualToString("_UIBackdropView"_ns);
}

struct BlurredView : objc::Implements<BlurredView, HCView> {
    struct Ivars {
        strong<_UIBackdropView> backgroundBlur;
    };

    strong<UIView> init() { return self()->initWithFrame({}); }

    strong<BlurredView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->setOpaque(true);
        self->layer()->setDrawsAsynchronously(true);
        self->setClipsToBounds(true);
        self->layer()->setMasksToBounds(true);
        return self;
    }

    void enableBlur() {
        constexpr NSInteger blurring_style = 2;
        auto& blur = ivars().backgroundBlur;
        if (!blur) blur = _UIBackdropView::alloc()->initWithStyle(blurring_style);
        insertSubview(blur, 0);
    }

    void disableBlur() {
        auto& blur = ivars().backgroundBlur;
        if (!blur) return;
        blur->removeFromSuperview();
        blur = nullptr;
    }

    void didAddSubview(UIView* subview) {
        super<"didAddSubview:">(subview);
        pin_to_edges(subview, this);
        subview->layer()->setDrawsAsynchronously(true);
        subview->setOpaque(true);
        if (is_plain_backdrop(subview)) return;  // rasterised, its blur would freeze
        subview->layer()->setShouldRasterize(true);
        subview->layer()->setRasterizationScale(UIScreen::mainScreen()->scale());
    }

    void didMoveToSuperview() {
        super<"didMoveToSuperview">();
        if (UIView* superview = this->superview()) pin_to_edges(this, superview);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCView, UIView, BlurredView,
           // Properties
           property<"backgroundBlur", &BlurredView::Ivars::backgroundBlur>,

           // Making it
           method<"init", &BlurredView::init>,
           method<"initWithFrame:", &BlurredView::initWithFrame>,

           // The blur
           method<"enableBlur", &BlurredView::enableBlur>,
           method<"disableBlur", &BlurredView::disableBlur>,

           // The hierarchy
           method<"didAddSubview:", &BlurredView::didAddSubview>,
           method<"didMoveToSuperview", &BlurredView::didMoveToSuperview>)
