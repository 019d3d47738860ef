// UIKit's public classes, as far as the library uses them.
#pragma once
#include "platform/coregraphics.h"
#include "platform/foundation.h"
#include "platform/layout.h"
#include "platform/quartzcore.h"

/// Points inwards from each edge.
struct UIEdgeInsets {
    CGFloat top, left, bottom, right;
    friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};
template <>
inline constexpr auto objc::structure_encoding<UIEdgeInsets> = objc::Name("{UIEdgeInsets=dddd}");

struct UIColor;
struct UIImage;

using UIImageRenderingMode = NSInteger;
constexpr UIImageRenderingMode UIImageRenderingModeAutomatic = 0;
constexpr UIImageRenderingMode UIImageRenderingModeAlwaysOriginal = 1;
/// The image's alpha, in the tint colour of its view.
constexpr UIImageRenderingMode UIImageRenderingModeAlwaysTemplate = 2;

using UIImageOrientation = NSInteger;
constexpr UIImageOrientation UIImageOrientationUp = 0;

/// How the screen is held, as the system numbers it.
using UIInterfaceOrientation = NSInteger;
constexpr UIInterfaceOrientation UIInterfaceOrientationPortrait = 1;
constexpr UIInterfaceOrientation UIInterfaceOrientationLandscapeLeft = 4;

using UIViewContentMode = NSInteger;
constexpr UIViewContentMode UIViewContentModeScaleToFill = 0;
constexpr UIViewContentMode UIViewContentModeScaleAspectFit = 1;
constexpr UIViewContentMode UIViewContentModeScaleAspectFill = 2;
constexpr UIViewContentMode UIViewContentModeRedraw = 3;
constexpr UIViewContentMode UIViewContentModeCenter = 4;

/// What of a view grows with its superview; added.
using UIViewAutoresizing = NSUInteger;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleLeftMargin = 1;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleWidth = 2;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleRightMargin = 4;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleTopMargin = 8;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleHeight = 16;
constexpr UIViewAutoresizing UIViewAutoresizingFlexibleBottomMargin = 32;

using UIUserInterfaceLayoutDirection = NSInteger;
constexpr UIUserInterfaceLayoutDirection UIUserInterfaceLayoutDirectionLeftToRight = 0;
constexpr UIUserInterfaceLayoutDirection UIUserInterfaceLayoutDirectionRightToLeft = 1;

/// Whether a view turns over where text runs from right to left.
using UISemanticContentAttribute = NSInteger;
constexpr UISemanticContentAttribute UISemanticContentAttributeUnspecified = 0;
constexpr UISemanticContentAttribute UISemanticContentAttributePlayback = 1;
constexpr UISemanticContentAttribute UISemanticContentAttributeSpatial = 2;
constexpr UISemanticContentAttribute UISemanticContentAttributeForceLeftToRight = 3;
constexpr UISemanticContentAttribute UISemanticContentAttributeForceRightToLeft = 4;

/// What VoiceOver takes something for; a bit mask.
using UIAccessibilityTraits = uint64_t;

using NSTextAlignment = NSInteger;
constexpr NSTextAlignment NSTextAlignmentLeft = 0;
constexpr NSTextAlignment NSTextAlignmentCenter = 1;
constexpr NSTextAlignment NSTextAlignmentRight = 2;
constexpr NSTextAlignment NSTextAlignmentNatural = 4;

/// What becomes of text that is too long for its last line.
using NSLineBreakMode = NSInteger;
constexpr NSLineBreakMode NSLineBreakByWordWrapping = 0;
constexpr NSLineBreakMode NSLineBreakByTruncatingTail = 4;

/// From -1 to 1; 0 is regular.
using UIFontWeight = CGFloat;
constexpr UIFontWeight UIFontWeightUltraLight = -0.8;
constexpr UIFontWeight UIFontWeightThin = -0.6;
constexpr UIFontWeight UIFontWeightLight = -0.4;
constexpr UIFontWeight UIFontWeightRegular = 0;
constexpr UIFontWeight UIFontWeightMedium = 0.23;
constexpr UIFontWeight UIFontWeightSemibold = 0.3;
constexpr UIFontWeight UIFontWeightBold = 0.4;
constexpr UIFontWeight UIFontWeightHeavy = 0.56;
constexpr UIFontWeight UIFontWeightBlack = 0.62;

/// Components from 0 to 1.
struct UIColor : objc::Interface<UIColor, "UIColor", NSObject> {
    static UIColor* clearColor() { return class_send<"clearColor", UIColor*>(); }
    static UIColor* blackColor() { return class_send<"blackColor", UIColor*>(); }
    static UIColor* whiteColor() { return class_send<"whiteColor", UIColor*>(); }
    static UIColor* redColor() { return class_send<"redColor", UIColor*>(); }
    static UIColor* greenColor() { return class_send<"greenColor", UIColor*>(); }
    static UIColor* blueColor() { return class_send<"blueColor", UIColor*>(); }
    static UIColor* darkGrayColor() { return class_send<"darkGrayColor", UIColor*>(); }
    static UIColor* colorWithRGB(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
        return class_send<"colorWithRed:green:blue:alpha:", UIColor*>(red, green, blue, alpha);
    }
    static UIColor* colorWithWhite(CGFloat white, CGFloat alpha) {
        return class_send<"colorWithWhite:alpha:", UIColor*>(white, alpha);
    }
    static UIColor* colorWithCGColor(CGColorRef color) {
        return class_send<"colorWithCGColor:", UIColor*>(color);
    }
    static UIColor* colorWithPatternImage(UIImage* image) {
        return class_send<"colorWithPatternImage:", UIColor*>(image);
    }

    CGColorRef CGColor() { return send<"CGColor", CGColorRef>(); }
    /// Keeps the colour's space.
    UIColor* colorWithAlphaComponent(CGFloat alpha) {
        return send<"colorWithAlphaComponent:", UIColor*>(alpha);
    }
    /// NO, and nothing written, for a colour without an RGB form.
    bool getRGB(CGFloat* red, CGFloat* green, CGFloat* blue, CGFloat* alpha) {
        return send<"getRed:green:blue:alpha:", bool>(red, green, blue, alpha);
    }
    bool getWhite(CGFloat* white, CGFloat* alpha) { return send<"getWhite:alpha:", bool>(white, alpha); }
    /// Makes it the fill colour of the current context.
    void setFill() { send<"setFill">(); }
    void setStroke() { send<"setStroke">(); }
    void set() { send<"set">(); }
};

struct UIImage : objc::Interface<UIImage, "UIImage", NSObject> {
    /// nil when the data decodes to no picture.
    static UIImage* imageWithData(NSData* data) { return class_send<"imageWithData:", UIImage*>(data); }
    /// The @2x or @3x variant beside the file is taken where the screen asks for it.
    static UIImage* imageWithContentsOfFile(NSString* path) {
        return class_send<"imageWithContentsOfFile:", UIImage*>(path);
    }
    /// From the application's bundle; a name without an ending is a PNG's. nil where there is none.
    static UIImage* imageNamed(NSString* name) { return class_send<"imageNamed:", UIImage*>(name); }
    static UIImage* imageWithCGImage(CGImageRef image) {
        return class_send<"imageWithCGImage:", UIImage*>(image);
    }
    static UIImage* imageWithCGImage(CGImageRef image, CGFloat scale, UIImageOrientation orientation) {
        return class_send<"imageWithCGImage:scale:orientation:", UIImage*>(image, scale, orientation);
    }

    CGImageRef CGImage() { return send<"CGImage", CGImageRef>(); }
    /// In points.
    CGSize size() { return send<"size", CGSize>(); }
    /// Pixels per point.
    CGFloat scale() { return send<"scale", CGFloat>(); }
    UIImageOrientation imageOrientation() { return send<"imageOrientation", UIImageOrientation>(); }
    UIImageRenderingMode renderingMode() { return send<"renderingMode", UIImageRenderingMode>(); }
    UIImage* imageWithRenderingMode(UIImageRenderingMode mode) {
        return send<"imageWithRenderingMode:", UIImage*>(mode);
    }
    void drawInRect(CGRect rect) { send<"drawInRect:">(rect); }
    void drawInRect(CGRect rect, CGBlendMode mode, CGFloat alpha) {
        send<"drawInRect:blendMode:alpha:">(rect, mode, alpha);
    }
    void drawAtPoint(CGPoint point) { send<"drawAtPoint:">(point); }
};

/// A font, in points.
struct UIFont : objc::Interface<UIFont, "UIFont", NSObject> {
    static UIFont* systemFontOfSize(CGFloat size) { return class_send<"systemFontOfSize:", UIFont*>(size); }
    static UIFont* systemFontOfSize(CGFloat size, UIFontWeight weight) {
        return class_send<"systemFontOfSize:weight:", UIFont*>(size, weight);
    }
    static UIFont* boldSystemFontOfSize(CGFloat size) {
        return class_send<"boldSystemFontOfSize:", UIFont*>(size);
    }
    /// nil for a name that is no font's.
    static UIFont* fontWithName(NSString* name, CGFloat size) {
        return class_send<"fontWithName:size:", UIFont*>(name, size);
    }

    /// As large as the user wants that kind of text to be.
    static UIFont* preferredFontForTextStyle(NSString* style) {
        return class_send<"preferredFontForTextStyle:", UIFont*>(style);
    }

    NSString* fontName() { return send<"fontName", NSString*>(); }
    CGFloat pointSize() { return send<"pointSize", CGFloat>(); }
    UIFont* fontWithSize(CGFloat size) { return send<"fontWithSize:", UIFont*>(size); }
    CGFloat ascender() { return send<"ascender", CGFloat>(); }
    /// Negative.
    CGFloat descender() { return send<"descender", CGFloat>(); }
    CGFloat lineHeight() { return send<"lineHeight", CGFloat>(); }
};

struct UIBezierPath : objc::Interface<UIBezierPath, "UIBezierPath", NSObject> {
    static UIBezierPath* bezierPathWithRect(CGRect rect) {
        return class_send<"bezierPathWithRect:", UIBezierPath*>(rect);
    }
    static UIBezierPath* bezierPathWithRoundedRect(CGRect rect, CGFloat corner_radius) {
        return class_send<"bezierPathWithRoundedRect:cornerRadius:", UIBezierPath*>(rect, corner_radius);
    }
    static UIBezierPath* bezierPathWithCGPath(CGPathRef path) {
        return class_send<"bezierPathWithCGPath:", UIBezierPath*>(path);
    }

    CGPathRef CGPath() { return send<"CGPath", CGPathRef>(); }
    void fill() { send<"fill">(); }
    void stroke() { send<"stroke">(); }
    void addClip() { send<"addClip">(); }
    CGFloat lineWidth() { return send<"lineWidth", CGFloat>(); }
    void setLineWidth(CGFloat width) { send<"setLineWidth:">(width); }
};

struct UIScreen : objc::Interface<UIScreen, "UIScreen", NSObject> {
    static UIScreen* mainScreen() { return class_send<"mainScreen", UIScreen*>(); }
    /// In points, portrait.
    CGRect bounds() { return send<"bounds", CGRect>(); }
    /// Pixels per point.
    CGFloat scale() { return send<"scale", CGFloat>(); }
};

struct UIDevice : objc::Interface<UIDevice, "UIDevice", NSObject> {
    static UIDevice* currentDevice() { return class_send<"currentDevice", UIDevice*>(); }
    /// 0 is a phone's, 1 an iPad's.
    NSInteger userInterfaceIdiom() { return send<"userInterfaceIdiom", NSInteger>(); }
    /// "12.4"
    NSString* systemVersion() { return send<"systemVersion", NSString*>(); }
};

/// How an animation of views goes; added to a curve.
using UIViewAnimationOptions = NSUInteger;
constexpr UIViewAnimationOptions UIViewAnimationOptionRepeat = 1 << 3;
constexpr UIViewAnimationOptions UIViewAnimationOptionAutoreverse = 1 << 4;
constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseInOut = 0 << 16;
constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseIn = 1 << 16;
constexpr UIViewAnimationOptions UIViewAnimationOptionCurveEaseOut = 2 << 16;
constexpr UIViewAnimationOptions UIViewAnimationOptionCurveLinear = 3 << 16;

struct UIEvent;
struct UIGestureRecognizer;
struct UIWindow;

struct UIResponder : objc::Interface<UIResponder, "UIResponder", NSObject> {
    UIResponder* nextResponder() { return send<"nextResponder", UIResponder*>(); }

    /// The first responder is who typing goes to.
    bool isFirstResponder() { return send<"isFirstResponder", bool>(); }
    bool canBecomeFirstResponder() { return send<"canBecomeFirstResponder", bool>(); }
    bool canResignFirstResponder() { return send<"canResignFirstResponder", bool>(); }
    /// Whether it is the first responder afterwards.
    bool becomeFirstResponder() { return send<"becomeFirstResponder", bool>(); }
    /// Whether it is not the first responder afterwards.
    bool resignFirstResponder() { return send<"resignFirstResponder", bool>(); }

    /// The sets hold UITouches. What a responder does not handle goes to the next one.
    void touchesBegan(NSSet* touches, UIEvent* event) { send<"touchesBegan:withEvent:">(touches, event); }
    void touchesMoved(NSSet* touches, UIEvent* event) { send<"touchesMoved:withEvent:">(touches, event); }
    void touchesEnded(NSSet* touches, UIEvent* event) { send<"touchesEnded:withEvent:">(touches, event); }
    void touchesCancelled(NSSet* touches, UIEvent* event) {
        send<"touchesCancelled:withEvent:">(touches, event);
    }
};

struct UIView : objc::Interface<UIView, "UIView", UIResponder> {
    /// The class of the views' layers.
    static Class layerClass() { return class_send<"layerClass", Class>(); }
    /// Animates the changes made by the block `animations`, in seconds; the block `completion`, or nil, gets
    /// whether they finished.
    static void animate(double duration, double delay, UIViewAnimationOptions options, id animations,
                        id completion) {
        class_send<"animateWithDuration:delay:options:animations:completion:">(duration, delay, options,
                                                                               animations, completion);
    }
    /// Like a spring: damping 1 does not overshoot; velocity 1 covers the whole distance in a second.
    static void animate(double duration, double delay, CGFloat damping, CGFloat velocity,
                        UIViewAnimationOptions options, id animations, id completion) {
        class_send<"animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:options:"
                   "animations:completion:">(duration, delay, damping, velocity, options, animations,
                                             completion);
    }
    objc::strong<UIView> init() { return send<"init", objc::strong<UIView>>(); }
    objc::strong<UIView> initWithFrame(CGRect frame) {
        return send<"initWithFrame:", objc::strong<UIView>>(frame);
    }
    CALayer* layer() { return send<"layer", CALayer*>(); }

    /// In the superview's coordinates.
    CGRect frame() { return send<"frame", CGRect>(); }
    void setFrame(CGRect frame) { send<"setFrame:">(frame); }
    CGRect bounds() { return send<"bounds", CGRect>(); }
    void setBounds(CGRect bounds) { send<"setBounds:">(bounds); }
    CGPoint center() { return send<"center", CGPoint>(); }
    void setCenter(CGPoint center) { send<"setCenter:">(center); }
    CGAffineTransform transform() { return send<"transform", CGAffineTransform>(); }
    void setTransform(CGAffineTransform transform) { send<"setTransform:">(transform); }
    CGPoint convertPointToView(CGPoint point, UIView* view) {
        return send<"convertPoint:toView:", CGPoint>(point, view);
    }
    CGRect convertRectToView(CGRect rect, UIView* view) {
        return send<"convertRect:toView:", CGRect>(rect, view);
    }

    CGFloat alpha() { return send<"alpha", CGFloat>(); }
    void setAlpha(CGFloat alpha) { send<"setAlpha:">(alpha); }
    bool isHidden() { return send<"isHidden", bool>(); }
    void setHidden(bool hidden) { send<"setHidden:">(hidden); }
    bool isOpaque() { return send<"isOpaque", bool>(); }
    void setOpaque(bool opaque) { send<"setOpaque:">(opaque); }
    bool clipsToBounds() { return send<"clipsToBounds", bool>(); }
    void setClipsToBounds(bool clips) { send<"setClipsToBounds:">(clips); }
    UIColor* backgroundColor() { return send<"backgroundColor", UIColor*>(); }
    void setBackgroundColor(UIColor* color) { send<"setBackgroundColor:">(color); }
    /// Its own, or the nearest superview's that has one.
    UIColor* tintColor() { return send<"tintColor", UIColor*>(); }
    /// nil inherits again.
    void setTintColor(UIColor* color) { send<"setTintColor:">(color); }
    void tintColorDidChange() { send<"tintColorDidChange">(); }
    UIViewContentMode contentMode() { return send<"contentMode", UIViewContentMode>(); }
    void setContentMode(UIViewContentMode mode) { send<"setContentMode:">(mode); }
    CGFloat contentScaleFactor() { return send<"contentScaleFactor", CGFloat>(); }
    void setContentScaleFactor(CGFloat scale) { send<"setContentScaleFactor:">(scale); }
    UIViewAutoresizing autoresizingMask() { return send<"autoresizingMask", UIViewAutoresizing>(); }
    void setAutoresizingMask(UIViewAutoresizing mask) { send<"setAutoresizingMask:">(mask); }
    bool autoresizesSubviews() { return send<"autoresizesSubviews", bool>(); }
    void setAutoresizesSubviews(bool resizes) { send<"setAutoresizesSubviews:">(resizes); }
    NSInteger tag() { return send<"tag", NSInteger>(); }
    void setTag(NSInteger tag) { send<"setTag:">(tag); }
    bool isUserInteractionEnabled() { return send<"isUserInteractionEnabled", bool>(); }
    void setUserInteractionEnabled(bool enabled) { send<"setUserInteractionEnabled:">(enabled); }

    bool pointInside(CGPoint point, UIEvent* event) {
        return send<"pointInside:withEvent:", bool>(point, event);
    }
    /// The frontmost view at that point that takes touches; nil when there is none.
    UIView* hitTest(CGPoint point, UIEvent* event) {
        return send<"hitTest:withEvent:", UIView*>(point, event);
    }

    UIView* superview() { return send<"superview", UIView*>(); }
    /// The window that it is in; nil when it is in none.
    UIWindow* window() { return send<"window", UIWindow*>(); }
    /// Back to front; a copy.
    NSArray* subviews() { return send<"subviews", NSArray*>(); }
    void addSubview(UIView* view) { send<"addSubview:">(view); }
    /// An index past the end puts the view in front.
    void insertSubview(UIView* view, NSInteger index) { send<"insertSubview:atIndex:">(view, index); }
    void insertSubviewBelow(UIView* view, UIView* sibling) {
        send<"insertSubview:belowSubview:">(view, sibling);
    }
    void insertSubviewAbove(UIView* view, UIView* sibling) {
        send<"insertSubview:aboveSubview:">(view, sibling);
    }
    void bringSubviewToFront(UIView* view) { send<"bringSubviewToFront:">(view); }
    void sendSubviewToBack(UIView* view) { send<"sendSubviewToBack:">(view); }
    void removeFromSuperview() { send<"removeFromSuperview">(); }
    bool isDescendantOfView(UIView* view) { return send<"isDescendantOfView:", bool>(view); }
    void didAddSubview(UIView* view) { send<"didAddSubview:">(view); }
    void willRemoveSubview(UIView* view) { send<"willRemoveSubview:">(view); }
    void willMoveToSuperview(UIView* view) { send<"willMoveToSuperview:">(view); }
    void didMoveToSuperview() { send<"didMoveToSuperview">(); }
    void willMoveToWindow(UIWindow* window) { send<"willMoveToWindow:">(window); }
    void didMoveToWindow() { send<"didMoveToWindow">(); }

    NSLayoutYAxisAnchor* topAnchor() { return send<"topAnchor", NSLayoutYAxisAnchor*>(); }
    NSLayoutYAxisAnchor* bottomAnchor() { return send<"bottomAnchor", NSLayoutYAxisAnchor*>(); }
    NSLayoutYAxisAnchor* centerYAnchor() { return send<"centerYAnchor", NSLayoutYAxisAnchor*>(); }
    NSLayoutXAxisAnchor* leadingAnchor() { return send<"leadingAnchor", NSLayoutXAxisAnchor*>(); }
    NSLayoutXAxisAnchor* trailingAnchor() { return send<"trailingAnchor", NSLayoutXAxisAnchor*>(); }
    NSLayoutXAxisAnchor* leftAnchor() { return send<"leftAnchor", NSLayoutXAxisAnchor*>(); }
    NSLayoutXAxisAnchor* rightAnchor() { return send<"rightAnchor", NSLayoutXAxisAnchor*>(); }
    NSLayoutXAxisAnchor* centerXAnchor() { return send<"centerXAnchor", NSLayoutXAxisAnchor*>(); }
    NSLayoutDimension* widthAnchor() { return send<"widthAnchor", NSLayoutDimension*>(); }
    NSLayoutDimension* heightAnchor() { return send<"heightAnchor", NSLayoutDimension*>(); }
    /// The active constraints that this view holds: its own, and those between views inside it; a copy.
    NSArray* constraints() { return send<"constraints", NSArray*>(); }
    /// Whether frame and autoresizing mask say where the view is, and not constraints.
    bool translatesAutoresizingMaskIntoConstraints() {
        return send<"translatesAutoresizingMaskIntoConstraints", bool>();
    }
    void setTranslatesAutoresizingMaskIntoConstraints(bool translates) {
        send<"setTranslatesAutoresizingMaskIntoConstraints:">(translates);
    }
    bool hasAmbiguousLayout() { return send<"hasAmbiguousLayout", bool>(); }
    /// How much the view minds to be larger than its content, 250 at first, or smaller, 750.
    UILayoutPriority contentHuggingPriority(UILayoutConstraintAxis axis) {
        return send<"contentHuggingPriorityForAxis:", UILayoutPriority>(axis);
    }
    void setContentHuggingPriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
        send<"setContentHuggingPriority:forAxis:">(priority, axis);
    }
    UILayoutPriority contentCompressionResistancePriority(UILayoutConstraintAxis axis) {
        return send<"contentCompressionResistancePriorityForAxis:", UILayoutPriority>(axis);
    }
    void setContentCompressionResistancePriority(UILayoutPriority priority, UILayoutConstraintAxis axis) {
        send<"setContentCompressionResistancePriority:forAxis:">(priority, axis);
    }

    /// What bars and the screen's edges cover of the view.
    UIEdgeInsets safeAreaInsets() { return send<"safeAreaInsets", UIEdgeInsets>(); }
    void safeAreaInsetsDidChange() { send<"safeAreaInsetsDidChange">(); }
    UISemanticContentAttribute semanticContentAttribute() {
        return send<"semanticContentAttribute", UISemanticContentAttribute>();
    }
    void setSemanticContentAttribute(UISemanticContentAttribute attribute) {
        send<"setSemanticContentAttribute:">(attribute);
    }
    UIUserInterfaceLayoutDirection effectiveUserInterfaceLayoutDirection() {
        return send<"effectiveUserInterfaceLayoutDirection", UIUserInterfaceLayoutDirection>();
    }
    NSArray* gestureRecognizers() { return send<"gestureRecognizers", NSArray*>(); }
    void addGestureRecognizer(UIGestureRecognizer* recogniser) { send<"addGestureRecognizer:">(recogniser); }
    void removeGestureRecognizer(UIGestureRecognizer* recogniser) {
        send<"removeGestureRecognizer:">(recogniser);
    }
    /// The first responder, when it is in the view, is asked to give up, or forced. Whether it did.
    bool endEditing(bool force) { return send<"endEditing:", bool>(force); }
    bool isMultipleTouchEnabled() { return send<"isMultipleTouchEnabled", bool>(); }
    void setMultipleTouchEnabled(bool enabled) { send<"setMultipleTouchEnabled:">(enabled); }

    void setNeedsLayout() { send<"setNeedsLayout">(); }
    /// Constraints are solved, then the views that need it are laid out, from the top down.
    void layoutIfNeeded() { send<"layoutIfNeeded">(); }
    void layoutSubviews() { send<"layoutSubviews">(); }
    CGSize sizeThatFits(CGSize size) { return send<"sizeThatFits:", CGSize>(size); }
    void sizeToFit() { send<"sizeToFit">(); }
    /// UIViewNoIntrinsicMetric where the view has no size of its own.
    CGSize intrinsicContentSize() { return send<"intrinsicContentSize", CGSize>(); }
    void invalidateIntrinsicContentSize() { send<"invalidateIntrinsicContentSize">(); }
    void setNeedsDisplay() { send<"setNeedsDisplay">(); }
    void drawRect(CGRect rect) { send<"drawRect:">(rect); }
    /// Draws the view and what is in it into the current context, laid out and displayed.
    bool drawViewHierarchyInRect(CGRect rect, bool after_updates) {
        return send<"drawViewHierarchyInRect:afterScreenUpdates:", bool>(rect, after_updates);
    }
};

struct UILabel : objc::Interface<UILabel, "UILabel", UIView> {
    NSString* text() { return send<"text", NSString*>(); }
    void setText(NSString* text) { send<"setText:">(text); }
    UIFont* font() { return send<"font", UIFont*>(); }
    void setFont(UIFont* font) { send<"setFont:">(font); }
    UIColor* textColor() { return send<"textColor", UIColor*>(); }
    void setTextColor(UIColor* color) { send<"setTextColor:">(color); }
    NSTextAlignment textAlignment() { return send<"textAlignment", NSTextAlignment>(); }
    void setTextAlignment(NSTextAlignment alignment) { send<"setTextAlignment:">(alignment); }
    /// 0 is as many as there is room for.
    NSInteger numberOfLines() { return send<"numberOfLines", NSInteger>(); }
    void setNumberOfLines(NSInteger lines) { send<"setNumberOfLines:">(lines); }
    NSLineBreakMode lineBreakMode() { return send<"lineBreakMode", NSLineBreakMode>(); }
    void setLineBreakMode(NSLineBreakMode mode) { send<"setLineBreakMode:">(mode); }
};

struct UIImageView : objc::Interface<UIImageView, "UIImageView", UIView> {
    /// As large as the image.
    objc::strong<UIImageView> initWithImage(UIImage* image) {
        return send<"initWithImage:", objc::strong<UIImageView>>(image);
    }
    UIImage* image() { return send<"image", UIImage*>(); }
    void setImage(UIImage* image) { send<"setImage:">(image); }
};

extern "C" {
/// `size` in points; scale 0 is the main screen's.
void UIGraphicsBeginImageContextWithOptions(CGSize size, bool opaque, CGFloat scale);
/// Not opaque, one pixel to a point.
void UIGraphicsBeginImageContext(CGSize size);
CGContextRef UIGraphicsGetCurrentContext();
void UIGraphicsPushContext(CGContextRef);
void UIGraphicsPopContext();
UIImage* UIGraphicsGetImageFromCurrentImageContext();
void UIGraphicsEndImageContext();
void UIRectFill(CGRect);
/// The picture as PNG; nil when there is none to encode.
NSData* UIImagePNGRepresentation(UIImage*);
extern NSString* const UIFontTextStyleTitle1;
extern NSString* const UIFontTextStyleTitle2;
extern NSString* const UIFontTextStyleTitle3;
extern NSString* const UIFontTextStyleHeadline;
extern NSString* const UIFontTextStyleSubheadline;
extern NSString* const UIFontTextStyleBody;
extern NSString* const UIFontTextStyleCallout;
extern NSString* const UIFontTextStyleFootnote;
extern NSString* const UIFontTextStyleCaption1;
extern NSString* const UIFontTextStyleCaption2;
extern UIAccessibilityTraits UIAccessibilityTraitNone;
extern UIAccessibilityTraits UIAccessibilityTraitButton;
extern UIAccessibilityTraits UIAccessibilityTraitHeader;
extern UIAccessibilityTraits UIAccessibilityTraitSelected;
extern UIAccessibilityTraits UIAccessibilityTraitImage;
extern UIAccessibilityTraits UIAccessibilityTraitNotEnabled;
extern UIAccessibilityTraits UIAccessibilityTraitAdjustable;
extern UIAccessibilityTraits UIAccessibilityTraitUpdatesFrequently;
bool UIAccessibilityIsReduceMotionEnabled();
}
