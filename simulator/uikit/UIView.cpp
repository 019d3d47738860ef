// Views: making, geometry, appearance and display, and the list of their methods.
#include "uikit/UIView.h"

#include "coregraphics/transform.h"
#include "quartzcore/layer_geometry.h"
#include "runtime/not_modelled.h"
#include "uikit/autoresizing.h"
#include "uikit/layout/activation.h"
#include "uikit/layout/layout_pass.h"
#include "uikit/layout/view_anchors.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

Class View::layerClass(Class) { return CALayer::class_object(); }

strong<UIView> View::init() { return self()->initWithFrame({}); }

strong<UIView> View::initWithFrame(CGRect frame) {
    auto self = initialised_by_super<"init">();
    if (!self) return nullptr;
    Class layer_class = objc::send<"layerClass", Class>(reinterpret_cast<id>(object_getClass(self)));
    CALayer* layer = objc::send<"layer", CALayer*>(reinterpret_cast<id>(layer_class));
    self->ivars().layer = layer;
    layer->setDelegate(self);
    layer->setOpaque(true);
    layer->setContentsScale(UIScreen::mainScreen()->scale());
    auto* view = static_cast<UIView*>(self.get());
    view->setFrame(frame);
    view->setNeedsDisplay();
    return self;
}

void View::dealloc() {
    drop_constraints_of(this);
    ivars().layer->setDelegate(nullptr);
    for (UIView* subview : ivars().subviews) {
        static_cast<View*>(subview)->ivars().superview = nullptr;
        subview->layer()->removeFromSuperlayer();
    }
}

// ---- Geometry -----------------------------------------------------------------------------------

void View::setFrame(CGRect frame) {
    const CGSize old = bounds().size;
    ivars().layer->setFrame(frame);
    layout_changed_by_frame(this);
    resized_from(old);
}

void View::setCenter(CGPoint center) {
    ivars().layer->setPosition(center);
    layout_changed_by_frame(this);
}

void View::setBounds(CGRect bounds) {
    const CGSize old = this->bounds().size;
    ivars().layer->setBounds(bounds);
    layout_changed_by_frame(this);
    resized_from(old);
}

void View::resized_from(CGSize old) {
    auto* self = this->self();
    const CGSize size = self->bounds().size;
    if (size == old) return;
    if (self->autoresizesSubviews()) {
        const auto subviews = ivars().subviews;
        for (UIView* subview : subviews) {
            const auto mask = subview->autoresizingMask();
            if (mask && subview->translatesAutoresizingMaskIntoConstraints())
                subview->setFrame(autoresized(subview->frame(), mask, old, size));
        }
    }
    if (self->contentMode() == UIViewContentModeRedraw) self->setNeedsDisplay();
}

// nil stands for the coordinates of the window, or of whatever the topmost view would lie in.
static CGAffineTransform conversion(UIView* from, UIView* to) { return between(from->layer(), to->layer()); }

CGPoint View::convertPointToView(CGPoint point, UIView* view) { return apply(conversion(this, view), point); }
CGPoint View::convertPointFromView(CGPoint point, UIView* view) {
    return apply(conversion(view, this), point);
}
CGRect View::convertRectToView(CGRect rect, UIView* view) {
    return bounding_box(conversion(this, view), rect);
}
CGRect View::convertRectFromView(CGRect rect, UIView* view) {
    return bounding_box(conversion(view, this), rect);
}

bool View::pointInside(CGPoint point, UIEvent*) {
    const auto [origin, size] = self()->bounds();
    return point.x >= origin.x && point.x < origin.x + size.width && point.y >= origin.y &&
           point.y < origin.y + size.height;
}

UIView* View::hitTest(CGPoint point, UIEvent* event) {
    constexpr CGFloat visible = 0.01;
    auto* self = this->self();
    if (self->isHidden() || !self->isUserInteractionEnabled() || self->alpha() < visible ||
        !self->pointInside(point, event))
        return nullptr;
    const auto subviews = ivars().subviews;
    for (auto subview = subviews.rbegin(); subview != subviews.rend(); ++subview) {
        const CGPoint inside = self->convertPointToView(point, *subview);
        if (auto* hit = (*subview)->hitTest(inside, event)) return hit;
    }
    return self;
}

void View::sizeToFit() {
    auto* self = this->self();
    const CGRect frame = self->frame();
    self->setFrame({frame.origin, self->sizeThatFits(self->bounds().size)});
}

// ---- Appearance ---------------------------------------------------------------------------------

UIColor* View::backgroundColor() {
    CGColorRef color = ivars().layer->backgroundColor();
    return color ? UIColor::colorWithCGColor(color) : nullptr;
}

void View::setContentMode(UIViewContentMode mode) {
    NSString* gravity = nullptr;
    switch (mode) {
        case UIViewContentModeScaleToFill:
        case UIViewContentModeRedraw: gravity = "resize"_ns; break;
        case UIViewContentModeScaleAspectFit: gravity = "resizeAspect"_ns; break;
        case UIViewContentModeScaleAspectFill: gravity = "resizeAspectFill"_ns; break;
        case UIViewContentModeCenter: gravity = "center"_ns; break;
        default: not_modelled("UIView", "setContentMode:", "a mode above center");
    }
    ivars().contentMode = mode;
    ivars().layer->setContentsGravity(gravity);
}

UIColor* View::tintColor() {
    for (UIView* view = this; view; view = view->superview())
        if (UIColor* own = static_cast<View*>(view)->ivars().tintColor) return own;
    static UIColor* const system_blue = strong<UIColor>(UIColor::colorWithRGB(0, 122 / 255.0, 1, 1)).leak();
    return system_blue;
}

void tell_of_tint(UIView* view) {
    view->tintColorDidChange();
    const auto subviews = static_cast<View*>(view)->ivars().subviews;
    for (UIView* subview : subviews)
        if (!static_cast<View*>(subview)->ivars().tintColor) tell_of_tint(subview);
}

void View::setTintColor(UIColor* color) {
    ivars().tintColor = color;
    ivars().tintIsAppearance = false;
    tell_of_tint(this);
}

// ---- Layout and display -------------------------------------------------------------------------

void View::layoutIfNeeded() {
    bring_layout_up_to_date(this);
    ivars().layer->layoutIfNeeded();
}

void View::layoutSublayersOfLayer(CALayer* layer) {
    if (layer != ivars().layer) return;
    UIViewController* controller = ivars().controller;
    controller->viewWillLayoutSubviews();
    place_subviews(this);
    self()->layoutSubviews();
    controller->viewDidLayoutSubviews();
}

// Whether the view's class, or a class that hooks it, draws. Other views get no bitmap.
bool View::draws_itself() {
    constexpr auto draw = objc::selector<"drawRect:">;
    return class_getMethodImplementation(object_getClass(this), draw()) !=
               class_getMethodImplementation(UIView::class_object(), draw()) ||
           self()->respondsToSelector(objc::selector<"displayLayer:">());
}

void View::setNeedsDisplay() {
    if (draws_itself()) ivars().layer->setNeedsDisplay();
}

void View::drawLayer(CALayer* layer, CGContextRef context) {
    if (layer != ivars().layer) return;
    auto* self = this->self();
    UIGraphicsPushContext(context);
    self->drawRect(self->bounds());
    UIGraphicsPopContext();
}

bool View::drawViewHierarchyInRect(CGRect rect, bool) {
    CGContextRef context = UIGraphicsGetCurrentContext();
    if (!context) return false;
    auto* self = this->self();
    self->layoutIfNeeded();
    const CGRect bounds = self->bounds();
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, rect.origin.x, rect.origin.y);
    CGContextScaleCTM(context, rect.size.width / bounds.size.width, rect.size.height / bounds.size.height);
    CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
    self->layer()->renderInContext(context);
    CGContextRestoreGState(context);
    return true;
}

}  // namespace sim

using namespace objc::definition;
using sim::View;

OBJC_CLASS(UIView, UIResponder, View,
           class_method<"layerClass", &View::layerClass>,
           class_method<"appearance", &View::appearance>,
           class_method<"animateWithDuration:animations:", &View::animateBriefly>,
           class_method<"animateWithDuration:animations:completion:", &View::animateWithCompletion>,
           class_method<"animateWithDuration:delay:options:animations:completion:", &View::animateWithCurve>,
           class_method<"animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:animations:completion:",
                        &View::animateWithSpring>,
           class_method<"performWithoutAnimation:", &View::performWithoutAnimation>,
           class_method<"setAnimationsEnabled:", &View::setAnimationsEnabled>,
           class_method<"areAnimationsEnabled", &View::areAnimationsEnabled>,
           method<"init", &View::init>,
           method<"initWithFrame:", &View::initWithFrame>,
           ivar<"_layer", &sim::View::Ivars::layer>,
           ivar<"_superview", &sim::View::Ivars::superview>,
           ivar<"_subviews", &sim::View::Ivars::subviews>,
           ivar<"_tintColor", &sim::View::Ivars::tintColor>,
           ivar<"_contentMode", &sim::View::Ivars::contentMode>,
           property<"autoresizingMask", &sim::View::Ivars::autoresizingMask>,
           property<"autoresizesSubviews", &sim::View::Ivars::autoresizesSubviews>,
           ivar<"_userInteractionEnabled", &sim::View::Ivars::userInteractionEnabled>,
           property<"tag", &sim::View::Ivars::tag>,
           ivar<"_tintIsAppearance", &sim::View::Ivars::tintIsAppearance>,
           ivar<"_controller", &sim::View::Ivars::controller>,
           ivar<"_layoutState", &sim::View::Ivars::layout>,
           ivar<"_gestureRecognizers", &sim::View::Ivars::gestures>,
           property<"semanticContentAttribute", &sim::View::Ivars::semanticContentAttribute>,
           ivar<"_multipleTouchEnabled", &sim::View::Ivars::multipleTouchEnabled>,
           method<"safeAreaInsets", &View::safeAreaInsets>,
           method<"safeAreaInsetsDidChange", &View::safeAreaInsetsDidChange>,
           method<"effectiveUserInterfaceLayoutDirection", &View::effectiveDirection>,
           method<"traitCollection", &View::traitCollection>,
           method<"gestureRecognizers", &View::gestureRecognizers>,
           method<"addGestureRecognizer:", &View::addGestureRecognizer>,
           method<"removeGestureRecognizer:", &View::removeGestureRecognizer>,
           method<"gestureRecognizerShouldBegin:", &View::gestureRecognizerShouldBegin>,
           method<"endEditing:", &View::endEditing>,
           method<"isMultipleTouchEnabled", &View::isMultipleTouchEnabled>,
           method<"setMultipleTouchEnabled:", &View::setMultipleTouchEnabled>,
           method<"layer", &View::layer>,
           method<"nextResponder", &View::nextResponder>,
           method<"frame", &View::frame>,
           method<"setFrame:", &View::setFrame>,
           method<"bounds", &View::bounds>,
           method<"setBounds:", &View::setBounds>,
           method<"center", &View::center>,
           method<"setCenter:", &View::setCenter>,
           method<"transform", &View::transform>,
           method<"setTransform:", &View::setTransform>,
           method<"convertPoint:toView:", &View::convertPointToView>,
           method<"convertPoint:fromView:", &View::convertPointFromView>,
           method<"convertRect:toView:", &View::convertRectToView>,
           method<"convertRect:fromView:", &View::convertRectFromView>,
           method<"pointInside:withEvent:", &View::pointInside>,
           method<"hitTest:withEvent:", &View::hitTest>,
           method<"sizeThatFits:", &View::sizeThatFits>,
           method<"sizeToFit", &View::sizeToFit>,
           method<"topAnchor", &View::anchor<NSLayoutYAxisAnchor, NSLayoutAttributeTop>>,
           method<"bottomAnchor", &View::anchor<NSLayoutYAxisAnchor, NSLayoutAttributeBottom>>,
           method<"centerYAnchor", &View::anchor<NSLayoutYAxisAnchor, NSLayoutAttributeCenterY>>,
           method<"leadingAnchor", &View::anchor<NSLayoutXAxisAnchor, NSLayoutAttributeLeading>>,
           method<"trailingAnchor", &View::anchor<NSLayoutXAxisAnchor, NSLayoutAttributeTrailing>>,
           method<"leftAnchor", &View::anchor<NSLayoutXAxisAnchor, NSLayoutAttributeLeft>>,
           method<"rightAnchor", &View::anchor<NSLayoutXAxisAnchor, NSLayoutAttributeRight>>,
           method<"centerXAnchor", &View::anchor<NSLayoutXAxisAnchor, NSLayoutAttributeCenterX>>,
           method<"widthAnchor", &View::anchor<NSLayoutDimension, NSLayoutAttributeWidth>>,
           method<"heightAnchor", &View::anchor<NSLayoutDimension, NSLayoutAttributeHeight>>,
           method<"constraints", &View::constraints>,
           method<"translatesAutoresizingMaskIntoConstraints", &View::translatesAutoresizingMask>,
           method<"setTranslatesAutoresizingMaskIntoConstraints:", &View::setTranslatesAutoresizingMask>,
           method<"hasAmbiguousLayout", &View::hasAmbiguousLayout>,
           method<"intrinsicContentSize", &View::intrinsicContentSize>,
           method<"invalidateIntrinsicContentSize", &View::invalidateIntrinsicContentSize>,
           method<"contentHuggingPriorityForAxis:", &View::huggingPriority>,
           method<"setContentHuggingPriority:forAxis:", &View::setHuggingPriority>,
           method<"contentCompressionResistancePriorityForAxis:", &View::compressionPriority>,
           method<"setContentCompressionResistancePriority:forAxis:", &View::setCompressionPriority>,
           method<"alpha", &View::alpha>,
           method<"setAlpha:", &View::setAlpha>,
           method<"isHidden", &View::isHidden>,
           method<"setHidden:", &View::setHidden>,
           method<"isOpaque", &View::isOpaque>,
           method<"setOpaque:", &View::setOpaque>,
           method<"clipsToBounds", &View::clipsToBounds>,
           method<"setClipsToBounds:", &View::setClipsToBounds>,
           method<"backgroundColor", &View::backgroundColor>,
           method<"setBackgroundColor:", &View::setBackgroundColor>,
           method<"contentScaleFactor", &View::contentScaleFactor>,
           method<"setContentScaleFactor:", &View::setContentScaleFactor>,
           method<"contentMode", &View::contentMode>,
           method<"setContentMode:", &View::setContentMode>,
           method<"tintColor", &View::tintColor>,
           method<"setTintColor:", &View::setTintColor>,
           method<"tintColorDidChange", &View::tintColorDidChange>,
           method<"isUserInteractionEnabled", &View::isUserInteractionEnabled>,
           method<"setUserInteractionEnabled:", &View::setUserInteractionEnabled>,
           method<"superview", &View::superview>,
           method<"subviews", &View::subviews>,
           method<"addSubview:", &View::addSubview>,
           method<"insertSubview:atIndex:", &View::insertSubview>,
           method<"insertSubview:belowSubview:", &View::insertSubviewBelow>,
           method<"insertSubview:aboveSubview:", &View::insertSubviewAbove>,
           method<"bringSubviewToFront:", &View::bringSubviewToFront>,
           method<"sendSubviewToBack:", &View::sendSubviewToBack>,
           method<"removeFromSuperview", &View::removeFromSuperview>,
           method<"isDescendantOfView:", &View::isDescendantOfView>,
           method<"didAddSubview:", &View::didAddSubview>,
           method<"willRemoveSubview:", &View::willRemoveSubview>,
           method<"willMoveToSuperview:", &View::willMoveToSuperview>,
           method<"didMoveToSuperview", &View::didMoveToSuperview>,
           method<"window", &View::window>,
           method<"willMoveToWindow:", &View::willMoveToWindow>,
           method<"didMoveToWindow", &View::didMoveToWindow>,
           method<"setNeedsLayout", &View::setNeedsLayout>,
           method<"layoutIfNeeded", &View::layoutIfNeeded>,
           method<"layoutSubviews", &View::layoutSubviews>,
           method<"layoutSublayersOfLayer:", &View::layoutSublayersOfLayer>,
           method<"setNeedsDisplay", &View::setNeedsDisplay>,
           method<"drawRect:", &View::drawRect>,
           method<"drawLayer:inContext:", &View::drawLayer>,
           method<"drawViewHierarchyInRect:afterScreenUpdates:", &View::drawViewHierarchyInRect>)
