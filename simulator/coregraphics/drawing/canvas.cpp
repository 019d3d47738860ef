// Drawing by the rules of CoreGraphics. Cairo's own transformation stays the identity between operations:
// points are transformed here, so that no transformation a caller makes can break cairo's context for good.
#include "coregraphics/drawing/canvas.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "coregraphics/CGColorSpace.h"
#include "coregraphics/drawing/blend_mode.h"
#include "coregraphics/drawing/image_placement.h"
#include "coregraphics/drawing/pixels.h"
#include "coregraphics/transform.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

// Leaves out elements that are not finite, and keeps within the 24 bits that cairo's coordinates have before
// the point.
PathElements transformed(const PathElements& elements, const CGAffineTransform& transform) {
    constexpr CGFloat limit = 1 << 22;
    PathElements result;
    for (PathElement element : elements) {
        bool finite = true;
        for (CGPoint& point : element.points) {
            point = apply(transform, point);
            finite = finite && std::isfinite(point.x) && std::isfinite(point.y);
            point = {std::clamp(point.x, -limit, limit), std::clamp(point.y, -limit, limit)};
        }
        if (finite) result.push_back(element);
    }
    return result;
}

cairo_matrix_t matrix(const CGAffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }

bool is_opaque_colour(cairo_pattern_t* source) {
    double red, green, blue, alpha;
    return cairo_pattern_get_rgba(source, &red, &green, &blue, &alpha) == CAIRO_STATUS_SUCCESS && alpha >= 1;
}

cairo_fill_rule_t cairos(FillRule rule) {
    return rule == FillRule::winding ? CAIRO_FILL_RULE_WINDING : CAIRO_FILL_RULE_EVEN_ODD;
}

}  // namespace

Canvas::Canvas(Bitmap bitmap)
    : bitmap_(std::move(bitmap)),
      cairo_(cairo_create(bitmap_.surface())),
      height_(cairo_image_surface_get_height(bitmap_.surface())) {
    const CGFloat black[] = {0, 1};
    state_.fill = objc::adopt(CGColorCreate(color_space_of(kCGColorSpaceModelMonochrome), black));
    state_.stroke = state_.fill;
}

// ---- State --------------------------------------------------------------------------------------

void Canvas::save() {
    frames_.push_back({Opened::state, state_});
    cairo_save(cairo_);
}

void Canvas::restore() {
    if (!frames_.empty() && frames_.back().opened == Opened::state) close_frame();
}

void Canvas::close_frame() {
    state_ = std::move(frames_.back().state);
    frames_.pop_back();
    cairo_restore(cairo_);
}

void Canvas::concat(const CGAffineTransform& transform) { state_.ctm = sim::concat(transform, state_.ctm); }

CGAffineTransform Canvas::to_pixels(const CGAffineTransform& user) const {
    return sim::concat(sim::concat(user, state_.ctm), {1, 0, 0, -1, 0, height_});
}

// ---- Paths --------------------------------------------------------------------------------------

void Canvas::add(const PathElements& elements) {
    for (const PathElement& element : transformed(elements, to_pixels(identity_transform)))
        path_.push_back(element);
}

void Canvas::trace(CGRect rect) const {
    PathElements elements;
    if (sim::is_finite(rect)) append_rect(elements, rect);
    sim::trace(cairo_, transformed(elements, to_pixels(identity_transform)));
}

void Canvas::fill_path(FillRule rule) {
    sim::trace(cairo_, std::exchange(path_, {}));
    fill_traced(rule, source_of(state_.fill, state_.alpha));
}

void Canvas::stroke_path() {
    sim::trace(cairo_, std::exchange(path_, {}));
    const CGAffineTransform transform = to_pixels(identity_transform);
    if (!inverted(transform) || !(state_.line_width > 0)) return;
    if (!is_bounded(state_.blend))
        not_modelled("CGContextStrokePath", "a blend mode that reaches beyond the stroke");
    const Pattern source = source_of(state_.stroke, state_.alpha);
    composite([&](cairo_t* cairo) {
        const cairo_matrix_t pen = matrix(transform);
        cairo_set_matrix(cairo, &pen);
        cairo_set_line_width(cairo, state_.line_width);
        cairo_set_source(cairo, source);
        cairo_stroke(cairo);
    });
}

void Canvas::clip_to_path(FillRule rule) {
    sim::trace(cairo_, std::exchange(path_, {}));
    cairo_set_fill_rule(cairo_, cairos(rule));
    cairo_clip(cairo_);
}

// ---- Painting -----------------------------------------------------------------------------------

template <class Draw>
void Canvas::composite(Draw draw, Masking masking) {
    if (!layers_) bitmap_.load();
    cairo_save(cairo_);
    if (state_.blend == kCGBlendModePlusDarker) {
        composite_darker(draw);
    } else if (state_.mask && masking == Masking::of_result) {
        composite_masked(draw);
    } else {
        cairo_set_operator(cairo_, operator_of(state_.blend));
        draw(cairo_.get());
    }
    cairo_restore(cairo_);
    if (cairo_status(cairo_)) not_modelled("CGContext", cairo_status_to_string(cairo_status(cairo_)));
    if (!layers_) bitmap_.store();
}

// Drawn on a copy of what is there; the mask then says how much of the copy counts. That holds for every
// blend mode.
template <class Draw>
void Canvas::composite_masked(Draw draw) {
    cairo_surface_t* below = cairo_get_group_target(cairo_);
    cairo_push_group(cairo_);
    cairo_reset_clip(cairo_);  // it clips the result
    cairo_set_operator(cairo_, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo_, below, 0, 0);
    cairo_paint(cairo_);
    cairo_set_operator(cairo_, operator_of(state_.blend));
    cairo_save(cairo_);
    draw(cairo_.get());
    cairo_restore(cairo_);
    cairo_pop_group_to_source(cairo_);
    cairo_set_operator(cairo_, CAIRO_OPERATOR_SOURCE);
    cairo_mask_surface(cairo_, state_.mask, 0, 0);
}

// Cairo lacks this mode.
template <class Draw>
void Canvas::composite_darker(Draw draw) {
    cairo_surface_t* below = cairo_get_group_target(cairo_);
    cairo_push_group(cairo_);
    cairo_save(cairo_);
    draw(cairo_.get());
    cairo_restore(cairo_);
    if (state_.mask) {
        cairo_set_operator(cairo_, CAIRO_OPERATOR_DEST_IN);
        cairo_set_source_surface(cairo_, state_.mask, 0, 0);
        cairo_paint(cairo_);
    }
    const Pattern drawn(cairo_pop_group(cairo_));
    cairo_surface_t* surface = nullptr;
    cairo_pattern_get_surface(drawn, &surface);
    blend_plus_darker(below, surface);
}

void Canvas::fill_traced(FillRule rule, cairo_pattern_t* source) {
    // An opaque colour of which the mask mixes some in is that colour, painted through the mask.
    const bool through_mask = state_.mask && state_.blend == kCGBlendModeNormal && is_opaque_colour(source);
    composite(
        [&](cairo_t* cairo) {
            cairo_set_source(cairo, source);
            cairo_set_fill_rule(cairo, cairos(rule));
            if (through_mask) {
                cairo_clip(cairo);
                cairo_mask_surface(cairo, state_.mask, 0, 0);
            } else if (is_bounded(state_.blend)) {
                cairo_fill(cairo);
            } else {
                // Cairo would also change what lies outside the shape.
                cairo_clip(cairo);
                cairo_paint(cairo);
            }
        },
        through_mask ? Masking::in_drawing : Masking::of_result);
}

void Canvas::fill(CGRect rect) {
    trace(rect);
    fill_traced(FillRule::winding, source_of(state_.fill, state_.alpha));
}

void Canvas::clear(CGRect rect) {
    trace(rect);
    const CGBlendMode blend = std::exchange(state_.blend, kCGBlendModeClear);
    fill_traced(FillRule::winding, Pattern(cairo_pattern_create_rgba(0, 0, 0, 0)));
    state_.blend = blend;
}

void Canvas::clip(CGRect rect) {
    trace(rect);
    cairo_set_fill_rule(cairo_, CAIRO_FILL_RULE_WINDING);
    cairo_clip(cairo_);
}

CGRect Canvas::clip_box() const {
    double x1, y1, x2, y2;
    cairo_clip_extents(cairo_, &x1, &y1, &x2, &y2);
    const auto to_user = inverted(to_pixels(identity_transform));
    return to_user ? bounding_box(*to_user, {{x1, y1}, {x2 - x1, y2 - y1}}) : CGRect{};
}

void Canvas::draw_image(CGRect rect, cairo_surface_t* picture) {
    const ImagePlacement placement(picture, to_pixels(from_picture(picture, rect)), state_.quality);
    if (!placement.is_visible()) return;
    trace(rect);
    composite([&](cairo_t* cairo) {
        cairo_clip(cairo);
        cairo_set_source(cairo, placement.source());
        // Copying puts the faded picture in place of what was there, where cairo would mix the two.
        const bool faded_copy = state_.alpha < 1 && state_.blend == kCGBlendModeCopy;
        if (faded_copy) {
            cairo_push_group(cairo);
            cairo_reset_clip(cairo);
            cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
            cairo_paint(cairo);
            cairo_set_operator(cairo, CAIRO_OPERATOR_DEST_IN);
            cairo_set_source_rgba(cairo, 0, 0, 0, state_.alpha);
            cairo_paint(cairo);
            cairo_pop_group_to_source(cairo);
            cairo_paint(cairo);
        } else {
            cairo_paint_with_alpha(cairo, state_.alpha);
        }
    });
}

void Canvas::clip_to_mask(CGRect rect, cairo_surface_t* picture) {
    Surface mask(cairo_image_surface_create(CAIRO_FORMAT_A8, cairo_image_surface_get_width(bitmap_.surface()),
                                            cairo_image_surface_get_height(bitmap_.surface())));
    const ImagePlacement placement(picture, to_pixels(from_picture(picture, rect)), state_.quality);
    if (placement.is_visible()) {
        Cairo cairo(cairo_create(mask));
        cairo_set_source(cairo, placement.source());
        cairo_paint(cairo);
        if (state_.mask) {
            cairo_set_operator(cairo, CAIRO_OPERATOR_IN);
            cairo_set_source_surface(cairo, state_.mask, 0, 0);
            cairo_paint(cairo);
        }
    }
    clip(rect);
    state_.mask = mask;
}

void Canvas::paint(const LinearGradient& gradient) {
    const CGAffineTransform to_device = to_pixels(identity_transform);
    if (!GradientFill(gradient, to_device).is_visible()) return;
    composite([&](cairo_t* cairo) {
        if (paint_directly(cairo, gradient)) return;
        double left, top, right, bottom;
        cairo_clip_extents(cairo, &left, &top, &right, &bottom);
        const cairo_rectangle_int_t area{0, 0, static_cast<int>(right - left),
                                         static_cast<int>(bottom - top)};
        if (area.width <= 0 || area.height <= 0) return;
        const Surface picture(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, area.width, area.height));
        const GradientFill fill(gradient, sim::concat(to_device, translation(-left, -top)));
        if (fill.is_visible()) fill.draw(picture, area);
        cairo_surface_mark_dirty(picture);
        cairo_set_source_surface(cairo, picture, left, top);
        cairo_paint_with_alpha(cairo, state_.alpha);
    });
}

// The clip's rectangles of whole pixels, where nothing but the gradient decides what becomes of them.
bool Canvas::paint_directly(cairo_t* cairo, const LinearGradient& gradient) const {
    if (state_.alpha < 1 || state_.blend != kCGBlendModeNormal) return false;
    const std::unique_ptr<cairo_rectangle_list_t, decltype(&cairo_rectangle_list_destroy)> clip(
        cairo_copy_clip_rectangle_list(cairo), &cairo_rectangle_list_destroy);
    if (clip->status) return false;
    cairo_surface_t* target = cairo_get_group_target(cairo);
    double x, y;
    cairo_surface_get_device_offset(target, &x, &y);
    const GradientFill fill(gradient, sim::concat(to_pixels(identity_transform), translation(x, y)));
    for (int i = 0; i < clip->num_rectangles && fill.is_visible(); ++i) {
        const cairo_rectangle_t& rect = clip->rectangles[i];
        fill.draw(target, {static_cast<int>(rect.x + x), static_cast<int>(rect.y + y),
                           static_cast<int>(rect.width), static_cast<int>(rect.height)});
    }
    cairo_surface_mark_dirty(target);
    return true;
}

Excerpt Canvas::excerpt(CGRect rect) const {
    const CGRect box = bounding_box(to_pixels(identity_transform), rect);
    if (!sim::is_finite(box)) return {};
    if (!layers_) bitmap_.load();
    cairo_surface_t* target = cairo_get_group_target(cairo_);
    double x, y;  // a layer is as large as its clip, and lies where that does
    cairo_surface_get_device_offset(target, &x, &y);
    constexpr CGFloat whole = 1e-6;
    const CGFloat left = std::max(std::floor(box.origin.x + whole), -x);
    const CGFloat top = std::max(std::floor(box.origin.y + whole), -y);
    const CGFloat right =
        std::min(std::ceil(box.origin.x + box.size.width - whole), cairo_image_surface_get_width(target) - x);
    const CGFloat bottom = std::min(std::ceil(box.origin.y + box.size.height - whole),
                                    cairo_image_surface_get_height(target) - y);
    if (!(left < right && top < bottom)) return {};
    const Excerpt result{
        Surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(right - left),
                                           static_cast<int>(bottom - top))),
        static_cast<int>(left), static_cast<int>(top)};
    const Cairo copying(cairo_create(result.pixels));
    cairo_set_operator(copying, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(copying, target, -left, -top);
    cairo_paint(copying);
    return result;
}

void Canvas::put_back(const Excerpt& excerpt) {
    if (!excerpt.pixels) return;
    composite([&](cairo_t* cairo) {
        cairo_rectangle(cairo, excerpt.left, excerpt.top, cairo_image_surface_get_width(excerpt.pixels),
                        cairo_image_surface_get_height(excerpt.pixels));
        cairo_clip(cairo);
        cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(cairo, excerpt.pixels, excerpt.left, excerpt.top);
        cairo_paint_with_alpha(cairo, state_.alpha);
    });
}

void Canvas::with_cairo(const std::function<void(cairo_t*)>& draw) {
    const CGAffineTransform transform = to_pixels(identity_transform);
    if (!inverted(transform)) return;
    composite([&](cairo_t* cairo) {
        const cairo_matrix_t user = matrix(transform);
        cairo_set_matrix(cairo, &user);
        draw(cairo);
    });
}

// ---- Layers -------------------------------------------------------------------------------------

void Canvas::begin_layer() {
    frames_.push_back({Opened::layer, state_});
    cairo_save(cairo_);
    cairo_push_group(cairo_);
    ++layers_;
    state_.alpha = 1;
    state_.blend = kCGBlendModeNormal;
    state_.mask = {};
}

void Canvas::end_layer(const std::function<void(cairo_surface_t*)>& adjust) {
    if (!layers_) return;
    while (frames_.back().opened == Opened::state) close_frame();
    const Pattern layer(cairo_pop_group(cairo_));
    --layers_;
    close_frame();
    cairo_surface_t* surface = nullptr;
    cairo_pattern_get_surface(layer, &surface);
    if (adjust && surface && cairo_image_surface_get_format(surface) == CAIRO_FORMAT_ARGB32) adjust(surface);
    composite([&](cairo_t* cairo) {
        cairo_set_source(cairo, layer);
        cairo_paint_with_alpha(cairo, std::clamp(state_.alpha, 0.0, 1.0));
    });
}

}  // namespace sim
