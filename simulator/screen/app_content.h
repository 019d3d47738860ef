// What an application shows above its keyboard, and behind it.
#pragma once
#include "platform/uikit.h"

namespace sim {

enum class AppContent {
    /// A page of notes with the cursor in its last line.
    notes,
    /// Nearly white, and nothing on it.
    light,
    /// Strong colours with sharp edges all over, so that anything that shows through a keyboard is visible.
    busy,
};

/// A page the size of the screen.
objc::strong<UIView> make_app_content(AppContent content, CGSize screen);

}  // namespace sim
