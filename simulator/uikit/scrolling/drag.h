// A finger that drags a scroll view.
#pragma once
#include "platform/scrolling.h"

namespace sim {

class Drag {
  public:
    /// Whether the finger has gone far enough in a direction in which the scroll view around what it touched
    /// can scroll, and may take the touch from that.
    bool wants_to_begin(UITouch*);
    /// Afterwards the scroll view follows the finger.
    void begin(UITouch*);
    void go_on(UITouch*);
    void end();

  private:
    CGPoint landing_{}, offset_{};
    bool has_landed_ = false;
    objc::strong<UIScrollView> scrolled_;
};

}  // namespace sim
