#include "quartzcore/shadow.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "coregraphics/CGContext.h"
#include "coregraphics/CGPath.h"
#include "coregraphics/drawing/box_blur.h"
#include "coregraphics/transform.h"
#include "quartzcore/layer_renderer.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

objc::strong<CGPath> shape_of(CALayer* layer) {
    if (CGPathRef path = layer->shadowPath()) return const_cast<CGPath*>(path);
    if (!layer->backgroundColor())
        not_modelled("CALayer", "shadowPath", "a shadow of contents and sublayers");
    return outline_of(layer);
}

/// Means of `2 * reach + 1` values along a line of `count` values that lie `step` apart; zeros lie beyond its
/// ends.
void average_along(uint8_t* line, size_t count, size_t step, size_t reach, std::vector<uint8_t>& copy) {
    copy.resize(count);
    for (size_t i = 0; i < count; ++i) copy[i] = line[i * step];
    const unsigned span = static_cast<unsigned>(2 * reach + 1);
    unsigned sum = 0;
    for (size_t i = 0; i < std::min(reach, count); ++i) sum += copy[i];
    for (size_t i = 0; i < count; ++i) {
        if (i + reach < count) sum += copy[i + reach];
        if (i > reach) sum -= copy[i - reach - 1];
        line[i * step] = static_cast<uint8_t>((sum + span / 2) / span);
    }
}

/// Three averages in a row come close to a bell curve with the deviation, in pixels.
void blur(cairo_surface_t* mask, double deviation) {
    const size_t reach = box_reach(deviation);
    if (!reach) return;
    cairo_surface_flush(mask);
    uint8_t* data = cairo_image_surface_get_data(mask);
    const auto width = static_cast<size_t>(cairo_image_surface_get_width(mask));
    const auto height = static_cast<size_t>(cairo_image_surface_get_height(mask));
    const auto stride = static_cast<size_t>(cairo_image_surface_get_stride(mask));
    std::vector<uint8_t> copy;
    for (int pass = 0; pass < 3; ++pass) {
        for (size_t y = 0; y < height; ++y) average_along(data + y * stride, width, 1, reach, copy);
        for (size_t x = 0; x < width; ++x) average_along(data + x, height, stride, reach, copy);
    }
    cairo_surface_mark_dirty(mask);
}

CGFloat radius_of(CALayer* layer) { return layer->shadowRadius() > 0 ? layer->shadowRadius() : 0; }

/// How far a shadow reaches beyond its shape.
CGFloat reach_of(CALayer* layer) { return 3 * radius_of(layer) + 1; }

}  // namespace

bool has_shadow(CALayer* layer) {
    return layer->shadowOpacity() > 0 && layer->shadowColor() && !layer->masksToBounds();
}

CGRect shadow_extent(CALayer* layer) {
    CGRect box = CGPathGetBoundingBox(shape_of(layer));
    const CGSize offset = layer->shadowOffset();
    box.origin = {box.origin.x + offset.width, box.origin.y + offset.height};
    return inset(box, -reach_of(layer));
}

void draw_shadow(CALayer* layer, CGContextRef context) {
    if (!has_shadow(layer)) return;
    const auto shape = shape_of(layer);
    const CGSize offset = layer->shadowOffset();
    CGContextSaveGState(context);
    CGContextTranslateCTM(context, offset.width, offset.height);
    Canvas& canvas = canvas_of(context);
    canvas.with_cairo([&](cairo_t* cairo) {
        cairo_matrix_t m;
        cairo_get_matrix(cairo, &m);
        const CGAffineTransform to_pixels{m.xx, m.yx, m.xy, m.yy, m.x0, m.y0};
        const CGFloat pixels_per_point = std::sqrt(std::abs(m.xx * m.yy - m.xy * m.yx));
        const CGRect box = bounding_box(to_pixels, inset(CGPathGetBoundingBox(shape), -reach_of(layer)));
        const CGFloat left = std::floor(box.origin.x), top = std::floor(box.origin.y);
        const CGFloat width = std::ceil(box.size.width) + 1, height = std::ceil(box.size.height) + 1;
        const auto& bitmap = canvas.bitmap();
        const bool sensible = width <= 2.0 * cairo_image_surface_get_width(bitmap.surface()) + 1000 &&
                              height <= 2.0 * cairo_image_surface_get_height(bitmap.surface()) + 1000;
        if (!sensible)
            not_modelled("CALayer", "shadowRadius", "a shadow much larger than what is drawn into");

        const Surface mask(
            cairo_image_surface_create(CAIRO_FORMAT_A8, static_cast<int>(width), static_cast<int>(height)));
        const Cairo drawing(cairo_create(mask));
        cairo_translate(drawing, -left, -top);
        cairo_transform(drawing, &m);
        trace(drawing, elements_of(shape));
        cairo_fill(drawing);
        blur(mask, radius_of(layer) * pixels_per_point);

        cairo_identity_matrix(cairo);
        cairo_set_source(cairo,
                         source_of(layer->shadowColor(), canvas.state().alpha * layer->shadowOpacity()));
        cairo_mask_surface(cairo, mask, left, top);
    });
    CGContextRestoreGState(context);
}

}  // namespace sim
