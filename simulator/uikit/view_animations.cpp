// Views: animating what a block changes.
#include <cmath>
#include <string>

#include "quartzcore/animation/CAMediaTimingFunction.h"
#include "quartzcore/animation/clock.h"
#include "quartzcore/animation/noted_changes.h"
#include "quartzcore/animation/running_animations.h"
#include "runtime/block.h"
#include "runtime/not_modelled.h"
#include "uikit/UIView.h"

namespace sim {
namespace {

bool& are_enabled() {
    static bool enabled = true;
    return enabled;
}

Timing curve_of(UIViewAnimationOptions options) {
    switch (options >> 16 & 0xf) {
        case 0: return timing_named("easeInEaseOut");
        case 1: return timing_named("easeIn");
        case 2: return timing_named("easeOut");
        case 3: return timing_named("linear");
        default: not_modelled("UIView", "animateWithDuration:…", "a curve above linear (3)");
    }
}

void check(UIViewAnimationOptions options) {
    // Layout with the changes, touches meanwhile and beginning from what is shown are as they are anyway.
    constexpr UIViewAnimationOptions without_effect = 1 << 0 | 1 << 1 | 1 << 2;
    constexpr UIViewAnimationOptions known =
        without_effect | UIViewAnimationOptionRepeat | UIViewAnimationOptionAutoreverse | 0xful << 16;
    if (options & ~known)
        not_modelled("UIView", "animateWithDuration:…", "the options " + std::to_string(options & ~known));
}

void begin_animations(double duration, double delay, const Timing& timing, UIViewAnimationOptions options,
                      id animations, id completion) {
    check(options);
    std::vector<NotedChange> changes;
    {
        const ChangeNotes notes(are_enabled() && duration > 0 ? &changes : nullptr);
        call_block(animations);
    }
    const auto group = std::make_shared<AnimationGroup>();
    group->completion = kept_block(completion);
    for (const NotedChange& change : changes) {
        const PropertyValue to = value_of(change.layer, change.property);
        if (to == change.shown) continue;
        AnimationPlan plan;
        plan.layer = change.layer;
        plan.key = name_of(change.property)->UTF8String();
        plan.property = change.property;
        plan.from = change.shown;
        plan.to = to;
        plan.begin = clock_now() + std::max(0.0, delay);
        plan.duration = duration;
        plan.timing = timing;
        plan.autoreverses = options & UIViewAnimationOptionAutoreverse;
        plan.repeat_count = options & UIViewAnimationOptionRepeat ? HUGE_VAL : 1;
        plan.animation = CABasicAnimation::animationWithKeyPath(name_of(change.property));
        plan.group = group;
        run(std::move(plan));
    }
    close(group);
}

}  // namespace

void View::animateWithCurve(Class, double duration, double delay, UIViewAnimationOptions options,
                            id animations, id completion) {
    begin_animations(duration, delay, curve_of(options), options, animations, completion);
}

void View::animateWithSpring(Class, double duration, double delay, CGFloat damping, CGFloat velocity,
                             UIViewAnimationOptions options, id animations, id completion) {
    begin_animations(duration, delay, spring_timing(damping, velocity * duration), options, animations,
                     completion);
}

void View::animateWithCompletion(Class, double duration, id animations, id completion) {
    begin_animations(duration, 0, curve_of(0), 0, animations, completion);
}

void View::animateBriefly(Class, double duration, id animations) {
    begin_animations(duration, 0, curve_of(0), 0, animations, nullptr);
}

void View::performWithoutAnimation(Class, id changes) {
    const ChangeNotes none(nullptr);
    call_block(changes);
}

void View::setAnimationsEnabled(Class, bool enabled) { are_enabled() = enabled; }
bool View::areAnimationsEnabled(Class) { return are_enabled(); }

}  // namespace sim
