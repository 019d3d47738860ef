#include "quartzcore/layer_geometry.h"

#include "coregraphics/transform.h"
#include "runtime/not_modelled.h"

namespace sim {

CGAffineTransform to_superlayer(CALayer* layer) {
    const CGRect bounds = layer->bounds();
    const CGPoint anchor = layer->anchorPoint(), position = layer->position();
    CGAffineTransform transform = translation(-bounds.origin.x - anchor.x * bounds.size.width,
                                              -bounds.origin.y - anchor.y * bounds.size.height);
    transform = concat(transform, layer->affineTransform());
    return concat(transform, translation(position.x, position.y));
}

CGAffineTransform between(CALayer* from, CALayer* to) {
    CGAffineTransform up = identity_transform, down = identity_transform;
    for (; from; from = from->superlayer()) up = concat(up, to_superlayer(from));
    for (; to; to = to->superlayer()) down = concat(down, to_superlayer(to));
    return concat(up, inverted(down).value_or(identity_transform));
}

CATransform3D to_3d(const CGAffineTransform& t) {
    CATransform3D transform = identity_transform_3d;
    transform.m11 = t.a, transform.m12 = t.b, transform.m21 = t.c, transform.m22 = t.d;
    transform.m41 = t.tx, transform.m42 = t.ty;
    return transform;
}

CGAffineTransform to_2d(const CATransform3D& t) {
    const CGAffineTransform flat{t.m11, t.m12, t.m21, t.m22, t.m41, t.m42};
    CATransform3D with_any_depth = to_3d(flat);
    with_any_depth.m33 = t.m33, with_any_depth.m43 = t.m43;  // a layer without depth looks the same
    if (t != with_any_depth) not_modelled("CALayer", "transform", "a transformation out of the plane");
    return flat;
}

}  // namespace sim
