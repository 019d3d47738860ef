// Starting the home screen again, asked for first.
#pragma once
#include "platform/application.h"

namespace pane {

/// Where it cannot be done from here, it says how to do it by hand.
void ask_for_restart(UIViewController* page, NSString* why);

}  // namespace pane
