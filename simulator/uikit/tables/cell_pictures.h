// The little pictures of table cells.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// An arrow that leads on, to the left where text runs to the left.
UIImage* disclosure_picture(bool leftwards);
/// A template.
UIImage* checkmark_picture();
/// An "i" in a ring; a template.
UIImage* detail_picture();
/// A red disc with a minus, or a green one with a plus.
UIImage* edit_picture(bool inserts);
UIImage* grip_picture();

}  // namespace sim
