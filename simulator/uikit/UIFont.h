// Fonts: what text is laid out with.
#pragma once
#include "coregraphics/typefaces.h"
#include "platform/uikit.h"

namespace sim {

/// The typeface of a font that is not nil.
const Typeface& typeface_of(UIFont*);

/// The font in Pango's terms, its size in points of user space; the caller frees it.
PangoFontDescription* description_of(UIFont*);

}  // namespace sim
