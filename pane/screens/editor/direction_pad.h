// Eight arrows on the gradient whose direction they choose.
#pragma once
#include "pane/huecraft.h"

namespace pane {

class DirectionPad {
  public:
    /// The action goes to the target with the arrow's button, whose tag is the direction.
    DirectionPad(id target, SEL action);
    void show(HuecraftConfig* theme, NSUInteger direction);

    static constexpr CGFloat side = 144;
    objc::strong<UIView> view;

  private:
    objc::strong<UIImageView> gradient_;
};

}  // namespace pane
