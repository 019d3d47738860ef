// Photographs on their way behind a keyboard: upright, of a size to work with, cropped, dimmed, blurred.
#pragma once
#include "pane/huecraft.h"

namespace pane {

/// What the library scales an image to, in pixels: at most 1242 by 798, which fills the largest keyboard.
CGSize keyboard_pixels();

/// Upright, with a pixel to a point, its longer side at most twice the keyboard's; nil for one without
/// pixels.
UIImage* workable(UIImage* photo);
/// The same of a file's photo, which is never decoded whole: memory holds what is left of it. nil for one
/// that cannot be read.
UIImage* workable(NSURL* file);

/// That part of an image with a pixel to a point, in `pixels`.
UIImage* cropped(UIImage* photo, CGRect part, CGSize pixels);

UIImage* dimmed(UIImage* photo);
/// As seen through frosted glass.
UIImage* blurred(UIImage* photo);

/// How much black lies over what is dimmed.
constexpr CGFloat dimming = 0.4;

}  // namespace pane
