// How the colour picker moves its panel.
#pragma once
#include "platform/application.h"

namespace settings {

/// Moves the panel `height` points down; half a second later it springs back.
void spring_up(UIView* panel, CGFloat height);
/// Sideways, for a fifth of a second; the panel's place is not changed.
void shake(UIView* panel);

}  // namespace settings
