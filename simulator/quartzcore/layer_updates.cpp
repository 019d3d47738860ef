// Layers: layout and display, which bring a tree up to date before it is drawn.
#include "coregraphics/CGContext.h"
#include "coregraphics/CGImage.h"
#include "objc/strong.h"
#include "quartzcore/CALayer.h"
#include "quartzcore/layer_renderer.h"

namespace sim {
namespace {

// A list of its own: layout may add and remove layers.
std::vector<objc::strong<CALayer>> sublayers_of(CALayer* layer) {
    return static_cast<Layer*>(layer)->ivars().sublayers;
}

void lay_out_tree(CALayer* layer) {
    if (layer->needsLayout()) {
        // What is asked for from here on is asked for the next time.
        static_cast<Layer*>(layer)->ivars().needsLayout = false;
        layer->layoutSublayers();
    }
    for (CALayer* sublayer : sublayers_of(layer)) lay_out_tree(sublayer);
}

}  // namespace

void Layer::setNeedsLayout() { ivars().needsLayout = true; }

void Layer::layoutIfNeeded() {
    CALayer* top = this;
    while (top->superlayer() && top->superlayer()->needsLayout()) top = top->superlayer();
    const objc::strong<CALayer> kept = top;
    lay_out_tree(top);
}

void Layer::layoutSublayers() {
    const auto delegate = ivars().delegate.get();
    if (delegate->respondsToSelector(objc::selector<"layoutSublayersOfLayer:">()))
        delegate->send<"layoutSublayersOfLayer:">(self());
}

void Layer::displayIfNeeded() {
    if (ivars().needsDisplay) self()->display();
}

void Layer::display() {
    auto* self = this->self();
    ivars().needsDisplay = false;
    const auto delegate = ivars().delegate.get();
    if (delegate->respondsToSelector(objc::selector<"displayLayer:">())) {
        delegate->send<"displayLayer:">(self);
        return;
    }
    const CGRect bounds = self->bounds();
    objc::strong<CGImage> picture;
    if (auto context = image_context(bounds.size, false, self->contentsScale())) {
        CGContextTranslateCTM(context, -bounds.origin.x, -bounds.origin.y);
        self->drawInContext(context);
        picture = image_of(canvas_of(context));
    }
    self->setContents(picture);
}

void Layer::drawInContext(CGContextRef context) {
    const auto delegate = ivars().delegate.get();
    if (delegate->respondsToSelector(objc::selector<"drawLayer:inContext:">()))
        delegate->send<"drawLayer:inContext:">(self(), context);
}

void Layer::renderInContext(CGContextRef context) {
    if (context) render_in_own_space(this, context);
}

void Layer::drawContents(CGContextRef context) { draw_contents(this, context); }

}  // namespace sim
