#include "quartzcore/animation/running_animations.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>

#include "quartzcore/CALayer.h"
#include "quartzcore/animation/clock.h"
#include "runtime/block.h"

namespace sim {
namespace {

using objc::strong;

/// A delegate and a completion block to call when the clock advances.
struct News {
    strong<CAAnimation> animation;
    strong<NSObject> completion;
    bool finished = false;
};

/// In the order in which they were added.
std::vector<AnimationPlan>& under_way() {
    static auto* plans = new std::vector<AnimationPlan>;
    return *plans;
}

std::deque<News>& news() {
    static auto* waiting = new std::deque<News>;
    return *waiting;
}

double value_part(const AnimationPlan& plan, double now) {
    if (now <= plan.begin) return plan.timing(0);
    double ways = plan.duration > 0 ? (now - plan.begin) / plan.duration : HUGE_VAL;
    const double all_ways = plan.repeat_count * (plan.autoreverses ? 2 : 1);
    if (ways >= all_ways) ways = all_ways;
    double part = std::fmod(ways, 1);
    // The end of a way, and not the beginning of the next.
    const bool is_over = part == 0 && ways > 0 && ways == all_ways;
    if (is_over) part = 1;
    const bool goes_back = plan.autoreverses && std::fmod(std::floor(ways) - (is_over ? 1 : 0), 2) == 1;
    return plan.timing(goes_back ? 1 - part : part);
}

PropertyValue value_now(const AnimationPlan& plan) {
    return between(plan.from, plan.to, value_part(plan, clock_now()));
}

void tell_of_end(const AnimationPlan& plan, bool finished) {
    if (plan.animation->delegate()) news().push_back({plan.animation, nullptr, finished});
    if (!plan.group) return;
    --plan.group->under_way;
    plan.group->all_finished = plan.group->all_finished && finished;
    close(plan.group);
}

void notify(const News& end) {
    if (end.animation) {
        auto* delegate = static_cast<NSObject*>(end.animation->delegate());
        if (delegate->respondsToSelector(objc::selector<"animationDidStop:finished:">()))
            delegate->send<"animationDidStop:finished:">(end.animation.get(), end.finished);
    }
    call_block(end.completion, end.finished);
}

}  // namespace

void close(const std::shared_ptr<AnimationGroup>& group) {
    if (!group->under_way && group->completion)
        news().push_back({nullptr, std::move(group->completion), group->all_finished});
}

void run(AnimationPlan plan) {
    stop_animations(plan.layer, &plan.key);
    if (plan.group) ++plan.group->under_way;
    auto* delegate = static_cast<NSObject*>(plan.animation->delegate());
    const strong<CAAnimation> animation = plan.animation;
    under_way().push_back(std::move(plan));
    if (delegate->respondsToSelector(objc::selector<"animationDidStart:">()))
        delegate->send<"animationDidStart:">(animation.get());
}

void stop_animations(CALayer* layer, const std::string* key) {
    auto& plans = under_way();
    for (size_t i = 0; i < plans.size();)
        if (plans[i].layer == layer && (!key || plans[i].key == *key)) {
            const AnimationPlan stopped = std::move(plans[i]);
            plans.erase(plans.begin() + static_cast<ptrdiff_t>(i));
            if (!stopped.has_ended) tell_of_end(stopped, false);
        } else {
            ++i;
        }
}

std::vector<const AnimationPlan*> animations_of(CALayer* layer) {
    std::vector<const AnimationPlan*> found;
    for (const AnimationPlan& plan : under_way())
        if (plan.layer == layer) found.push_back(&plan);
    return found;
}

PropertyValue shown_value(CALayer* layer, LayerProperty property) {
    const auto animations = animations_of(layer);
    for (auto plan = animations.rbegin(); plan != animations.rend(); ++plan)
        if ((*plan)->property == property) return value_now(**plan);
    return value_of(layer, property);
}

AnimatedValues::AnimatedValues() {
    for (const AnimationPlan& plan : under_way()) {
        kept_.push_back({plan.layer, plan.property, value_of(plan.layer, plan.property)});
        put_value(plan.layer, plan.property, value_now(plan));
    }
}

AnimatedValues::~AnimatedValues() {
    for (auto kept = kept_.rbegin(); kept != kept_.rend(); ++kept)
        put_value(kept->layer, kept->property, kept->value);
}

double next_ending() {
    if (!news().empty()) return clock_now();
    double next = std::numeric_limits<double>::infinity();
    for (const AnimationPlan& plan : under_way())
        if (!plan.has_ended) next = std::min(next, plan.end());
    return next;
}

bool end_one() {
    if (!news().empty()) {
        const News first = std::move(news().front());
        news().pop_front();
        notify(first);
        return true;
    }
    auto& plans = under_way();
    auto ending = plans.end();
    for (auto plan = plans.begin(); plan != plans.end(); ++plan)
        if (plan->end() <= clock_now() && !plan->has_ended &&
            (ending == plans.end() || plan->end() < ending->end()))
            ending = plan;
    if (ending == plans.end()) return false;
    const AnimationPlan ended = *ending;
    if (ended.stays)
        ending->has_ended = true;
    else
        plans.erase(ending);
    tell_of_end(ended, true);
    return true;
}

}  // namespace sim
