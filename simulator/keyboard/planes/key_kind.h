// What UIKBTree's and UIKBKeyView's numbers mean in the model: the system has more of them, with values of
// its own.
#pragma once
#include "platform/foundation.h"

namespace sim {

/// -[UIKBTree type]
enum class TreeType : int { keyboard = 1, keyplane = 2, key = 8 };

/// -[UIKBTree displayType]: which of the factory's looks a key has.
enum class KeyKind : int {
    character,
    space,
    control,
    /// A control that is switched on: the shift key of the shifted plane.
    engaged_control,
    /// The return key when it does something: "Go".
    confirming,
    /// A control of the emoji plane, beside the categories.
    emoji_control,
    /// A mark on another key, such as the enabled languages on the space bar.
    indicator,
    /// The emoji categories, all of them one key.
    categories,
    /// The surface of a menu that opens over a key.
    menu,
    /// Nothing by itself: the parts of a pop-up lie over it.
    bare,
};

/// -[UIKBTree state]
enum class KeyState : int { enabled = 2, pressed = 4 };

/// -[UIKBTree visualStyle]: which factory draws a plane. Candidates are not one, but have a factory, too.
enum class VisualStyle : int { letters, emoji, number_pad, candidates };

/// What a key view keeps a layer for, where it has more than one.
enum class RenderFlags : NSInteger { background = 1, symbols = 4 };

}  // namespace sim
