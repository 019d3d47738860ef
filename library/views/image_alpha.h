// Alphas that are baked into images, instead of being applied whenever the image is shown.
#pragma once
#include "platform/uikit.h"

/// The image drawn once at the alpha, at the screen's scale.
UIImage* image_with_alpha(UIImage* image, CGFloat alpha);
