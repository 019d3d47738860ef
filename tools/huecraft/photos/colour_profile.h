// The colours of photos, which are often of a wider space than the keyboard's.
#pragma once
#include "photos/decoding.h"

namespace command {

/// Converts the picture to sRGB, from its profile or from plain inks. Answers the profile's name; empty when
/// there was nothing to convert.
std::string convert_to_srgb(Decoded& decoded);

}  // namespace command
