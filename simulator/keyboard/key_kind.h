// What UIKBTree's numbers mean in the model: the system has more of both, with numbers of its own.
#pragma once
#include "objc/runtime.h"

namespace sim {

/// -[UIKBTree type]
enum class TreeType : NSInteger { keyboard = 1, keyplane = 2, key = 8 };

/// -[UIKBTree displayType]: which of the factory's looks a key has.
enum class KeyKind : NSInteger {
    character,
    space,
    control,
    /// A control that is switched on: the shift key of the shifted plane.
    engaged_control,
    /// The return key when it does something: "Go".
    confirming,
    /// A control without a cap, on the emoji plane.
    bare,
    /// A mark on another key, such as the enabled languages on the space bar.
    indicator,
    /// The surface of a menu that opens over a key.
    menu,
};

}  // namespace sim
