// Layers: their animations.
#include <cmath>
#include <string>

#include "quartzcore/CALayer.h"
#include "quartzcore/animation/CAMediaTimingFunction.h"
#include "quartzcore/animation/clock.h"
#include "quartzcore/animation/running_animations.h"
#include "runtime/not_modelled.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

void Layer::addAnimation(CAAnimation* animation, NSString* key) {
    constexpr double usual_duration = 0.25;
    auto* basic = as<CABasicAnimation>(animation);
    if (!basic)
        not_modelled("CALayer", "addAnimation:forKey:", "an animation that is not a CABasicAnimation");
    const auto property = property_named(basic->keyPath());
    if (!property)
        not_modelled("CABasicAnimation", "keyPath",
                     basic->keyPath() ? basic->keyPath()->UTF8String() : "nil");
    static unsigned long unnamed = 0;
    AnimationPlan plan;
    plan.layer = this;
    plan.key = key ? key->UTF8String() : "(unnamed " + std::to_string(++unnamed) + ")";
    plan.property = *property;
    id const from = basic->fromValue(), to = basic->toValue();
    plan.from = from ? unwrapped(from, *property) : shown_value(this, *property);
    plan.to = to ? unwrapped(to, *property) : value_of(this, *property);
    plan.begin = clock_now();
    plan.duration = basic->duration() > 0 ? basic->duration() : usual_duration;
    plan.timing = timing_of(basic->timingFunction());
    plan.repeat_count = basic->repeatCount() > 0 ? static_cast<double>(basic->repeatCount()) : 1;
    plan.autoreverses = basic->autoreverses();
    NSString* const fill = basic->fillMode();
    plan.stays = !basic->isRemovedOnCompletion() &&
                 (fill->isEqualToString("forwards"_ns) || fill->isEqualToString("both"_ns));
    plan.animation = basic;
    run(std::move(plan));
}

CAAnimation* Layer::animationForKey(NSString* key) {
    if (!key) return nullptr;
    for (const AnimationPlan* plan : animations_of(this))
        if (plan->key == key->UTF8String()) return plan->animation;
    return nullptr;
}

NSArray* Layer::animationKeys() {
    const auto plans = animations_of(this);
    if (plans.empty()) return nullptr;
    NSMutableArray* keys = NSMutableArray::arrayWithCapacity(plans.size());
    for (const AnimationPlan* plan : plans)
        keys->addObject(NSString::stringWithUTF8String(plan->key.c_str()));
    return keys;
}

void Layer::removeAnimationForKey(NSString* key) {
    if (!key) return;
    const std::string name = key->UTF8String();
    stop_animations(this, &name);
}

void Layer::removeAllAnimations() { stop_animations(this, nullptr); }

CALayer* Layer::presentationLayer() {
    auto* self = this->self();
    auto shown =
        strong<CALayer>::adopt(objc::send<"new", CALayer*>(reinterpret_cast<id>(object_getClass(this))));
    shown->setAnchorPoint(self->anchorPoint());
    for (auto property :
         {LayerProperty::bounds, LayerProperty::position, LayerProperty::opacity, LayerProperty::transform})
        put_value(shown, property, shown_value(this, property));
    shown->setHidden(self->isHidden());
    shown->setBackgroundColor(self->backgroundColor());
    shown->setCornerRadius(self->cornerRadius());
    return std::move(shown).autoreleased();
}

}  // namespace sim
