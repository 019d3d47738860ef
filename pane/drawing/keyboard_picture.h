// Keyboards in a theme, small: for rows of a list. The library has one preview, which the page itself shows.
#pragma once
#include "pane/huecraft.h"

namespace pane {

/// Fills the rectangle of the current context with the theme's background, as it lies over a plain keyboard.
void draw_background(HuecraftConfig* theme, CGRect rect);

/// Draws one keyboard after another in one size.
class KeyboardPainter {
  public:
    explicit KeyboardPainter(CGSize size);
    UIImage* picture_of(HuecraftConfig* theme) const;

  private:
    CGSize size_;
    objc::strong<UIImage> plain_, labels_, highlights_, caps_;
};

}  // namespace pane
