// The icons of the colour picker's copy and paste buttons.
#pragma once
#include "platform/uikit.h"

namespace settings {

/// Template images of the preference bundle or, where it has none, of the application; nil without either.
/// Loaded once.
UIImage* copy_icon();
UIImage* paste_icon();

}  // namespace settings
