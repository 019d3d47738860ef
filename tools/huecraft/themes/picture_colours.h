// Colours for labels and highlights that belong to a picture.
#pragma once
#include "photos/picture.h"
#include "themes/backdrop.h"

namespace command {

/// From the groups of its colours in OKLab: the most colourful for highlights, and of the others the one that
/// is the furthest in lightness from the picture's mean for labels. Whether they can be told apart is not
/// looked at.
Pair colours_of_picture(const Picture& picture);

}  // namespace command
