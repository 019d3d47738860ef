#include "picker/picker_script.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <sstream>

#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

struct Word {
    std::string text;
    bool quoted = false;
};
using Words = std::vector<Word>;

/// What is wrong with a line; the line is put before it.
struct Wrong {
    std::string why;
};

constexpr std::string_view blanks = " \t\r";

/// The text from its opening quotation mark on, which goes with the closing one.
Word quoted_word(std::string_view& line) {
    Word word{.text = "", .quoted = true};
    for (line.remove_prefix(1); !line.empty(); line.remove_prefix(1)) {
        char c = line.front();
        if (c == '"') {
            line.remove_prefix(1);
            if (!line.empty() && blanks.find(line.front()) == blanks.npos)
                throw Wrong{"expected a blank after " + in_quotes(word.text)};
            return word;
        }
        if (c == '\\') {
            line.remove_prefix(1);
            c = line.empty() ? '\0' : line.front();
            if (c != '"' && c != '\\') throw Wrong{"a \\ in a text comes before \" or another \\"};
        }
        word.text += c;
    }
    throw Wrong{"the text " + in_quotes(word.text) + " has no closing quotation mark"};
}

Words words_of(std::string_view line) {
    Words words;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
        if (line.empty() || line.front() == '#') return words;
        if (line.front() == '"') {
            words.push_back(quoted_word(line));
            continue;
        }
        const size_t end = std::min(line.find_first_of(blanks), line.size());
        words.push_back({std::string(line.substr(0, end)), false});
        line.remove_prefix(end);
    }
}

template <class Number>
std::optional<Number> number_of(const Word& word) {
    Number number{};
    const char *begin = word.text.data(), *end = begin + word.text.size();
    const auto [at, error] = std::from_chars(begin, end, number);
    if (word.quoted || error != std::errc{} || at != end) return std::nullopt;
    return number;
}

template <class Number>
Number number_within(const Word& word, const std::string& what, Number least, Number most) {
    const auto number = number_of<Number>(word);
    std::ostringstream range;
    range << least << " to " << most;
    if (!number || !(*number >= least && *number <= most))
        throw Wrong{what + " is " + in_quotes(word.text) + "; expected a number from " + range.str()};
    return *number;
}

std::string text_of(const Word& word) {
    if (!word.quoted)
        throw Wrong{in_quotes(word.text) + " stands where a text in quotation marks is expected"};
    return word.text;
}

/// A file's name, without its end.
std::string name_of(const Word& word) {
    const bool plain = std::ranges::all_of(word.text, [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_' || c == '.';
    });
    if (word.text.empty() || !plain || word.text.front() == '.' || word.text.size() > 200)
        throw Wrong{in_quotes(word.text) + " is not a name of a picture; expected letters, digits, - and _"};
    return word.text;
}

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

using What = decltype(Instruction::what);

/// An instruction's words after its name, and how many there may be.
struct Form {
    size_t least, most;
    const char* usage;
    What (*make)(const Words&);
};

// The one list of what a script can say.
const std::map<std::string, Form>& forms() {
    static const std::map<std::string, Form> all{
        {"tap",
         {1, 1, "tap \"TEXT\"|field|copy|paste|1…6", [](const Words& w) -> What { return tap(w[0]); }}},
        {"drag",
         {2, 2, "drag red|green|blue|alpha VALUE", [](const Words& w) -> What { return drag(w[0], w[1]); }}},
        {"type", {1, 1, "type \"TEXT\"", [](const Words& w) -> What { return say::Type{text_of(w[0])}; }}},
        {"delete",
         {0, 1, "delete [TIMES]",
          [](const Words& w) -> What {
              return say::Delete{w.empty() ? 1 : number_within(w[0], "the number of times", 1, 1000)};
          }}},
        {"select", {1, 2, "select all|PLACE LENGTH", [](const Words& w) -> What { return select(w); }}},
        {"return", {0, 0, "return", [](const Words&) -> What { return say::Return{}; }}},
        {"pasteboard",
         {1, 1, "pasteboard \"TEXT\"",
          [](const Words& w) -> What { return say::Pasteboard{text_of(w[0])}; }}},
        {"wait",
         {1, 1, "wait SECONDS",
          [](const Words& w) -> What { return say::Wait{number_within(w[0], "the time", 0.0, 600.0)}; }}},
        {"picture",
         {1, 1, "picture NAME", [](const Words& w) -> What { return say::Picture{name_of(w[0])}; }}},
        {"record",
         {1, 2, "record NAME [FRAMES A SECOND]",
          [](const Words& w) -> What {
              return say::Record{name_of(w[0]),
                                 w.size() < 2 ? 30 : number_within(w[1], "the number of frames", 1, 60)};
          }}},
        {"stop", {0, 0, "stop", [](const Words&) -> What { return say::Stop{}; }}},
        {"open", {0, 0, "open", [](const Words&) -> What { return say::Open{}; }}},
    };
    return all;
}

What instruction_of(Words words) {
    const Word name = words.front();
    words.erase(words.begin());
    const auto form = forms().find(name.text);
    if (name.quoted || form == forms().end()) {
        std::string known;
        for (const auto& [each, ignored] : forms()) known += (known.empty() ? "" : ", ") + each;
        throw Wrong{"there is no instruction " + in_quotes(name.text) + "; there are " + known};
    }
    const auto& [least, most, usage, make] = form->second;
    if (words.size() < least || words.size() > most) {
        // "type #FF8800" says nothing after its name.
        const std::string hint =
            words.empty() ? " (what follows a # is a comment, but for a text in \"\")" : "";
        throw Wrong{"found " + counted(words.size(), "word") + " after " + name.text +
                    "; expected: " + usage + hint};
    }
    return make(words);
}

/// What can be told of the order alone.
class Order {
  public:
    void check(const Instruction& instruction) {
        if (const auto* picture = std::get_if<say::Picture>(&instruction.what)) {
            take(picture->name, instruction.line);
        } else if (const auto* record = std::get_if<say::Record>(&instruction.what)) {
            if (recording_)
                throw Wrong{"the recording of line " + std::to_string(recording_) + " is still going on"};
            take(record->name, instruction.line);
            recording_ = instruction.line;
        } else if (std::holds_alternative<say::Stop>(instruction.what)) {
            if (!recording_) throw Wrong{"there is no recording to stop"};
            recording_ = 0;
        }
    }

  private:
    void take(const std::string& name, size_t line) {
        const auto [taken, is_new] = lines_.emplace(name, line);
        if (!is_new)
            throw Wrong{"there is a picture " + in_quotes(name) + " already, in line " +
                        std::to_string(taken->second)};
    }

    std::map<std::string, size_t> lines_;
    size_t recording_ = 0;
};

}  // namespace

void Script::require_no_pictures() const {
    for (const Instruction& each : instructions)
        if (std::holds_alternative<say::Picture>(each.what) || std::holds_alternative<say::Record>(each.what))
            throw Unusable(place(each.line), "pictures need a folder to go to: say -o DIR");
}

Script parse_script(const std::string& file, const std::string& text) {
    Script script{file == "-" ? "standard input" : file, {}};
    std::istringstream lines(text);
    Order order;
    size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        try {
            if (line.find('\0') != line.npos) throw Wrong{"the line holds a zero byte"};
            Words words = words_of(line);
            if (words.empty()) continue;
            script.instructions.push_back({number, instruction_of(std::move(words))});
            order.check(script.instructions.back());
        } catch (const Wrong& wrong) {
            throw Unusable(script.place(number), wrong.why);
        }
    }
    return script;
}

}  // namespace command
