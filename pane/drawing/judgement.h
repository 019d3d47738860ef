// Whether a theme's labels and highlights stand out from what is behind them: huecraft lint's judgement, of
// a background that the pane draws itself.
#pragma once
#include <optional>

#include "pane/huecraft.h"
#include "readability/legibility.h"

namespace pane {

readability::Behind behind(HuecraftConfig* theme);
readability::Pair pair_of(HuecraftConfig* theme);

/// Below these a theme is asked about before it is chosen.
bool is_readable(const readability::Legibility& legibility);

readability::Colour colour_of(UIColor* color);
UIColor* ui_color(const readability::Colour& colour);

}  // namespace pane
