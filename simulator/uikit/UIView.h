// The implementation of views: their state, which several files share.
#pragma once
#include <vector>

#include "objc/class.h"
#include "platform/gestures.h"
#include "uikit/layout/layout_state.h"

namespace sim {

struct View : objc::Implements<View, UIView> {
    struct Ivars {
        objc::strong<CALayer> layer;
        /// Not owned: the superview owns this one, and clears this when it lets go.
        UIView* superview = nullptr;
        std::vector<objc::strong<UIView>> subviews;
        objc::strong<UIColor> tintColor;
        UIViewContentMode contentMode = UIViewContentModeScaleToFill;
        UIViewAutoresizing autoresizingMask = 0;
        bool autoresizesSubviews = true, userInteractionEnabled = true;
        NSInteger tag = 0;
        /// The tint colour was not set on the view, but is that of its class's appearance.
        bool tintIsAppearance = false;
        /// Not owned: the controller whose view this is clears it when it goes.
        UIViewController* controller = nullptr;
        LayoutState layout;
        std::vector<objc::strong<UIGestureRecognizer>> gestures;
        UISemanticContentAttribute semanticContentAttribute = UISemanticContentAttributeUnspecified;
        bool multipleTouchEnabled = false;
    };

    static Class layerClass(Class self);
    static id appearance(Class self);
    static void animateBriefly(Class, double duration, id animations);
    static void animateWithCompletion(Class, double duration, id animations, id completion);
    static void animateWithCurve(Class, double duration, double delay, UIViewAnimationOptions options,
                                 id animations, id completion);
    static void animateWithSpring(Class, double duration, double delay, CGFloat damping, CGFloat velocity,
                                  UIViewAnimationOptions options, id animations, id completion);
    static void performWithoutAnimation(Class, id changes);
    static void setAnimationsEnabled(Class, bool enabled);
    static bool areAnimationsEnabled(Class);
    objc::strong<UIView> init();
    objc::strong<UIView> initWithFrame(CGRect frame);
    void dealloc();
    CALayer* layer() { return ivars().layer; }
    UIResponder* nextResponder() {
        if (ivars().controller) return ivars().controller;
        return self()->superview();
    }

    // Geometry
    CGRect frame() { return ivars().layer->frame(); }
    void setFrame(CGRect frame);
    CGRect bounds() { return ivars().layer->bounds(); }
    void setBounds(CGRect bounds);
    CGPoint center() { return ivars().layer->position(); }
    void setCenter(CGPoint center);
    CGAffineTransform transform() { return ivars().layer->affineTransform(); }
    void setTransform(CGAffineTransform transform) { ivars().layer->setAffineTransform(transform); }
    CGPoint convertPointToView(CGPoint point, UIView* view);
    CGPoint convertPointFromView(CGPoint point, UIView* view);
    CGRect convertRectToView(CGRect rect, UIView* view);
    CGRect convertRectFromView(CGRect rect, UIView* view);
    bool pointInside(CGPoint point, UIEvent* event);
    UIView* hitTest(CGPoint point, UIEvent* event);
    CGSize sizeThatFits(CGSize) { return self()->bounds().size; }
    void sizeToFit();

    // Appearance, kept by the layer
    CGFloat alpha() { return ivars().layer->opacity(); }
    void setAlpha(CGFloat alpha) { ivars().layer->setOpacity(static_cast<float>(alpha)); }
    bool isHidden() { return ivars().layer->isHidden(); }
    void setHidden(bool hidden) { ivars().layer->setHidden(hidden); }
    bool isOpaque() { return ivars().layer->isOpaque(); }
    void setOpaque(bool opaque) { ivars().layer->setOpaque(opaque); }
    bool clipsToBounds() { return ivars().layer->masksToBounds(); }
    void setClipsToBounds(bool clips) { ivars().layer->setMasksToBounds(clips); }
    UIColor* backgroundColor();
    void setBackgroundColor(UIColor* color) { ivars().layer->setBackgroundColor(color->CGColor()); }
    CGFloat contentScaleFactor() { return ivars().layer->contentsScale(); }
    void setContentScaleFactor(CGFloat scale) { ivars().layer->setContentsScale(scale); }
    UIViewContentMode contentMode() { return ivars().contentMode; }
    void setContentMode(UIViewContentMode mode);
    UIColor* tintColor();
    void setTintColor(UIColor* color);
    void tintColorDidChange() {}
    bool isUserInteractionEnabled() { return ivars().userInteractionEnabled; }
    void setUserInteractionEnabled(bool enabled) { ivars().userInteractionEnabled = enabled; }

    // The tree
    UIView* superview() { return ivars().superview; }
    NSArray* subviews();
    void addSubview(UIView* view);
    void insertSubview(UIView* view, NSInteger index);
    void insertSubviewBelow(UIView* view, UIView* sibling);
    void insertSubviewAbove(UIView* view, UIView* sibling);
    void bringSubviewToFront(UIView* view);
    void sendSubviewToBack(UIView* view);
    void removeFromSuperview();
    bool isDescendantOfView(UIView* view);
    void didAddSubview(UIView*) {}
    void willRemoveSubview(UIView*) {}
    void willMoveToSuperview(UIView*) {}
    void didMoveToSuperview() {}
    UIWindow* window();
    void willMoveToWindow(UIWindow*) {}
    void didMoveToWindow() {}

    // What it finds itself in
    UIEdgeInsets safeAreaInsets();
    void safeAreaInsetsDidChange() {}
    UIUserInterfaceLayoutDirection effectiveDirection();
    UITraitCollection* traitCollection();

    // Gestures
    NSArray* gestureRecognizers();
    void addGestureRecognizer(UIGestureRecognizer* recogniser);
    void removeGestureRecognizer(UIGestureRecognizer* recogniser);
    bool gestureRecognizerShouldBegin(UIGestureRecognizer*) { return true; }
    bool endEditing(bool force);
    bool isMultipleTouchEnabled() { return ivars().multipleTouchEnabled; }
    void setMultipleTouchEnabled(bool enabled) { ivars().multipleTouchEnabled = enabled; }

    // Layout by constraints
    template <class Anchor, NSLayoutAttribute Attribute>
    Anchor* anchor();
    NSArray* constraints();
    bool translatesAutoresizingMask() { return ivars().layout.translates_mask; }
    void setTranslatesAutoresizingMask(bool translates);
    bool hasAmbiguousLayout();
    CGSize intrinsicContentSize() { return {UIViewNoIntrinsicMetric, UIViewNoIntrinsicMetric}; }
    void invalidateIntrinsicContentSize();
    UILayoutPriority huggingPriority(UILayoutConstraintAxis axis);
    void setHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis);
    UILayoutPriority compressionPriority(UILayoutConstraintAxis axis);
    void setCompressionPriority(UILayoutPriority priority, UILayoutConstraintAxis axis);

    // Layout and display
    void setNeedsLayout() { ivars().layer->setNeedsLayout(); }
    void layoutIfNeeded();
    void layoutSubviews() {}
    void layoutSublayersOfLayer(CALayer* layer);
    void setNeedsDisplay();
    void drawRect(CGRect) {}
    void drawLayer(CALayer* layer, CGContextRef context);
    bool drawViewHierarchyInRect(CGRect rect, bool after_updates);

  private:
    void resized_from(CGSize old);
    bool draws_itself();
    bool contains(UIView* view);
    size_t index_of(UIView* subview);
    void insert(UIView* view, size_t index);
    void place_layer(UIView* view, size_t index);
    void detach(UIView* view);
};

/// What layout by constraints keeps of the view.
inline LayoutState& layout_state_of(UIView* view) { return static_cast<View*>(view)->ivars().layout; }

/// Gives a view that comes into a window what its class's appearance says, unless it has its own.
void apply_appearance(UIView*);

/// Sends tintColorDidChange to the view and to those below it that have no tint colour of their own.
void tell_of_tint(UIView*);

}  // namespace sim
