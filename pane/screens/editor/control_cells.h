// The editor's rows that hold a control. Each is made once: a control that is dragged must not be exchanged.
#pragma once
#include "pane/screens/editor/direction_pad.h"
#include "platform/tables.h"

namespace pane {

class ControlCells {
  public:
    /// Actions that the target has: kindChosen:, directionChosen:, alphaChanged:, alphaSettled:,
    /// capsSwitched:.
    explicit ControlCells(id target);
    void show(HuecraftConfig* theme, NSUInteger background, NSUInteger arrow);
    /// What is behind a page shows through as much as the alpha says.
    void show_alpha(HuecraftConfig* theme);
    /// The image is another than before.
    void forget_image() { small_ = nullptr; }

    objc::strong<UITableViewCell> kind, direction, alpha, caps;
    objc::strong<UISegmentedControl> kinds;
    objc::strong<UISlider> slider;
    objc::strong<UISwitch> caps_switch;

    static constexpr CGFloat kind_height = 56, direction_height = DirectionPad::side + 24, alpha_height = 150;

  private:
    DirectionPad pad_;
    objc::strong<UIView> page_;
    objc::strong<UIImage> small_;
};

}  // namespace pane
