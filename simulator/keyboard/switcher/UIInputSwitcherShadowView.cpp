// The shadow around a menu, and within it a blur of what lies behind.
#include "keyboard/backdrops/_UIBackdropView.h"
#include "keyboard/backdrops/backdrop_styles.h"
#include "keyboard/make.h"
#include "keyboard/rendering/key_traits.h"
#include "keyboard/rendering/path.h"
#include "keyboard/switcher/UIKeyboardMenuView.h"
#include "objc/class.h"

namespace {

using objc::strong;

/// Everything around a rounded rectangle of that size, as far as a shadow reaches, as a mask.
CALayer* surroundings(CGSize size) {
    constexpr CGFloat reach = 30;
    const CGRect whole{{-reach, -reach}, {size.width + 2 * reach, size.height + 2 * reach}};
    UIGraphicsBeginImageContextWithOptions(whole.size, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetGrayFillColor(context, 0, 1);
    CGContextAddRect(context, {{0, 0}, whole.size});
    CGContextAddPath(context, sim::Path::rounded({{reach, reach}, size}, sim::menu_corner_radius));
    CGContextEOFillPath(context);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    CALayer* layer = CALayer::layer();
    layer->setFrame(whole);
    layer->setContents(reinterpret_cast<id>(image->CGImage()));
    layer->setContentsScale(image->scale());
    return layer;
}

CALayer* shadow_around(CGSize size) {
    CALayer* shadow = CALayer::layer();
    shadow->setFrame({{0, 0}, size});
    shadow->setShadowColor(UIColor::blackColor()->CGColor());
    shadow->setShadowOpacity(0.3f);
    shadow->setShadowRadius(8);
    shadow->setShadowOffset({0, 2});
    shadow->setShadowPath(sim::Path::rounded({{0, 0}, size}, sim::menu_corner_radius));
    shadow->setMask(surroundings(size));
    return shadow;
}

struct ShadowView : objc::Implements<ShadowView, UIInputSwitcherShadowView> {
    struct Ivars {
        strong<_UIBackdropView> blurView;
    };

    strong<UIInputSwitcherShadowView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().blurView = _UIBackdropView::alloc()->initWithStyle(sim::backdrop_style_blur);
        auto* view = static_cast<UIView*>(self.get());
        view->addSubview(self->ivars().blurView);
        if (self->ivars().blurView) sim::round_blur(self->ivars().blurView, sim::menu_corner_radius);
        view->layer()->addSublayer(shadow_around(frame.size));
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIInputSwitcherShadowView, UIView, ShadowView,
           ivar<"_blurView", &ShadowView::Ivars::blurView>,
           method<"initWithFrame:", &ShadowView::initWithFrame>)
