// The animations that are under way, on the phone's clock.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "platform/animation.h"
#include "quartzcore/animation/layer_property.h"
#include "quartzcore/animation/timing.h"

namespace sim {

/// Animations that end together, and the completion block, which gets whether all of them finished.
struct AnimationGroup {
    objc::strong<NSObject> completion;
    size_t under_way = 0;
    bool all_finished = true;
};

struct AnimationPlan {
    /// Not owned: the layer takes its animations along when it goes.
    CALayer* layer = nullptr;
    std::string key;
    LayerProperty property{};
    PropertyValue from{}, to{};
    /// Until then the first value is shown.
    double begin = 0;
    /// Of one way.
    double duration = 0;
    Timing timing;
    /// May be infinite.
    double repeat_count = 1;
    bool autoreverses = false;
    /// The last value stays on show after the end, until the animation is removed.
    bool stays = false;
    bool has_ended = false;
    objc::strong<CAAnimation> animation;
    std::shared_ptr<AnimationGroup> group;

    double end() const { return begin + duration * (autoreverses ? 2 : 1) * repeat_count; }
};

/// Takes the place of the layer's animation of the same key.
void run(AnimationPlan plan);
/// Ends before their time those of the layer with that key; without a key all.
void stop_animations(CALayer* layer, const std::string* key);
/// Calls the group's block when the clock advances, if nothing is under way.
void close(const std::shared_ptr<AnimationGroup>& group);

std::vector<const AnimationPlan*> animations_of(CALayer* layer);
/// What is shown now: the layer's value, or that of the animation that was added last.
PropertyValue shown_value(CALayer* layer, LayerProperty property);

/// While this exists the layers that are animated have the values that are shown.
class AnimatedValues {
  public:
    AnimatedValues();
    AnimatedValues(const AnimatedValues&) = delete;
    ~AnimatedValues();

  private:
    struct Kept {
        CALayer* layer;
        LayerProperty property;
        PropertyValue value;
    };
    std::vector<Kept> kept_;
};

/// When the next animation ends, or a completion is due; infinity when nothing is to come.
double next_ending();
/// Ends one animation that is due, or notifies one that waits for an end; false when there is none.
bool end_one();

}  // namespace sim
