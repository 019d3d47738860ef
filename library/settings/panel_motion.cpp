#include "settings/panel_motion.h"

#include "objc/block.h"
#include "platform/animation.h"

namespace settings {

using namespace objc::literals;

namespace {

void move_down(UIView* panel, CGFloat points) {
    CGRect frame = panel->frame();
    frame.origin.y += points;
    panel->setFrame(frame);
}

}  // namespace

void spring_up(UIView* panel, CGFloat height) {
    move_down(panel, height);
    objc::Block rise([panel = objc::strong<UIView>(panel), height] { move_down(panel, -height); });
    objc::Block nothing([](bool) {});
    constexpr double seconds = 0.5, delay = 0.5, damping = 0.6, velocity = 0;
    UIView::animate(seconds, delay, damping, velocity, UIViewAnimationOptionCurveLinear, rise, nothing);
}

void shake(UIView* panel) {
    constexpr CGFloat way = 20;
    const auto [x, y] = panel->center();
    CABasicAnimation* animation = CABasicAnimation::animationWithKeyPath("position"_ns);
    animation->setDuration(0.05);
    animation->setRepeatCount(2);
    animation->setAutoreverses(true);
    animation->setFromValue(NSValue::valueWithCGPoint({x - way, y}));
    animation->setToValue(NSValue::valueWithCGPoint({x + way, y}));
    panel->layer()->addAnimation(animation, "position"_ns);
}

}  // namespace settings
