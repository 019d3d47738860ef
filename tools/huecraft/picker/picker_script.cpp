#include "picker/picker_script.h"

#include <algorithm>

namespace command {
namespace {

say::Tap tap(const Word& word) {
    if (word.quoted) return {OnScreen{word.text}};
    if (const auto number = number_of<int>(word)) {
        constexpr int recent_colours = 6;
        return {RecentColour{number_within(word, "the recent colour", 1, recent_colours)}};
    }
    static const std::map<std::string, Part> parts{
        {"field", Part::field}, {"copy", Part::copy}, {"paste", Part::paste}};
    if (const auto part = parts.find(word.text); part != parts.end()) return {part->second};
    throw Wrong{"tap takes a text in quotation marks, field, copy, paste or a recent colour, 1 to 6; found " +
                in_quotes(word.text)};
}

say::Drag drag(const Word& channel, const Word& value) {
    constexpr const char* channels[] = {"red", "green", "blue", "alpha"};
    if (std::ranges::find(channels, channel.text) == std::end(channels))
        throw Wrong{"there is no slider " + in_quotes(channel.text) + "; there are red, green, blue, alpha"};
    return {channel.text, number_within(value, "the slider's value", 0.0, 1.0)};
}

say::Select select(const Words& given) {
    if (given.size() == 1 && given[0].text == "all") return {0, 0, true};
    if (given.size() != 2) throw Wrong{"select takes all, or a place and a length"};
    return {number_within<size_t>(given[0], "the place", 0, 1000000),
            number_within<size_t>(given[1], "the length", 0, 1000000), false};
}

using What = PickerInstruction;

// The one list of what a script can say besides.
Forms<What> all_forms() {
    Forms<What> all = common_forms<What>();
    all.insert({
        {"tap",
         {1, 1, "tap \"TEXT\"|field|copy|paste|1…6", [](const Words& w) -> What { return tap(w[0]); }}},
        {"drag",
         {2, 2, "drag red|green|blue|alpha VALUE", [](const Words& w) -> What { return drag(w[0], w[1]); }}},
        {"select", {1, 2, "select all|PLACE LENGTH", [](const Words& w) -> What { return select(w); }}},
        {"open", {0, 0, "open", [](const Words&) -> What { return say::Open{}; }}},
    });
    return all;
}

}  // namespace

PickerScript parse_picker_script(const std::string& file, const std::string& text) {
    PictureOrder order;
    return parse_lines<What>(file, text, all_forms(),
                             [&](const Instruction<What>& instruction) { order.check(instruction); });
}

}  // namespace command
