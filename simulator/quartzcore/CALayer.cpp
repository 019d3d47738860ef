// Layers: geometry, the tree, and the list of their properties.
#include "quartzcore/CALayer.h"

#include <algorithm>
#include <climits>

#include "coregraphics/transform.h"
#include "objc/class.h"
#include "quartzcore/animation/noted_changes.h"
#include "quartzcore/layer_geometry.h"
#include "runtime/not_modelled.h"
#include "runtime/owned_list.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

CALayer* Layer::layer(Class self) { return objc::make<"init", CALayer>(self).autoreleased(); }

strong<CALayer> Layer::init() {
    auto self = initialised_by_super<"init">();
    if (!self) return nullptr;
    const CGFloat black[] = {0, 0, 0, 1};
    auto& ivars = self->ivars();
    ivars.borderColor = objc::adopt(CGColorCreate(objc::adopt(CGColorSpaceCreateDeviceRGB()), black));
    ivars.shadowColor = ivars.borderColor;
    ivars.contentsGravity = "resize"_ns;
    return self;
}

void Layer::dealloc() {
    self()->removeAllAnimations();
    for (CALayer* sublayer : ivars().sublayers) static_cast<Layer*>(sublayer)->ivars().superlayer = nullptr;
}

// ---- Geometry -----------------------------------------------------------------------------------

CGRect Layer::frame() { return bounding_box(to_superlayer(this), self()->bounds()); }

void Layer::setFrame(CGRect frame) {
    auto* self = this->self();
    frame = standardized(frame);
    CGRect bounds = self->bounds();
    const auto back = inverted(self->affineTransform());
    bounds.size = back ? bounding_box(*back, {{0, 0}, frame.size}).size : frame.size;
    const CGPoint anchor = self->anchorPoint();
    self->setBounds(bounds);
    self->setPosition(
        {frame.origin.x + anchor.x * frame.size.width, frame.origin.y + anchor.y * frame.size.height});
}

void Layer::setBounds(CGRect bounds) {
    note_change(this, LayerProperty::bounds);
    const bool resized = ivars().bounds.size != bounds.size;
    ivars().bounds = bounds;
    if (resized) self()->setNeedsLayout();
}

void Layer::setPosition(CGPoint position) {
    note_change(this, LayerProperty::position);
    ivars().position = position;
}

void Layer::setTransform(CATransform3D transform) {
    note_change(this, LayerProperty::transform);
    ivars().transform = transform;
}

void Layer::setOpacity(float opacity) {
    note_change(this, LayerProperty::opacity);
    ivars().opacity = opacity;
}

CGAffineTransform Layer::affineTransform() { return to_2d(self()->transform()); }

void Layer::setAffineTransform(CGAffineTransform transform) { self()->setTransform(to_3d(transform)); }

// ---- The tree -----------------------------------------------------------------------------------

NSArray* Layer::sublayers() {
    const auto& layers = ivars().sublayers;
    if (layers.empty()) return nullptr;
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(layers.size());
    for (CALayer* layer : layers) list->addObject(layer);
    return NSArray::arrayWithArray(list);
}

void Layer::setSublayers(NSArray* layers) {
    while (!ivars().sublayers.empty()) ivars().sublayers.back()->removeFromSuperlayer();
    const NSUInteger count = layers->count();
    for (NSUInteger i = 0; i < count; ++i)
        self()->addSublayer(static_cast<CALayer*>(layers->objectAtIndex(i)));
}

void Layer::addSublayer(CALayer* layer) { insert(layer, SIZE_MAX); }

void Layer::insertSublayer(CALayer* layer, unsigned index) { insert(layer, index); }

void Layer::insertSublayerBelow(CALayer* layer, CALayer* sibling) {
    if (layer && layer != sibling) layer->removeFromSuperlayer();
    insert(layer, index_of(sibling));
}

void Layer::insertSublayerAbove(CALayer* layer, CALayer* sibling) {
    if (layer && layer != sibling) layer->removeFromSuperlayer();
    insert(layer, index_of(sibling) + 1);
}

void Layer::removeFromSuperlayer() {
    if (auto* above = static_cast<Layer*>(ivars().superlayer)) above->forget(this);
}

// Where a sibling stands; the end without one.
size_t Layer::index_of(CALayer* sibling) {
    const auto& layers = ivars().sublayers;
    auto found = std::find(layers.begin(), layers.end(), sibling);
    return found == layers.end() ? layers.size() : static_cast<size_t>(found - layers.begin());
}

void Layer::insert(CALayer* layer, size_t index) {
    if (!layer) return;
    for (CALayer* above = this; above; above = above->superlayer())
        if (above == layer) not_modelled("CALayer", "addSublayer:", "a layer in its own tree");
    const strong<CALayer> kept = layer;
    layer->removeFromSuperlayer();
    auto& layers = ivars().sublayers;
    layers.insert(layers.begin() + static_cast<ptrdiff_t>(std::min(index, layers.size())), kept);
    static_cast<Layer*>(layer)->ivars().superlayer = this;
    self()->setNeedsLayout();
}

void Layer::forget(CALayer* sublayer) {
    const strong<CALayer> taken = taken_from(ivars().sublayers, sublayer);
    if (!taken) return;
    static_cast<Layer*>(sublayer)->ivars().superlayer = nullptr;
    self()->setNeedsLayout();
}

void Layer::setFilters(NSArray* filters) {
    ivars().filters = strong<NSArray>::adopt(filters->send<"copy", NSArray*>());
}

}  // namespace sim

using namespace objc::definition;
using sim::Layer;

OBJC_CLASS(CALayer, NSObject, Layer,
           class_method<"layer", &Layer::layer>,
           method<"init", &Layer::init>,
           ivar<"_bounds", &sim::Layer::Ivars::bounds>,
           ivar<"_position", &sim::Layer::Ivars::position>,
           property<"anchorPoint", &sim::Layer::Ivars::anchorPoint>,
           ivar<"_transform", &sim::Layer::Ivars::transform>,
           ivar<"_superlayer", &sim::Layer::Ivars::superlayer>,
           ivar<"_sublayers", &sim::Layer::Ivars::sublayers>,
           property<"mask", &sim::Layer::Ivars::mask>,
           property<"contents", &sim::Layer::Ivars::contents>,
           property<"contentsScale", &sim::Layer::Ivars::contentsScale>,
           property<"contentsGravity", &sim::Layer::Ivars::contentsGravity>,
           property<"contentsMultiplyColor", &sim::Layer::Ivars::contentsMultiplyColor>,
           property<"backgroundColor", &sim::Layer::Ivars::backgroundColor>,
           property<"borderColor", &sim::Layer::Ivars::borderColor>,
           property<"shadowColor", &sim::Layer::Ivars::shadowColor>,
           property<"cornerRadius", &sim::Layer::Ivars::cornerRadius>,
           property<"borderWidth", &sim::Layer::Ivars::borderWidth>,
           property<"masksToBounds", &sim::Layer::Ivars::masksToBounds>,
           ivar<"_hidden", &sim::Layer::Ivars::hidden>,
           ivar<"_opaque", &sim::Layer::Ivars::opaque>,
           ivar<"_opacity", &sim::Layer::Ivars::opacity>,
           property<"shadowOpacity", &sim::Layer::Ivars::shadowOpacity>,
           property<"shadowOffset", &sim::Layer::Ivars::shadowOffset>,
           property<"shadowRadius", &sim::Layer::Ivars::shadowRadius>,
           ivar<"_shadowPath", &sim::Layer::Ivars::shadowPath>,
           ivar<"_filters", &sim::Layer::Ivars::filters>,
           property<"compositingFilter", &sim::Layer::Ivars::compositingFilter>,
           property<"shouldRasterize", &sim::Layer::Ivars::shouldRasterize>,
           property<"drawsAsynchronously", &sim::Layer::Ivars::drawsAsynchronously>,
           property<"rasterizationScale", &sim::Layer::Ivars::rasterizationScale>,
           property<"actions", &sim::Layer::Ivars::actions>,
           property<"delegate", &sim::Layer::Ivars::delegate>,
           property<"name", &sim::Layer::Ivars::name>,
           ivar<"_needsLayout", &sim::Layer::Ivars::needsLayout>,
           ivar<"_needsDisplay", &sim::Layer::Ivars::needsDisplay>,
           method<"frame", &Layer::frame>,
           method<"setFrame:", &Layer::setFrame>,
           method<"bounds", &Layer::bounds>,
           method<"setBounds:", &Layer::setBounds>,
           method<"position", &Layer::position>,
           method<"setPosition:", &Layer::setPosition>,
           method<"transform", &Layer::transform>,
           method<"setTransform:", &Layer::setTransform>,
           method<"opacity", &Layer::opacity>,
           method<"setOpacity:", &Layer::setOpacity>,
           method<"addAnimation:forKey:", &Layer::addAnimation>,
           method<"animationForKey:", &Layer::animationForKey>,
           method<"animationKeys", &Layer::animationKeys>,
           method<"removeAnimationForKey:", &Layer::removeAnimationForKey>,
           method<"removeAllAnimations", &Layer::removeAllAnimations>,
           method<"presentationLayer", &Layer::presentationLayer>,
           method<"affineTransform", &Layer::affineTransform>,
           method<"setAffineTransform:", &Layer::setAffineTransform>,
           method<"superlayer", &Layer::superlayer>,
           method<"sublayers", &Layer::sublayers>,
           method<"setSublayers:", &Layer::setSublayers>,
           method<"addSublayer:", &Layer::addSublayer>,
           method<"insertSublayer:atIndex:", &Layer::insertSublayer>,
           method<"insertSublayer:below:", &Layer::insertSublayerBelow>,
           method<"insertSublayer:above:", &Layer::insertSublayerAbove>,
           method<"removeFromSuperlayer", &Layer::removeFromSuperlayer>,
           method<"isHidden", &Layer::isHidden>,
           method<"setHidden:", &Layer::setHidden>,
           method<"isOpaque", &Layer::isOpaque>,
           method<"setOpaque:", &Layer::setOpaque>,
           method<"shadowPath", &Layer::shadowPath>,
           method<"setShadowPath:", &Layer::setShadowPath>,
           method<"filters", &Layer::filters>,
           method<"setFilters:", &Layer::setFilters>,
           method<"setNeedsLayout", &Layer::setNeedsLayout>,
           method<"needsLayout", &Layer::needsLayout>,
           method<"layoutIfNeeded", &Layer::layoutIfNeeded>,
           method<"layoutSublayers", &Layer::layoutSublayers>,
           method<"setNeedsDisplay", &Layer::setNeedsDisplay>,
           method<"needsDisplay", &Layer::needsDisplay>,
           method<"displayIfNeeded", &Layer::displayIfNeeded>,
           method<"display", &Layer::display>,
           method<"drawInContext:", &Layer::drawInContext>,
           method<"renderInContext:", &Layer::renderInContext>,
           method<"_drawContentsInContext:", &Layer::drawContents>)
