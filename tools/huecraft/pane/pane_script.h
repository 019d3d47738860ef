// The scripts of huecraft pane.
#pragma once
#include <string>
#include <variant>

#include "scripts/instructions.h"

namespace command {

namespace say {
/// What VoiceOver calls something on the screen, or a point.
struct Touch {
    std::string label;
    double x, y;
};
/// From one point to another, in so many steps.
struct Swipe {
    double from_x, from_y, to_x, to_y;
    int steps;
};
/// Two fingers, from one distance to another around a point.
struct Pinch {
    double x, y, from, to;
};
struct MemoryWarning {};
/// An application that is started afterwards, its keyboard.
struct Keyboard {
    std::string name;
};
}  // namespace say

using PaneInstruction =
    std::variant<say::Touch, say::Swipe, say::Pinch, say::Type, say::Delete, say::Return, say::Pasteboard,
                 say::Wait, say::Picture, say::Record, say::Stop, say::MemoryWarning, say::Keyboard>;
using PaneScript = ScriptOf<PaneInstruction>;

/// Throws Unusable, with file and line, for what is not a script.
PaneScript parse_pane_script(const std::string& file, const std::string& text);

}  // namespace command
