// The screen: the window that is on it.
#pragma once
#include "platform/application.h"

namespace sim {

/// nil until something is shown.
UIWindow* screen_window();

/// Puts a new window on the screen, as large as the page, whose root controller has the page for its view.
/// What was there is gone: all it hears is that its views leave their window.
void show_on_screen(UIView* page);

/// The same with a controller of the caller's, which fills the screen.
void show_controller(UIViewController*);

/// Lays out what is on the screen, as the device does before it shows anything.
void lay_out_screen();

/// The controller that was presented last and is still there; nil when none is.
UIViewController* presented_on_screen();

}  // namespace sim
