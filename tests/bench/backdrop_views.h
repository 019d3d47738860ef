// Building a backdrop view: themed by the library, as the system has it, and with the theme's operations of
// the system carried out by hand. In a library of its own, from which sends take as long as from the one that
// is measured: a processor takes longer to jump from a program into a library than between libraries.
#pragma once
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace bench {

/// What a theme puts into the view.
enum class Background { flat, gradient };

#pragma GCC visibility push(default)

/// Called while nothing is hooked yet.
void know_system();
/// The theme's values, as the theme keeps them.
void know_theme(Background, NSMutableDictionary* values);

objc::strong<UIKBBackdropView> themed_view();
objc::strong<UIKBBackdropView> unthemed_view();
/// Unthemed, and then what the library asks of the system to theme it, asked for here, as often and in the
/// same order: reading the theme's values, making the colours and the view that is put in. The library's own
/// methods are left out.
objc::strong<UIKBBackdropView> view_themed_by_hand();

// A hundred of each, one after the other.
void build_themed_views();
void build_unthemed_views();
void build_views_by_hand();
/// Sends something that does nothing, ten thousand times.
void send_often();

#pragma GCC visibility pop

}  // namespace bench
