// The least that themes a backdrop view: what the theme says is read once, and the view that shows it is made
// and put in with what it is to show at last. There is no theme, no preference store and no hook table.
#pragma once
#include "platform/keyboard.h"

namespace bench {

/// Of the classes of the library's views, with "_UIBackdrop" before it.
constexpr const char* least_prefix = "Least";

/// Makes the two classes of the views that show a theme.
void make_least_classes();

/// Gives the backdrop what the theme's values ask for.
void theme_with_the_least(UIKBBackdropView* backdrop, NSDictionary* theme);

/// What it was given.
[[gnu::visibility("default")]] UIView* shown_by_the_least(UIKBBackdropView* backdrop);

}  // namespace bench
