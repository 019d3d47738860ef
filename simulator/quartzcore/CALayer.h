// The implementation of layers: their state, which several files share.
#pragma once
#include <vector>

#include "coregraphics/CGColor.h"
#include "coregraphics/CGPath.h"
#include "objc/class.h"
#include "platform/animation.h"

namespace sim {

struct Layer : objc::Implements<Layer, CALayer> {
    struct Ivars {
        CGRect bounds{};
        CGPoint position{}, anchorPoint{0.5, 0.5};
        CATransform3D transform = identity_transform_3d;
        /// Not owned: the superlayer owns this one, and clears this when it lets go.
        CALayer* superlayer = nullptr;
        std::vector<objc::strong<CALayer>> sublayers;
        objc::strong<CALayer> mask;

        objc::strong<NSObject> contents;
        CGFloat contentsScale = 1;
        objc::strong<NSString> contentsGravity;
        objc::strong<CGColor> contentsMultiplyColor;
        objc::strong<CGColor> backgroundColor, borderColor, shadowColor;
        CGFloat cornerRadius = 0, borderWidth = 0;
        bool masksToBounds = false, hidden = false, opaque = false;
        float opacity = 1, shadowOpacity = 0;
        CGSize shadowOffset{0, -3};
        CGFloat shadowRadius = 3;
        objc::strong<CGPath> shadowPath;
        objc::strong<NSArray> filters;
        objc::strong<NSObject> compositingFilter;

        bool shouldRasterize = false, drawsAsynchronously = false;
        CGFloat rasterizationScale = 1;
        objc::strong<NSDictionary> actions;
        objc::weak<NSObject> delegate;
        objc::strong<NSString> name;
        bool needsLayout = false, needsDisplay = false;
    };

    static CALayer* layer(Class self);
    objc::strong<CALayer> init();
    void dealloc();

    // Geometry
    CGRect frame();
    void setFrame(CGRect frame);
    CGRect bounds() { return ivars().bounds; }
    void setBounds(CGRect bounds);
    CGPoint position() { return ivars().position; }
    void setPosition(CGPoint position);
    CATransform3D transform() { return ivars().transform; }
    void setTransform(CATransform3D transform);
    CGAffineTransform affineTransform();
    void setAffineTransform(CGAffineTransform transform);

    // The tree
    CALayer* superlayer() { return ivars().superlayer; }
    NSArray* sublayers();
    void setSublayers(NSArray* layers);
    void addSublayer(CALayer* layer);
    void insertSublayer(CALayer* layer, unsigned index);
    void insertSublayerBelow(CALayer* layer, CALayer* sibling);
    void insertSublayerAbove(CALayer* layer, CALayer* sibling);
    void removeFromSuperlayer();

    // What it looks like
    float opacity() { return ivars().opacity; }
    void setOpacity(float opacity);
    bool isHidden() { return ivars().hidden; }
    void setHidden(bool hidden) { ivars().hidden = hidden; }
    bool isOpaque() { return ivars().opaque; }
    void setOpaque(bool opaque) { ivars().opaque = opaque; }
    CGPathRef shadowPath() { return ivars().shadowPath; }
    void setShadowPath(CGPathRef path) { ivars().shadowPath = const_cast<CGPath*>(path); }
    NSArray* filters() { return ivars().filters; }
    void setFilters(NSArray* filters);

    // Animations
    void addAnimation(CAAnimation* animation, NSString* key);
    CAAnimation* animationForKey(NSString* key);
    NSArray* animationKeys();
    void removeAnimationForKey(NSString* key);
    void removeAllAnimations();
    CALayer* presentationLayer();

    // Layout and display
    void setNeedsLayout();
    bool needsLayout() { return ivars().needsLayout; }
    void layoutIfNeeded();
    void layoutSublayers();
    void setNeedsDisplay() { ivars().needsDisplay = true; }
    bool needsDisplay() { return ivars().needsDisplay; }
    void displayIfNeeded();
    void display();
    void drawInContext(CGContextRef context);
    void renderInContext(CGContextRef context);
    void drawContents(CGContextRef context);

  private:
    void insert(CALayer* layer, size_t index);
    size_t index_of(CALayer* sibling);
    void forget(CALayer* sublayer);
};

}  // namespace sim
