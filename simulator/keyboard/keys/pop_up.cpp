#include "keyboard/keys/pop_up.h"

#include <algorithm>

#include "keyboard/make.h"
#include "keyboard/planes/key_kind.h"
#include "keyboard/rendering/key_painter.h"

namespace sim {
namespace {

using objc::strong;

constexpr CGFloat head_height = 54, neck_height = 12, overhang = 11, head_radius = 9, margin = 3,
                  field_inset = 5;

/// Head, neck and the key's own cap, in the pop-up's coordinates: the head is as wide as the view.
Path outline(CGSize size, CGRect cap, CGFloat cap_radius) {
    constexpr CGFloat bend = 0.5523;  // of a quarter circle as a curve
    const CGFloat right = size.width, cap_left = cap.origin.x, cap_right = cap_left + cap.size.width;
    const CGFloat head_bottom = head_height - head_radius, bottom = size.height;
    const CGFloat neck_end = head_height + neck_height;
    CGMutablePathRef path = CGPathCreateMutable();
    auto line = [&](CGFloat x, CGFloat y) { CGPathAddLineToPoint(path, nullptr, x, y); };
    auto corner = [&](CGPoint from, CGPoint corner_point, CGPoint to) {
        CGPathAddCurveToPoint(path, nullptr, from.x + (corner_point.x - from.x) * bend,
                              from.y + (corner_point.y - from.y) * bend,
                              to.x + (corner_point.x - to.x) * bend, to.y + (corner_point.y - to.y) * bend,
                              to.x, to.y);
    };
    auto neck = [&](CGPoint from, CGPoint to) {
        const CGFloat middle = (from.y + to.y) / 2;
        CGPathAddCurveToPoint(path, nullptr, from.x, middle, to.x, middle, to.x, to.y);
    };
    CGPathMoveToPoint(path, nullptr, head_radius, 0);
    line(right - head_radius, 0);
    corner({right - head_radius, 0}, {right, 0}, {right, head_radius});
    line(right, head_bottom);
    neck({right, head_bottom}, {cap_right, neck_end});
    line(cap_right, bottom - cap_radius);
    corner({cap_right, bottom - cap_radius}, {cap_right, bottom}, {cap_right - cap_radius, bottom});
    line(cap_left + cap_radius, bottom);
    corner({cap_left + cap_radius, bottom}, {cap_left, bottom}, {cap_left, bottom - cap_radius});
    line(cap_left, neck_end);
    neck({cap_left, neck_end}, {0, head_bottom});
    line(0, head_radius);
    corner({0, head_radius}, {0, 0}, {head_radius, 0});
    CGPathCloseSubpath(path);
    return Path(path);
}

/// The view of a key that draws nothing by itself.
strong<UIKBKeyView> bare_key_view(CGRect frame, UIKBRenderFactory* factory) {
    auto key = UIKBTree::alloc()->initWithType(static_cast<int>(TreeType::key));
    key->setDisplayType(static_cast<int>(KeyKind::bare));
    auto view = UIKBKeyView::alloc()->initWithFrame(frame, nullptr, key);
    view->setFactory(factory);
    return view;
}

}  // namespace

strong<UIView> make_pop_up(UIKBTree* key, CGRect key_frame, CGFloat width, UIKBRenderFactory* factory) {
    const PopUpTraits traits = pop_up_traits(factory);
    const CGSize size{key_frame.size.width + 2 * overhang, key_frame.size.height + neck_height + head_height};
    const CGFloat left =
        std::clamp(key_frame.origin.x - overhang, margin, std::max(margin, width - margin - size.width));
    const CGPoint origin{left, key_frame.origin.y + key_frame.size.height - size.height};
    const CGRect cap{{key_frame.origin.x - left, size.height - key_frame.size.height}, key_frame.size};
    const Path shape = outline(size, cap, traits.body.corner_radius);

    auto pop_up = bare_key_view({origin, size}, factory);
    apply_shadow(pop_up->layer(), shape, traits.body.shadow);
    pop_up->layer()->addSublayer(
        drawn_layer(size, [&](CGContextRef context) { paint_cap(context, shape, traits.body); }));

    const CGRect field{{field_inset, field_inset},
                       {size.width - 2 * field_inset, head_height - 2 * field_inset}};
    pop_up->layer()->addSublayer(drawn_layer(size, [&](CGContextRef context) {
        paint_cap(context, Path::rounded(field, traits.field.corner_radius), traits.field);
    }));
    strong<UILabel> character = make_label(traits.field.text, key->displayString());
    character->setFrame(field);
    pop_up->addSubview(character);
    return strong<UIView>(pop_up.get());
}

}  // namespace sim
