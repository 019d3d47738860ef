#include "pane/pane_script.h"

namespace command {
namespace {

using What = PaneInstruction;

constexpr double farthest = 2000;  // points, beyond any screen

double place(const Word& word) { return number_within(word, "the place", -farthest, farthest); }
double distance(const Word& word) { return number_within(word, "the distance", 0.0, farthest); }

What touch(const Words& words) {
    if (words.size() == 2) return say::Touch{"", place(words[0]), place(words[1])};
    return say::Touch{text_of(words[0]), 0, 0};
}

// The one list of what a script can say besides.
Forms<What> all_forms() {
    Forms<What> all = common_forms<What>();
    all.insert({
        {"tap", {1, 2, "tap \"LABEL\"|X Y", touch}},
        {"drag",
         {4, 5, "drag X Y X Y [STEPS]",
          [](const Words& w) -> What {
              return say::Swipe{place(w[0]), place(w[1]), place(w[2]), place(w[3]),
                                w.size() < 5 ? 8 : number_within(w[4], "the number of steps", 1, 1000)};
          }}},
        {"pinch",
         {4, 4, "pinch X Y FROM TO",
          [](const Words& w) -> What {
              return say::Pinch{place(w[0]), place(w[1]), distance(w[2]), distance(w[3])};
          }}},
        {"warn-of-memory",
         {0, 0, "warn-of-memory", [](const Words&) -> What { return say::MemoryWarning{}; }}},
        {"keyboard",
         {1, 1, "keyboard NAME",
          [](const Words& w) -> What { return say::Keyboard{picture_name_of(w[0])}; }}},
    });
    return all;
}

}  // namespace

PaneScript parse_pane_script(const std::string& file, const std::string& text) {
    PictureOrder order;
    size_t keyboard = 0;
    return parse_lines<What>(file, text, all_forms(), [&](const Instruction<What>& instruction) {
        if (keyboard)
            throw Wrong{"nothing comes after keyboard, in line " + std::to_string(keyboard) +
                        ": Settings has ended"};
        order.check(instruction);
        if (const auto* drawn = std::get_if<say::Keyboard>(&instruction.what)) {
            order.take(drawn->name, instruction.line);
            keyboard = instruction.line;
        }
    });
}

}  // namespace command
