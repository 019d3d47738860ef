// QuartzCore: layers and their filters.
#pragma once
#include "platform/coregraphics.h"
#include "platform/foundation.h"

/// Rows of a matrix that maps (x y z 1).
struct CATransform3D {
    CGFloat m11, m12, m13, m14, m21, m22, m23, m24, m31, m32, m33, m34, m41, m42, m43, m44;
    friend bool operator==(const CATransform3D&, const CATransform3D&) = default;
};
template <>
inline constexpr auto objc::structure_encoding<CATransform3D> =
    objc::Name("{CATransform3D=dddddddddddddddd}");
constexpr CATransform3D identity_transform_3d{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

struct CAAnimation;

struct CALayer : objc::Interface<CALayer, "CALayer", NSObject> {
    static CALayer* layer() { return class_send<"layer", CALayer*>(); }
    objc::strong<CALayer> init() { return send<"init", objc::strong<CALayer>>(); }

    /// In the superlayer's coordinates; follows from position, bounds, anchor point and transform.
    CGRect frame() { return send<"frame", CGRect>(); }
    void setFrame(CGRect frame) { send<"setFrame:">(frame); }
    CGRect bounds() { return send<"bounds", CGRect>(); }
    void setBounds(CGRect bounds) { send<"setBounds:">(bounds); }
    /// Where the superlayer has the anchor point.
    CGPoint position() { return send<"position", CGPoint>(); }
    void setPosition(CGPoint position) { send<"setPosition:">(position); }
    /// In the unit square of the bounds; (0.5, 0.5) is the middle.
    CGPoint anchorPoint() { return send<"anchorPoint", CGPoint>(); }
    void setAnchorPoint(CGPoint point) { send<"setAnchorPoint:">(point); }
    CATransform3D transform() { return send<"transform", CATransform3D>(); }
    void setTransform(CATransform3D transform) { send<"setTransform:">(transform); }
    CGAffineTransform affineTransform() { return send<"affineTransform", CGAffineTransform>(); }
    void setAffineTransform(CGAffineTransform transform) { send<"setAffineTransform:">(transform); }

    CALayer* superlayer() { return send<"superlayer", CALayer*>(); }
    /// Back to front; nil when there is none.
    NSArray* sublayers() { return send<"sublayers", NSArray*>(); }
    void setSublayers(NSArray* layers) { send<"setSublayers:">(layers); }
    void addSublayer(CALayer* layer) { send<"addSublayer:">(layer); }
    void insertSublayer(CALayer* layer, unsigned index) { send<"insertSublayer:atIndex:">(layer, index); }
    void insertSublayerBelow(CALayer* layer, CALayer* sibling) {
        send<"insertSublayer:below:">(layer, sibling);
    }
    void insertSublayerAbove(CALayer* layer, CALayer* sibling) {
        send<"insertSublayer:above:">(layer, sibling);
    }
    void removeFromSuperlayer() { send<"removeFromSuperlayer">(); }

    /// A CGImage.
    id contents() { return send<"contents", id>(); }
    void setContents(id contents) { send<"setContents:">(contents); }
    /// Pixels of the contents to a point.
    CGFloat contentsScale() { return send<"contentsScale", CGFloat>(); }
    void setContentsScale(CGFloat scale) { send<"setContentsScale:">(scale); }
    NSString* contentsGravity() { return send<"contentsGravity", NSString*>(); }
    void setContentsGravity(NSString* gravity) { send<"setContentsGravity:">(gravity); }
    CGColorRef contentsMultiplyColor() { return send<"contentsMultiplyColor", CGColorRef>(); }
    /// The contents' pixels are multiplied by it, alpha included; NULL leaves them.
    void setContentsMultiplyColor(CGColorRef color) { send<"setContentsMultiplyColor:">(color); }

    CGColorRef backgroundColor() { return send<"backgroundColor", CGColorRef>(); }
    void setBackgroundColor(CGColorRef color) { send<"setBackgroundColor:">(color); }
    CGFloat cornerRadius() { return send<"cornerRadius", CGFloat>(); }
    void setCornerRadius(CGFloat radius) { send<"setCornerRadius:">(radius); }
    CGFloat borderWidth() { return send<"borderWidth", CGFloat>(); }
    void setBorderWidth(CGFloat width) { send<"setBorderWidth:">(width); }
    CGColorRef borderColor() { return send<"borderColor", CGColorRef>(); }
    void setBorderColor(CGColorRef color) { send<"setBorderColor:">(color); }
    bool masksToBounds() { return send<"masksToBounds", bool>(); }
    void setMasksToBounds(bool masks) { send<"setMasksToBounds:">(masks); }
    float opacity() { return send<"opacity", float>(); }
    void setOpacity(float opacity) { send<"setOpacity:">(opacity); }
    bool isHidden() { return send<"isHidden", bool>(); }
    void setHidden(bool hidden) { send<"setHidden:">(hidden); }
    bool isOpaque() { return send<"isOpaque", bool>(); }
    void setOpaque(bool opaque) { send<"setOpaque:">(opaque); }
    CALayer* mask() { return send<"mask", CALayer*>(); }
    /// Its alpha shows the layer.
    void setMask(CALayer* mask) { send<"setMask:">(mask); }

    CGColorRef shadowColor() { return send<"shadowColor", CGColorRef>(); }
    void setShadowColor(CGColorRef color) { send<"setShadowColor:">(color); }
    float shadowOpacity() { return send<"shadowOpacity", float>(); }
    void setShadowOpacity(float opacity) { send<"setShadowOpacity:">(opacity); }
    CGSize shadowOffset() { return send<"shadowOffset", CGSize>(); }
    void setShadowOffset(CGSize offset) { send<"setShadowOffset:">(offset); }
    CGFloat shadowRadius() { return send<"shadowRadius", CGFloat>(); }
    void setShadowRadius(CGFloat radius) { send<"setShadowRadius:">(radius); }
    CGPathRef shadowPath() { return send<"shadowPath", CGPathRef>(); }
    void setShadowPath(CGPathRef path) { send<"setShadowPath:">(path); }

    NSArray* filters() { return send<"filters", NSArray*>(); }
    void setFilters(NSArray* filters) { send<"setFilters:">(filters); }
    id compositingFilter() { return send<"compositingFilter", id>(); }
    void setCompositingFilter(id filter) { send<"setCompositingFilter:">(filter); }

    bool shouldRasterize() { return send<"shouldRasterize", bool>(); }
    void setShouldRasterize(bool rasterize) { send<"setShouldRasterize:">(rasterize); }
    CGFloat rasterizationScale() { return send<"rasterizationScale", CGFloat>(); }
    void setRasterizationScale(CGFloat scale) { send<"setRasterizationScale:">(scale); }
    bool drawsAsynchronously() { return send<"drawsAsynchronously", bool>(); }
    void setDrawsAsynchronously(bool draws) { send<"setDrawsAsynchronously:">(draws); }
    NSDictionary* actions() { return send<"actions", NSDictionary*>(); }
    void setActions(NSDictionary* actions) { send<"setActions:">(actions); }

    /// Takes the place of the one under the same key; nil is a key of its own.
    void addAnimation(CAAnimation* animation, NSString* key) { send<"addAnimation:forKey:">(animation, key); }
    CAAnimation* animationForKey(NSString* key) { return send<"animationForKey:", CAAnimation*>(key); }
    /// nil when there is none.
    NSArray* animationKeys() { return send<"animationKeys", NSArray*>(); }
    void removeAnimationForKey(NSString* key) { send<"removeAnimationForKey:">(key); }
    void removeAllAnimations() { send<"removeAllAnimations">(); }
    /// A copy with what is shown now, animations included.
    CALayer* presentationLayer() { return send<"presentationLayer", CALayer*>(); }

    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
    NSString* name() { return send<"name", NSString*>(); }
    void setName(NSString* name) { send<"setName:">(name); }

    void setNeedsLayout() { send<"setNeedsLayout">(); }
    bool needsLayout() { return send<"needsLayout", bool>(); }
    void layoutIfNeeded() { send<"layoutIfNeeded">(); }
    void layoutSublayers() { send<"layoutSublayers">(); }
    void setNeedsDisplay() { send<"setNeedsDisplay">(); }
    bool needsDisplay() { return send<"needsDisplay", bool>(); }
    void displayIfNeeded() { send<"displayIfNeeded">(); }
    void display() { send<"display">(); }
    void drawInContext(CGContextRef context) { send<"drawInContext:">(context); }
    /// Draws the layer and its sublayers where the context's user space has their bounds.
    void renderInContext(CGContextRef context) { send<"renderInContext:">(context); }
};

struct CAGradientLayer : objc::Interface<CAGradientLayer, "CAGradientLayer", CALayer> {
    static CAGradientLayer* layer() { return class_send<"layer", CAGradientLayer*>(); }

    /// CGColors.
    NSArray* colors() { return send<"colors", NSArray*>(); }
    void setColors(NSArray* colors) { send<"setColors:">(colors); }
    /// NSNumbers from 0 to 1; nil spaces the colours evenly.
    NSArray* locations() { return send<"locations", NSArray*>(); }
    void setLocations(NSArray* locations) { send<"setLocations:">(locations); }
    /// In the unit square of the bounds, y down.
    CGPoint startPoint() { return send<"startPoint", CGPoint>(); }
    void setStartPoint(CGPoint point) { send<"setStartPoint:">(point); }
    CGPoint endPoint() { return send<"endPoint", CGPoint>(); }
    void setEndPoint(CGPoint point) { send<"setEndPoint:">(point); }
};

/// A filter of the layer tree's renderer, configured by key.
struct CAFilter : objc::Interface<CAFilter, "CAFilter", NSObject> {
    static CAFilter* filterWithName(NSString* name) { return class_send<"filterWithName:", CAFilter*>(name); }
    static CAFilter* filterWithType(NSString* type) { return class_send<"filterWithType:", CAFilter*>(type); }
    NSString* name() { return send<"name", NSString*>(); }
    NSString* type() { return send<"type", NSString*>(); }
    void setValue(id value, NSString* key) { send<"setValue:forKey:">(value, key); }
    id valueForKey(NSString* key) { return send<"valueForKey:", id>(key); }
};
