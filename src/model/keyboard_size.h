// The size of the system keyboard.
#pragma once
#include "platform/coregraphics.h"

/// Interface orientations, as the system numbers them.
constexpr NSInteger portrait_keyboard = 1, landscape_keyboard = 4;

/// Points. Zero where the system has no keyboard class to ask.
CGSize keyboard_size(NSInteger orientation);
