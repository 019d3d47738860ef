// The size of the system keyboard.
#pragma once
#include "platform/coregraphics.h"

/// Points, in portrait. Zero where the system has no keyboard class to ask.
CGSize keyboard_portrait_size();
