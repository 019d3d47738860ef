#include "coregraphics/CGPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "coregraphics/transform.h"
#include "objc/class.h"
#include "runtime/exported.h"

namespace {

using objc::strong;
using sim::PathElement;
using sim::PathElements;
using std::numbers::pi;

struct Path : objc::Implements<Path, CGPath> {
    struct Ivars {
        PathElements elements;
    };
};

PathElements& elements(CGPathRef path) {
    return static_cast<Path*>(const_cast<CGPath*>(path))->ivars().elements;
}

void append(CGPathRef path, const CGAffineTransform* transform, PathElements added) {
    if (!path) return;
    for (PathElement& element : added) {
        if (transform)
            for (CGPoint& point : element.points) point = sim::apply(*transform, point);
        elements(path).push_back(element);
    }
}

CGPathRef path_with(const PathElements& content, const CGAffineTransform* transform) {
    CGMutablePathRef path = CGPathCreateMutable();
    append(path, transform, content);
    return path;
}

// The distance of the control points that brings a curve nearest to a quarter of the unit circle.
constexpr CGFloat quarter_control = 0.5522847498307936;

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CGPath, NSObject, Path, ivar<"elements", &Path::Ivars::elements>)

namespace sim {

const PathElements& elements_of(CGPathRef path) {
    static const PathElements none;
    return path ? elements(path) : none;
}

void trace(cairo_t* cairo, const PathElements& path) {
    cairo_new_path(cairo);
    for (const PathElement& element : path) {
        const auto& [p1, p2, p3] = element.points;
        switch (element.kind) {
            case PathElement::move: cairo_move_to(cairo, p1.x, p1.y); break;
            case PathElement::line: cairo_line_to(cairo, p1.x, p1.y); break;
            case PathElement::curve: cairo_curve_to(cairo, p1.x, p1.y, p2.x, p2.y, p3.x, p3.y); break;
            case PathElement::close: cairo_close_path(cairo); break;
        }
    }
}

void append_rect(PathElements& path, CGRect rect) {
    const auto [origin, size] = standardized(rect);
    const CGFloat x2 = origin.x + size.width, y2 = origin.y + size.height;
    path.push_back({PathElement::move, {origin}});
    path.push_back({PathElement::line, {{x2, origin.y}}});
    path.push_back({PathElement::line, {{x2, y2}}});
    path.push_back({PathElement::line, {{origin.x, y2}}});
    path.push_back({PathElement::close, {}});
}

void append_rounded_rect(PathElements& path, CGRect rect, CGSize radii) {
    const auto [origin, size] = standardized(rect);
    if (!(radii.width > 0 && radii.height > 0)) return append_rect(path, rect);
    const CGFloat fit = std::min({1.0, size.width / 2 / radii.width, size.height / 2 / radii.height});
    const CGFloat rx = radii.width * fit, ry = radii.height * fit;
    const CGFloat x1 = origin.x, y1 = origin.y, x2 = x1 + size.width, y2 = y1 + size.height;
    const CGFloat kx = rx * (1 - quarter_control), ky = ry * (1 - quarter_control);
    path.push_back({PathElement::move, {{x1 + rx, y1}}});
    path.push_back({PathElement::line, {{x2 - rx, y1}}});
    path.push_back({PathElement::curve, {{x2 - kx, y1}, {x2, y1 + ky}, {x2, y1 + ry}}});
    path.push_back({PathElement::line, {{x2, y2 - ry}}});
    path.push_back({PathElement::curve, {{x2, y2 - ky}, {x2 - kx, y2}, {x2 - rx, y2}}});
    path.push_back({PathElement::line, {{x1 + rx, y2}}});
    path.push_back({PathElement::curve, {{x1 + kx, y2}, {x1, y2 - ky}, {x1, y2 - ry}}});
    path.push_back({PathElement::line, {{x1, y1 + ry}}});
    path.push_back({PathElement::curve, {{x1, y1 + ky}, {x1 + kx, y1}, {x1 + rx, y1}}});
    path.push_back({PathElement::close, {}});
}

void append_arc(PathElements& path, CGPoint centre, CGFloat radius, CGFloat start, CGFloat sweep) {
    if (!std::isfinite(start) || !std::isfinite(sweep)) return;
    auto at = [&](CGFloat angle) {
        return CGPoint{centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
    };
    path.push_back({path.empty() ? PathElement::move : PathElement::line, {at(start)}});
    const int quarters = static_cast<int>(std::ceil(std::abs(sweep) / (pi / 2) - 1e-9));
    for (int i = 0; i < quarters; ++i) {
        const CGFloat from = start + sweep * i / quarters, to = start + sweep * (i + 1) / quarters;
        const CGFloat control = 4.0 / 3 * std::tan((to - from) / 4);
        const CGPoint a = at(from), b = at(to);
        path.push_back({PathElement::curve,
                        {{a.x - control * (a.y - centre.y), a.y + control * (a.x - centre.x)},
                         {b.x + control * (b.y - centre.y), b.y - control * (b.x - centre.x)},
                         b}});
    }
}

CGFloat sweep_between(CGFloat start, CGFloat end, bool clockwise) {
    const CGFloat around = 2 * pi, sweep = end - start;
    if (std::abs(sweep) >= around) return clockwise ? -around : around;
    if (clockwise) return sweep > 0 ? sweep - around : sweep;
    return sweep < 0 ? sweep + around : sweep;
}

}  // namespace sim

SIM_EXPORTED CGMutablePathRef CGPathCreateMutable() { return CGPath::alloc(); }

SIM_EXPORTED CGPathRef CGPathCreateWithRect(CGRect rect, const CGAffineTransform* transform) {
    PathElements content;
    sim::append_rect(content, rect);
    return path_with(content, transform);
}

SIM_EXPORTED CGPathRef CGPathCreateWithRoundedRect(CGRect rect, CGFloat corner_width, CGFloat corner_height,
                                                   const CGAffineTransform* transform) {
    PathElements content;
    sim::append_rounded_rect(content, rect, {corner_width, corner_height});
    return path_with(content, transform);
}

SIM_EXPORTED CGPathRef CGPathCreateWithEllipseInRect(CGRect rect, const CGAffineTransform* transform) {
    PathElements content;
    sim::append_rounded_rect(content, rect, {std::abs(rect.size.width) / 2, std::abs(rect.size.height) / 2});
    return path_with(content, transform);
}

SIM_EXPORTED void CGPathMoveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x,
                                    CGFloat y) {
    append(path, transform, {{PathElement::move, {{x, y}}}});
}

SIM_EXPORTED void CGPathAddLineToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x,
                                       CGFloat y) {
    append(path, transform, {{PathElement::line, {{x, y}}}});
}

SIM_EXPORTED void CGPathAddCurveToPoint(CGMutablePathRef path, const CGAffineTransform* transform, CGFloat x1,
                                        CGFloat y1, CGFloat x2, CGFloat y2, CGFloat x, CGFloat y) {
    append(path, transform, {{PathElement::curve, {{x1, y1}, {x2, y2}, {x, y}}}});
}

SIM_EXPORTED void CGPathAddRect(CGMutablePathRef path, const CGAffineTransform* transform, CGRect rect) {
    PathElements content;
    sim::append_rect(content, rect);
    append(path, transform, content);
}

SIM_EXPORTED void CGPathAddPath(CGMutablePathRef path, const CGAffineTransform* transform, CGPathRef other) {
    append(path, transform, sim::elements_of(other));
}

SIM_EXPORTED void CGPathCloseSubpath(CGMutablePathRef path) {
    append(path, nullptr, {{PathElement::close, {}}});
}

SIM_EXPORTED CGRect CGPathGetBoundingBox(CGPathRef path) {
    CGPoint low = sim::null_rect.origin, high{-low.x, -low.y};
    for (const PathElement& element : sim::elements_of(path)) {
        const int points = element.kind == PathElement::curve   ? 3
                           : element.kind == PathElement::close ? 0
                                                                : 1;
        for (int i = 0; i < points; ++i) {
            const CGPoint point = element.points[i];
            low = {std::min(low.x, point.x), std::min(low.y, point.y)};
            high = {std::max(high.x, point.x), std::max(high.y, point.y)};
        }
    }
    if (low.x > high.x) return sim::null_rect;
    return {low, {high.x - low.x, high.y - low.y}};
}

SIM_EXPORTED bool CGPathIsEmpty(CGPathRef path) { return sim::elements_of(path).empty(); }

SIM_EXPORTED CGPathRef CGPathRetain(CGPathRef path) {
    objc_retain(const_cast<CGPath*>(path));
    return path;
}

SIM_EXPORTED void CGPathRelease(CGPathRef path) { objc_release(const_cast<CGPath*>(path)); }
