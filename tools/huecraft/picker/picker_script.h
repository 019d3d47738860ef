// The scripts of huecraft picker: one instruction a line.
#pragma once
#include <string>
#include <variant>
#include <vector>

namespace command {

/// What is touched: a text on the screen, a part without one, or a recent colour, numbered from 1.
struct OnScreen {
    std::string text;
};
enum class Part { field, copy, paste };
struct RecentColour {
    int number;
};

/// What a script can say. Names of channels are the library's, lengths and places in UTF-16 units.
namespace say {
struct Tap {
    std::variant<OnScreen, Part, RecentColour> what;
};
struct Drag {
    std::string channel;
    double value;
};
struct Type {
    std::string text;
};
struct Delete {
    int times;
};
/// Without an end: all.
struct Select {
    size_t location, length;
    bool all;
};
struct Return {};
struct Pasteboard {
    std::string text;
};
struct Wait {
    double seconds;
};
struct Picture {
    std::string name;
};
struct Record {
    std::string name;
    int frames_per_second;
};
struct Stop {};
struct Open {};
}  // namespace say

struct Instruction {
    size_t line;
    std::variant<say::Tap, say::Drag, say::Type, say::Delete, say::Select, say::Return, say::Pasteboard,
                 say::Wait, say::Picture, say::Record, say::Stop, say::Open>
        what;
};

struct Script {
    /// As errors name it.
    std::string file;
    std::vector<Instruction> instructions;

    std::string place(size_t line) const { return file + ":" + std::to_string(line); }
    /// Throws Unusable for a script that takes pictures.
    void require_no_pictures() const;
};

/// Throws Unusable, with file and line, for what is not a script.
Script parse_script(const std::string& file, const std::string& text);

}  // namespace command
