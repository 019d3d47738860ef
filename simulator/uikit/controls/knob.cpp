#include "uikit/controls/knob.h"

namespace sim {

objc::strong<UIView> add_rounded_part(UIView* control, CGRect frame, CGFloat corner_radius) {
    auto part = UIView::alloc()->initWithFrame(frame);
    part->setUserInteractionEnabled(false);
    part->layer()->setCornerRadius(corner_radius);
    control->addSubview(part);
    return part;
}

objc::strong<UIView> add_knob(UIView* control, CGRect frame, CGFloat size, float shadow_opacity) {
    auto knob = add_rounded_part(control, frame, size / 2);
    CALayer* layer = knob->layer();
    layer->setShadowOffset({0, 3});
    layer->setShadowRadius(3);
    layer->setShadowOpacity(shadow_opacity);
    return knob;
}

}  // namespace sim
