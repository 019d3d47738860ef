// The keyboard's background: the themed view inside a system backdrop. Each body's row is in hook_table.cpp.
#pragma once
#include "platform/keyboard.h"

namespace hooks {

/// `activeBackgroundView`, added to UIKBBackdropView: the themed backdrop inside it, or nil.
id active_background_view(UIKBBackdropView* self);
void set_active_background_view(UIKBBackdropView* self, id view);

/// `removeKBBackdropEffects:`, added to UIKBInputBackdropView: takes the themed backdrop out of a piece.
void remove_backdrop_effects(UIKBInputBackdropView* self, id piece);

}  // namespace hooks
