// How the colour picker moves its panel.
#pragma once
#include "platform/application.h"

namespace settings {

/// Puts the panel so many points below its place, from where it springs up half a second later.
void spring_up(UIView* panel, CGFloat height);
/// Sideways, for a fifth of a second; the panel's place is not changed.
void shake(UIView* panel);

}  // namespace settings
