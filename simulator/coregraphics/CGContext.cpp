// The C functions of contexts. Each does nothing for NULL.
#include "coregraphics/CGContext.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "coregraphics/CGColorSpace.h"
#include "coregraphics/CGImage.h"
#include "coregraphics/drawing/pixels.h"
#include "coregraphics/transform.h"
#include "objc/class.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;
using sim::Canvas;
using sim::FillRule;
using sim::PathElement;
using sim::PathElements;

struct Context : objc::Implements<Context, CGContext> {
    struct Ivars {
        std::unique_ptr<Canvas> canvas;
    };
};

Canvas* canvas(CGContextRef context) { return context ? &sim::canvas_of(context) : nullptr; }

void add(CGContextRef context, const PathElements& elements) {
    if (context) sim::canvas_of(context).add(elements);
}

// A grey image without alpha is itself the mask: white shows. Every other image masks by its alpha.
sim::Surface mask_shape(CGImageRef mask) {
    sim::Surface surface = sim::surface_of(mask);
    if (sim::has_alpha(mask) ||
        CGColorSpaceGetModel(CGImageGetColorSpace(mask)) != kCGColorSpaceModelMonochrome)
        return surface;
    const sim::Pixels grey(surface);
    sim::Surface shape(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(grey.width()),
                                                  static_cast<int>(grey.height())));
    const sim::Pixels pixels(shape);
    for (size_t y = 0; y < grey.height(); ++y)
        for (size_t i = 0; i < grey.row(y).size(); i += sim::Pixels::bytes)
            pixels.row(y)[i + sim::Pixels::alpha] = grey.row(y)[i + sim::Pixels::green];
    pixels.changed();
    return shape;
}

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGContext, NSObject, Context, ivar<"canvas", &Context::Ivars::canvas>)

namespace sim {

strong<CGContext> context_over(Bitmap bitmap) {
    auto context = strong<CGContext>::adopt(CGContext::alloc());
    static_cast<Context*>(context.get())->ivars().canvas = std::make_unique<Canvas>(std::move(bitmap));
    return context;
}

strong<CGContext> image_context(CGSize size, bool opaque, CGFloat scale) {
    const CGFloat width = std::ceil(size.width * scale), height = std::ceil(size.height * scale);
    const bool drawable = size.width > 0 && size.height > 0 && width >= 1 && width <= longest_side &&
                          height >= 1 && height <= longest_side;
    if (!drawable) return nullptr;
    auto bitmap = Bitmap::of_size(static_cast<size_t>(width), static_cast<size_t>(height), opaque);
    if (!bitmap) return nullptr;
    auto context = context_over(std::move(*bitmap));
    canvas_of(context).concat({scale, 0, 0, -scale, 0, height});
    return context;
}

Canvas& canvas_of(CGContextRef context) { return *static_cast<Context*>(context)->ivars().canvas; }

strong<CGImage> image_of(const Canvas& canvas) {
    canvas.bitmap().load();
    return image_of(snapshot(canvas.bitmap().surface()));
}

}  // namespace sim

// ---- Bitmaps ------------------------------------------------------------------------------------

SIM_EXPORTED CGContextRef CGBitmapContextCreate(void* data, size_t width, size_t height,
                                                size_t bits_per_component, size_t bytes_per_row,
                                                CGColorSpaceRef space, CGBitmapInfo info) {
    if (bits_per_component == 8 && CGColorSpaceGetModel(space) != kCGColorSpaceModelRGB &&
        (space || (info & kCGBitmapAlphaInfoMask) == kCGImageAlphaOnly))
        sim::not_modelled("CGBitmapContextCreate", "a context that is grey or alpha alone");
    if (bits_per_component != 8 || !space) return nullptr;
    if (!data && !bytes_per_row) bytes_per_row = width * sim::Pixels::bytes;
    auto bitmap = sim::Bitmap::over(data, width, height, bytes_per_row, info);
    return bitmap ? sim::context_over(std::move(*bitmap)).leak() : nullptr;
}

SIM_EXPORTED void* CGBitmapContextGetData(CGContextRef context) {
    return context ? canvas(context)->bitmap().data() : nullptr;
}

SIM_EXPORTED size_t CGBitmapContextGetWidth(CGContextRef context) {
    return context ? static_cast<size_t>(cairo_image_surface_get_width(canvas(context)->bitmap().surface()))
                   : 0;
}

SIM_EXPORTED size_t CGBitmapContextGetHeight(CGContextRef context) {
    return context ? static_cast<size_t>(cairo_image_surface_get_height(canvas(context)->bitmap().surface()))
                   : 0;
}

SIM_EXPORTED size_t CGBitmapContextGetBytesPerRow(CGContextRef context) {
    return context ? canvas(context)->bitmap().row_bytes() : 0;
}

SIM_EXPORTED CGBitmapInfo CGBitmapContextGetBitmapInfo(CGContextRef context) {
    return context ? canvas(context)->bitmap().info() : 0;
}

SIM_EXPORTED CGImageRef CGBitmapContextCreateImage(CGContextRef context) {
    return context ? sim::image_of(*canvas(context)).leak() : nullptr;
}

SIM_EXPORTED CGContextRef CGContextRetain(CGContextRef context) {
    objc_retain(context);
    return context;
}

SIM_EXPORTED void CGContextRelease(CGContextRef context) { objc_release(context); }

// ---- State --------------------------------------------------------------------------------------

SIM_EXPORTED void CGContextSaveGState(CGContextRef context) {
    if (context) canvas(context)->save();
}

SIM_EXPORTED void CGContextRestoreGState(CGContextRef context) {
    if (context) canvas(context)->restore();
}

SIM_EXPORTED void CGContextTranslateCTM(CGContextRef context, CGFloat x, CGFloat y) {
    CGContextConcatCTM(context, sim::translation(x, y));
}

SIM_EXPORTED void CGContextScaleCTM(CGContextRef context, CGFloat x, CGFloat y) {
    CGContextConcatCTM(context, sim::scaling(x, y));
}

SIM_EXPORTED void CGContextRotateCTM(CGContextRef context, CGFloat angle) {
    const CGFloat cosine = std::cos(angle), sine = std::sin(angle);
    CGContextConcatCTM(context, {cosine, sine, -sine, cosine, 0, 0});
}

SIM_EXPORTED void CGContextConcatCTM(CGContextRef context, CGAffineTransform transform) {
    if (context) canvas(context)->concat(transform);
}

SIM_EXPORTED CGAffineTransform CGContextGetCTM(CGContextRef context) {
    return context ? canvas(context)->state().ctm : identity_transform;
}

SIM_EXPORTED void CGContextSetFillColorWithColor(CGContextRef context, CGColorRef color) {
    if (context && color) canvas(context)->state().fill = color;
}

SIM_EXPORTED void CGContextSetStrokeColorWithColor(CGContextRef context, CGColorRef color) {
    if (context && color) canvas(context)->state().stroke = color;
}

SIM_EXPORTED void CGContextSetGrayFillColor(CGContextRef context, CGFloat white, CGFloat alpha) {
    const CGFloat components[] = {white, alpha};
    CGContextSetFillColorWithColor(
        context, objc::adopt(CGColorCreate(sim::color_space_of(kCGColorSpaceModelMonochrome), components)));
}

SIM_EXPORTED void CGContextSetRGBFillColor(CGContextRef context, CGFloat red, CGFloat green, CGFloat blue,
                                           CGFloat alpha) {
    const CGFloat components[] = {red, green, blue, alpha};
    CGContextSetFillColorWithColor(
        context, objc::adopt(CGColorCreate(sim::color_space_of(kCGColorSpaceModelRGB), components)));
}

SIM_EXPORTED void CGContextSetAlpha(CGContextRef context, CGFloat alpha) {
    if (context) canvas(context)->state().alpha = alpha > 0 ? std::min(alpha, 1.0) : 0;
}

SIM_EXPORTED void CGContextSetBlendMode(CGContextRef context, CGBlendMode mode) {
    if (context) canvas(context)->state().blend = mode;
}

SIM_EXPORTED void CGContextSetLineWidth(CGContextRef context, CGFloat width) {
    if (context) canvas(context)->state().line_width = width;
}

SIM_EXPORTED void CGContextSetInterpolationQuality(CGContextRef context, CGInterpolationQuality quality) {
    if (context) canvas(context)->state().quality = quality;
}

SIM_EXPORTED CGInterpolationQuality CGContextGetInterpolationQuality(CGContextRef context) {
    return context ? canvas(context)->state().quality : kCGInterpolationDefault;
}

// ---- Paths --------------------------------------------------------------------------------------

SIM_EXPORTED void CGContextBeginPath(CGContextRef context) {
    if (context) canvas(context)->path().clear();
}

SIM_EXPORTED void CGContextMoveToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    add(context, {{PathElement::move, {{x, y}}}});
}

SIM_EXPORTED void CGContextAddLineToPoint(CGContextRef context, CGFloat x, CGFloat y) {
    add(context, {{PathElement::line, {{x, y}}}});
}

SIM_EXPORTED void CGContextAddCurveToPoint(CGContextRef context, CGFloat x1, CGFloat y1, CGFloat x2,
                                           CGFloat y2, CGFloat x, CGFloat y) {
    add(context, {{PathElement::curve, {{x1, y1}, {x2, y2}, {x, y}}}});
}

SIM_EXPORTED void CGContextAddArc(CGContextRef context, CGFloat x, CGFloat y, CGFloat radius, CGFloat start,
                                  CGFloat end, int clockwise) {
    if (!context) return;
    PathElements arc;
    sim::append_arc(arc, {x, y}, radius, start, sim::sweep_between(start, end, clockwise));
    if (!arc.empty() && !canvas(context)->path().empty()) arc.front().kind = PathElement::line;
    add(context, arc);
}

SIM_EXPORTED void CGContextAddRect(CGContextRef context, CGRect rect) {
    PathElements elements;
    sim::append_rect(elements, rect);
    add(context, elements);
}

SIM_EXPORTED void CGContextAddEllipseInRect(CGContextRef context, CGRect rect) {
    CGContextAddPath(context, objc::adopt(const_cast<CGPath*>(CGPathCreateWithEllipseInRect(rect, nullptr))));
}

SIM_EXPORTED void CGContextAddPath(CGContextRef context, CGPathRef path) {
    add(context, sim::elements_of(path));
}

SIM_EXPORTED void CGContextClosePath(CGContextRef context) { add(context, {{PathElement::close, {}}}); }

SIM_EXPORTED void CGContextFillPath(CGContextRef context) {
    if (context) canvas(context)->fill_path(FillRule::winding);
}

SIM_EXPORTED void CGContextEOFillPath(CGContextRef context) {
    if (context) canvas(context)->fill_path(FillRule::even_odd);
}

SIM_EXPORTED void CGContextStrokePath(CGContextRef context) {
    if (context) canvas(context)->stroke_path();
}

SIM_EXPORTED void CGContextClip(CGContextRef context) {
    if (context) canvas(context)->clip_to_path(FillRule::winding);
}

SIM_EXPORTED void CGContextEOClip(CGContextRef context) {
    if (context) canvas(context)->clip_to_path(FillRule::even_odd);
}

SIM_EXPORTED void CGContextClipToRect(CGContextRef context, CGRect rect) {
    if (context) canvas(context)->clip(rect);
}

SIM_EXPORTED void CGContextClipToMask(CGContextRef context, CGRect rect, CGImageRef mask) {
    if (context && mask) canvas(context)->clip_to_mask(rect, mask_shape(mask));
}

SIM_EXPORTED CGRect CGContextGetClipBoundingBox(CGContextRef context) {
    return context ? canvas(context)->clip_box() : CGRect{};
}

// ---- Drawing ------------------------------------------------------------------------------------

SIM_EXPORTED void CGContextFillRect(CGContextRef context, CGRect rect) {
    if (context) canvas(context)->fill(rect);
}

SIM_EXPORTED void CGContextStrokeRect(CGContextRef context, CGRect rect) {
    CGContextBeginPath(context);
    CGContextAddRect(context, rect);
    CGContextStrokePath(context);
}

SIM_EXPORTED void CGContextFillEllipseInRect(CGContextRef context, CGRect rect) {
    CGContextBeginPath(context);
    CGContextAddEllipseInRect(context, rect);
    CGContextFillPath(context);
}

SIM_EXPORTED void CGContextClearRect(CGContextRef context, CGRect rect) {
    if (context) canvas(context)->clear(rect);
}

SIM_EXPORTED void CGContextDrawImage(CGContextRef context, CGRect rect, CGImageRef image) {
    if (context && image) canvas(context)->draw_image(rect, sim::surface_of(image));
}

SIM_EXPORTED void CGContextBeginTransparencyLayer(CGContextRef context, NSDictionary*) {
    if (context) canvas(context)->begin_layer();
}

SIM_EXPORTED void CGContextEndTransparencyLayer(CGContextRef context) {
    if (context) canvas(context)->end_layer();
}
