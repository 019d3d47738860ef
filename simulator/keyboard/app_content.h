// What an application shows above its keyboard.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// A page of notes, the size of the screen, with the cursor in its last line.
objc::strong<UIView> make_app_content(CGSize screen);

}  // namespace sim
