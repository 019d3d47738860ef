#include "keyboard/rendering/key_painter.h"

#include "keyboard/make.h"

namespace sim {
namespace {

/// Whether a colour leaves a trace.
bool paints(CGColorRef color) { return color && CGColorGetAlpha(color) > 0; }

void fill(CGContextRef context, CGPathRef cap, CGColorRef color) {
    if (!paints(color)) return;
    CGContextSetFillColorWithColor(context, color);
    CGContextAddPath(context, cap);
    CGContextFillPath(context);
}

/// From the cap's top to its bottom.
void fill(CGContextRef context, CGPathRef cap, CGGradientRef gradient) {
    if (!gradient) return;
    const CGRect box = CGPathGetBoundingBox(cap);
    CGContextSaveGState(context);
    CGContextAddPath(context, cap);
    CGContextClip(context);
    CGContextDrawLinearGradient(context, gradient, box.origin, {box.origin.x, box.origin.y + box.size.height},
                                0);
    CGContextRestoreGState(context);
}

void fill(CGContextRef context, CGPathRef cap, UIKBGradient* gradient) {
    if (!gradient) return;
    if (NSString* color = gradient->flatColorName())
        fill(context, cap, UIKBGetNamedColor(color));
    else
        fill(context, cap, gradient->CGGradient());
}

/// A line is what shows of the cap's shape when it is moved by the line's width and put behind the cap, whose
/// own area stays free: a cap may be translucent.
void paint_edges(CGContextRef context, const Path& cap, UIKBEdgeEffect* effect) {
    CGColorRef color = effect ? effect->CGColor() : nullptr;
    const NSUInteger edges = effect ? effect->edges() : 0;
    const CGFloat weight = effect ? effect->weight() : 0;
    if (!paints(color) || edges == 0 || weight <= 0) return;

    CGContextSaveGState(context);
    CGContextAddRect(context, CGContextGetClipBoundingBox(context));
    CGContextAddPath(context, cap);
    CGContextEOClip(context);
    CGContextSetFillColorWithColor(context, color);
    const Path shape = cap.inset(effect->insets());
    static constexpr struct {
        NSUInteger edge;
        CGFloat x, y;
    } directions[] = {{1, 0, -1}, {2, -1, 0}, {4, 0, 1}, {8, 1, 0}};
    for (const auto& direction : directions) {
        if (!(edges & direction.edge)) continue;
        CGContextSaveGState(context);
        CGContextTranslateCTM(context, direction.x * weight, direction.y * weight);
        CGContextAddPath(context, shape);
        CGContextFillPath(context);
        CGContextRestoreGState(context);
    }
    CGContextRestoreGState(context);
}

}  // namespace

void paint_cap(CGContextRef context, const Path& cap, const KeyTraits& traits) {
    paint_edges(context, cap, traits.edge);
    fill(context, cap, traits.fill);
    fill(context, cap, traits.wash);
}

void apply_shadow(CALayer* layer, const Path& shape, UIKBShadowEffect* effect) {
    CGColorRef color = effect ? effect->CGColor() : nullptr;
    const bool casts = paints(color) && effect->weight() > 0;
    layer->setShadowOpacity(casts ? 1.0f : 0.0f);
    if (!casts) return;
    layer->setShadowColor(color);
    layer->setShadowOffset(effect->offset());
    layer->setShadowRadius(effect->weight());
    layer->setShadowPath(shape.inset(effect->insets()));
}

UIFont* font_of(UIKBTextStyle* style) {
    NSString* name = style->fontName();
    return name ? UIFont::fontWithName(name, style->fontSize()) : UIFont::systemFontOfSize(style->fontSize());
}

objc::strong<UILabel> make_label(UIKBTextStyle* style, NSString* text) {
    auto label = make_view<UILabel>();
    label->setText(text);
    label->setFont(font_of(style));
    label->setTextColor(color_named(style->textColor()));
    label->setTextAlignment(NSTextAlignmentCenter);
    return label;
}

}  // namespace sim
