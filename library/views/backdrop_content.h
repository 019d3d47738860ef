// What the content views of the three backdrops have in common.
#pragma once
#include "platform/uikit.h"

/// Makes the view follow the backdrop's size, rasterise at the screen's scale, and opaque.
void set_up_content_view(UIView* content);

/// Puts the view in front of everything that the backdrop itself made.
void put_in_front(UIView* backdrop, UIView* content);

/// Switches the layer's implicit animations off, so that a keyboard's background never animates.
void switch_off_animations(CALayer* layer);
