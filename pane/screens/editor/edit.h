// Opens the editor.
#pragma once
#include "platform/navigation.h"

namespace pane {

/// Presents the editor of a theme file over the page. One that comes along is edited as a copy; one that
/// holds no theme is not edited, and the page says why. The page appears anew when the editor has gone.
void edit_theme(UIViewController* page, NSString* folder, NSString* file);

}  // namespace pane
