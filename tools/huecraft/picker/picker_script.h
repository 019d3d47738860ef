// The scripts of huecraft picker.
#pragma once
#include <string>
#include <variant>

#include "scripts/instructions.h"

namespace command {

/// What is touched: a text on the screen, a part without one, or a recent colour, numbered from 1.
struct OnScreen {
    std::string text;
};
enum class Part { field, copy, paste };
struct RecentColour {
    int number;
};

/// What such a script can say besides. Names of channels are the library's, lengths and places in UTF-16
/// units.
namespace say {
struct Tap {
    std::variant<OnScreen, Part, RecentColour> what;
};
struct Drag {
    std::string channel;
    double value;
};
/// Without an end: all.
struct Select {
    size_t location, length;
    bool all;
};
struct Open {};
}  // namespace say

using PickerInstruction =
    std::variant<say::Tap, say::Drag, say::Type, say::Delete, say::Select, say::Return, say::Pasteboard,
                 say::Wait, say::Picture, say::Record, say::Stop, say::Open>;
using PickerScript = ScriptOf<PickerInstruction>;

/// Throws Unusable, with file and line, for what is not a script.
PickerScript parse_picker_script(const std::string& file, const std::string& text);

}  // namespace command
