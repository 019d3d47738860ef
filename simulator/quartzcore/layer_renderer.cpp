#include "quartzcore/layer_renderer.h"

#include <algorithm>
#include <cmath>

#include "coregraphics/CGContext.h"
#include "coregraphics/CGImage.h"
#include "coregraphics/CGPath.h"
#include "coregraphics/drawing/box_blur.h"
#include "coregraphics/transform.h"
#include "quartzcore/CABackdropLayer.h"
#include "quartzcore/CALayer.h"
#include "quartzcore/compositing.h"
#include "quartzcore/filters.h"
#include "quartzcore/layer_geometry.h"
#include "quartzcore/shadow.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

using objc::strong;
using namespace objc::literals;

strong<CGPath> rounded(CGRect rect, CGFloat radius) {
    return objc::adopt(const_cast<CGPath*>(CGPathCreateWithRoundedRect(rect, radius, radius, nullptr)));
}

CGRect united(const CGRect& a, const CGRect& b) {
    const CGFloat x1 = std::min(a.origin.x, b.origin.x), y1 = std::min(a.origin.y, b.origin.y);
    const CGFloat x2 = std::max(a.origin.x + a.size.width, b.origin.x + b.size.width);
    const CGFloat y2 = std::max(a.origin.y + a.size.height, b.origin.y + b.size.height);
    return {{x1, y1}, {x2 - x1, y2 - y1}};
}

/// Where the contents lie, in the layer's space.
CGRect contents_rect(CALayer* layer, CGImageRef image) {
    const CGRect bounds = layer->bounds();
    NSString* gravity = layer->contentsGravity();
    if (gravity->isEqualToString("resize"_ns)) return bounds;
    const CGFloat scale = layer->contentsScale();
    CGSize size{static_cast<CGFloat>(CGImageGetWidth(image)) / scale,
                static_cast<CGFloat>(CGImageGetHeight(image)) / scale};
    const CGFloat across = bounds.size.width / size.width, down = bounds.size.height / size.height;
    CGFloat factor = 1;
    if (gravity->isEqualToString("resizeAspect"_ns))
        factor = std::min(across, down);
    else if (gravity->isEqualToString("resizeAspectFill"_ns))
        factor = std::max(across, down);
    else if (!gravity->isEqualToString("center"_ns))
        not_modelled("CALayer", "contentsGravity", gravity->UTF8String());
    size = {size.width * factor, size.height * factor};
    return {{bounds.origin.x + (bounds.size.width - size.width) / 2,
             bounds.origin.y + (bounds.size.height - size.height) / 2},
            size};
}

/// A box around everything that the layer draws, in its own space.
CGRect extent(CALayer* layer) {
    CGRect box = layer->bounds();
    if (auto* image = as<CGImage>(layer->contents())) box = united(box, contents_rect(layer, image));
    if (!layer->masksToBounds()) {
        for (CALayer* sublayer : static_cast<Layer*>(layer)->ivars().sublayers)
            if (!sublayer->isHidden())
                box = united(box, bounding_box(to_superlayer(sublayer), extent(sublayer)));
        if (has_shadow(layer)) box = united(box, shadow_extent(layer));
    }
    return box;
}

void fill(CGContextRef context, CGPathRef path, CGColorRef color) {
    CGContextBeginPath(context);
    CGContextAddPath(context, path);
    CGContextSetFillColorWithColor(context, color);
    CGContextFillPath(context);
}

// Inside the bounds, on top of everything else.
void draw_border(CALayer* layer, CGContextRef context) {
    const CGFloat width = layer->borderWidth();
    CGColorRef color = layer->borderColor();
    if (!(width > 0) || !color) return;
    const CGRect inside = inset(layer->bounds(), width);
    CGContextBeginPath(context);
    CGContextAddPath(context, outline_of(layer));
    if (!is_empty(inside)) CGContextAddPath(context, rounded(inside, layer->cornerRadius() - width));
    CGContextSetFillColorWithColor(context, color);
    CGContextEOFillPath(context);
}

/// What the layer shows of what lies behind it; nothing for a layer that is not a backdrop.
Excerpt blurred_behind(CALayer* layer, Canvas& canvas) {
    auto* backdrop = as<CABackdropLayer>(layer);
    const CGFloat radius = backdrop ? backdrop->blurRadius() : 0;
    if (!(radius > 0)) return {};
    const Excerpt behind = canvas.excerpt(layer->bounds());
    const CGAffineTransform& ctm = canvas.state().ctm;
    if (behind.pixels) box_blur(behind.pixels, radius * std::sqrt(std::abs(ctm.a * ctm.d - ctm.b * ctm.c)));
    return behind;
}

void draw_behind(CALayer* layer, CGContextRef context, const Excerpt& behind) {
    if (!behind.pixels) return;
    CGContextSaveGState(context);
    CGContextBeginPath(context);
    CGContextAddPath(context, outline_of(layer));
    CGContextClip(context);
    canvas_of(context).put_back(behind);
    CGContextRestoreGState(context);
}

void draw_inside(CALayer* layer, CGContextRef context, const Excerpt& behind) {
    draw_shadow(layer, context);
    draw_behind(layer, context, behind);
    if (CGColorRef color = layer->backgroundColor()) fill(context, outline_of(layer), color);
    CGContextSaveGState(context);
    if (layer->masksToBounds()) {
        CGContextBeginPath(context);
        CGContextAddPath(context, outline_of(layer));
        CGContextClip(context);
    }
    layer->send<"_drawContentsInContext:">(context);
    const auto sublayers = static_cast<Layer*>(layer)->ivars().sublayers;
    for (CALayer* sublayer : sublayers) render(sublayer, context);
    CGContextRestoreGState(context);
    draw_border(layer, context);
}

void keep_what_mask_shows(CALayer* mask, CGContextRef context) {
    CGContextSaveGState(context);
    CGContextSetBlendMode(context, kCGBlendModeDestinationIn);
    CGContextBeginTransparencyLayer(context, nullptr);
    render(mask, context);
    CGContextEndTransparencyLayer(context);
    CGContextRestoreGState(context);
}

}  // namespace

strong<CGPath> outline_of(CALayer* layer) { return rounded(layer->bounds(), layer->cornerRadius()); }

void draw_contents(CALayer* layer, CGContextRef context) {
    id contents = layer->contents();
    if (!contents) return;
    auto* image = as<CGImage>(contents);
    if (!image) not_modelled("CALayer", "contents", "contents that are not a CGImage");
    const CGRect rect = contents_rect(layer, image);
    if (is_empty(rect)) return;
    Canvas& canvas = canvas_of(context);
    CGColorRef multiplier = layer->contentsMultiplyColor();
    canvas.save();
    if (multiplier) {
        canvas.clip(inset(rect, -1));
        canvas.begin_layer();
    }
    // Images are upright where y points up.
    canvas.concat({1, 0, 0, -1, 0, 2 * rect.origin.y + rect.size.height});
    canvas.draw_image(rect, surface_of(image));
    if (multiplier) canvas.end_layer([&](cairo_surface_t* surface) { multiply(surface, multiplier); });
    canvas.restore();
}

void render(CALayer* layer, CGContextRef context) {
    Canvas& canvas = canvas_of(context);
    canvas.save();
    canvas.concat(to_superlayer(layer));
    render_in_own_space(layer, context);
    canvas.restore();
}

void render_in_own_space(CALayer* layer, CGContextRef context) {
    const float opacity = layer->opacity();
    if (layer->isHidden() || !(opacity > 0)) return;
    layer->displayIfNeeded();

    Canvas& canvas = canvas_of(context);
    const Excerpt behind = blurred_behind(layer, canvas);  // which a group of its own would not see
    NSArray* filters = layer->filters();
    id compositing = layer->compositingFilter();
    CALayer* mask = layer->mask();
    if (opacity >= 1 && !filters->count() && !compositing && !mask)
        return draw_inside(layer, context, behind);

    canvas.save();
    // The group is as large as the clip, whose soft edge is to be clear of what is drawn.
    canvas.clip(inset(extent(layer), -1));
    canvas.state().alpha = std::min(opacity, 1.0f);
    canvas.state().blend = blend_mode_of(compositing);
    canvas.begin_layer();
    draw_inside(layer, context, behind);
    if (mask) keep_what_mask_shows(mask, context);
    canvas.end_layer([&](cairo_surface_t* surface) { apply(filters, surface); });
    canvas.restore();
}

}  // namespace sim
