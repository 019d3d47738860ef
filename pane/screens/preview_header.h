// The library's preview, large, as wide as the page has room for it.
#pragma once
#include "pane/huecraft.h"

namespace pane {

/// As high as a preview in that width, with a margin.
CGFloat preview_height(CGFloat width);
/// Takes out what the view shows, and shows the theme as large as it has room; nil shows nothing.
void show_preview(HuecraftConfig* theme, UIView* in);

}  // namespace pane
