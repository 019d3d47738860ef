// Changes of layers that are noted, to be animated afterwards.
#pragma once
#include <vector>

#include "quartzcore/animation/layer_property.h"

namespace sim {

/// A property of a layer that was changed, and what was shown before.
struct NotedChange {
    objc::strong<CALayer> layer;
    LayerProperty property;
    PropertyValue shown;
};

/// While this exists, the innermost one, changes are noted; without a list they are not.
class ChangeNotes {
  public:
    explicit ChangeNotes(std::vector<NotedChange>* list);
    ChangeNotes(const ChangeNotes&) = delete;
    ~ChangeNotes();

  private:
    std::vector<NotedChange>* outer_;
};

/// The property is about to be changed. Only layers with a delegate, those of views, are animated.
void note_change(CALayer*, LayerProperty);

}  // namespace sim
