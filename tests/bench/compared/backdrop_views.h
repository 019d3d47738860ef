// Building a backdrop view: themed by the library, as the system has it, with the theme's operations of the
// system carried out by hand, and with the least that comes to the same view. In a library of its own, from
// which sends take as long as from the one that is measured: a processor takes longer to jump from a program
// into a library than between libraries.
#pragma once
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace bench {

/// How many sends' worth of time the library may take for itself.
constexpr size_t sends_allowed = 25;

/// What a theme puts into the view.
enum class Background { flat, gradient };

#pragma GCC visibility push(default)

/// Called while nothing is hooked yet.
void know_system();
/// The theme's values, as the theme keeps them.
void know_theme(Background, NSMutableDictionary* theme);
/// The sends that the library makes beyond the system's operations.
void know_sends(size_t);

objc::strong<UIKBBackdropView> themed_view();
objc::strong<UIKBBackdropView> unthemed_view();
/// Unthemed, and then what the library asks of the system to theme it, asked for here, as often and in the
/// same order: reading the theme's values, making the colours and the view that is put in. The library's own
/// methods are left out.
objc::strong<UIKBBackdropView> view_themed_by_hand();
/// Unthemed, and then the least that themes it.
objc::strong<UIKBBackdropView> view_themed_with_the_least();
/// By hand and `sends_allowed` sends, each to another method that does nothing.
objc::strong<UIKBBackdropView> view_themed_by_hand_with_sends();
/// By hand with what the library cannot do without for itself: a class that keeps what it shows, as many
/// sends, and the digits of the theme's colours.
objc::strong<UIKBBackdropView> view_themed_by_hand_with_what_must_be();

// A hundred of each, one after the other.
void build_themed_views();
void build_unthemed_views();
void build_views_by_hand();
void build_views_with_the_least();
void build_views_by_hand_and_send();
void build_views_by_hand_with_what_must_be();

#pragma GCC visibility pop

}  // namespace bench
