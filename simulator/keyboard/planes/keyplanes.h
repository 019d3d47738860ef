// The key planes of the English keyboard: which keys there are, and where.
#pragma once
#include <string>

#include "keyboard/keyboard_metrics.h"
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace sim {

enum class KeyboardPlane { letters, shifted, numbers, symbols, emoji };

/// What the key at the end of the bottom row does.
enum class ReturnKey { plain, go };

/// The plane's description: a tree of type keyplane whose subtrees are its keys, with frames in the plane's
/// coordinates. Of the emoji plane these are the category bar and the keys beside it.
objc::strong<UIKBTree> make_keyplane(KeyboardPlane plane, ReturnKey return_key,
                                     const KeyboardMetrics& metrics);

/// Neither a mark on another key nor the category bar.
bool can_be_pressed(UIKBTree* key);

/// The key with that text, that name ("Shift-Key"), or that name without its end in any case ("shift"); nil
/// when the plane has none that can be pressed.
UIKBTree* find_key(UIKBTree* plane, const std::string& text_or_name);

}  // namespace sim
