// What the scripts of picker and pane have in common: some of their instructions, and how a script is read.
#pragma once
#include <map>
#include <string>
#include <variant>

#include "cli/files.h"
#include "scripts/words.h"

namespace command {

/// Instructions that every script knows.
namespace say {
struct Type {
    std::string text;
};
struct Delete {
    int times;
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
}  // namespace say

template <class What>
struct Instruction {
    size_t line;
    What what;
};

/// An instruction's words after its name, and how many there may be.
template <class What>
struct InstructionForm {
    size_t least, most;
    const char* usage;
    What (*make)(const Words&);
};
template <class What>
using Forms = std::map<std::string, InstructionForm<What>>;

/// Those of the instructions above. `What` is a variant that has them.
template <class What>
Forms<What> common_forms() {
    return {
        {"type", {1, 1, "type \"TEXT\"", [](const Words& w) -> What { return say::Type{text_of(w[0])}; }}},
        {"delete",
         {0, 1, "delete [TIMES]",
          [](const Words& w) -> What {
              return say::Delete{w.empty() ? 1 : number_within(w[0], "the number of times", 1, 1000)};
          }}},
        {"return", {0, 0, "return", [](const Words&) -> What { return say::Return{}; }}},
        {"pasteboard",
         {1, 1, "pasteboard \"TEXT\"",
          [](const Words& w) -> What { return say::Pasteboard{text_of(w[0])}; }}},
        {"wait",
         {1, 1, "wait SECONDS",
          [](const Words& w) -> What { return say::Wait{number_within(w[0], "the time", 0.0, 600.0)}; }}},
        {"picture",
         {1, 1, "picture NAME", [](const Words& w) -> What { return say::Picture{picture_name_of(w[0])}; }}},
        {"record",
         {1, 2, "record NAME [FRAMES A SECOND]",
          [](const Words& w) -> What {
              return say::Record{picture_name_of(w[0]),
                                 w.size() < 2 ? 30 : number_within(w[1], "the number of frames", 1, 60)};
          }}},
        {"stop", {0, 0, "stop", [](const Words&) -> What { return say::Stop{}; }}},
    };
}

/// Throws Wrong for what is none of them.
template <class What>
What instruction_of(const Forms<What>& forms, Words words) {
    const Word name = words.front();
    words.erase(words.begin());
    const auto form = forms.find(name.text);
    if (name.quoted || form == forms.end()) {
        std::string known;
        for (const auto& [each, ignored] : forms) known += (known.empty() ? "" : ", ") + each;
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

/// What can be said of the pictures' order alone.
class PictureOrder {
  public:
    template <class What>
    void check(const Instruction<What>& instruction) {
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
    /// A name is one picture's.
    void take(const std::string& name, size_t line) {
        const auto [taken, is_new] = lines_.emplace(name, line);
        if (!is_new)
            throw Wrong{"there is a picture " + in_quotes(name) + " already, in line " +
                        std::to_string(taken->second)};
    }

  private:
    std::map<std::string, size_t> lines_;
    size_t recording_ = 0;
};

/// A script: one instruction a line.
template <class What>
struct ScriptOf {
    /// As errors name it.
    std::string file;
    std::vector<Instruction<What>> instructions;

    std::string place(size_t line) const { return file + ":" + std::to_string(line); }
};

/// Throws Unusable for a script that takes pictures.
template <class What>
void require_no_pictures(const ScriptOf<What>& script) {
    for (const auto& each : script.instructions)
        if (std::holds_alternative<say::Picture>(each.what) || std::holds_alternative<say::Record>(each.what))
            throw Unusable(script.place(each.line), "pictures need a folder to go to: say -o DIR");
}

/// Reads a script; `check` sees each instruction. Throws Unusable, with file and line, for what is not one.
template <class What, class Check>
ScriptOf<What> parse_lines(const std::string& file, const std::string& text, const Forms<What>& forms,
                           Check check) {
    ScriptOf<What> script{file == "-" ? "standard input" : file, {}};
    std::istringstream lines(text);
    size_t number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        try {
            if (line.find('\0') != line.npos) throw Wrong{"the line holds a zero byte"};
            Words words = words_of(line);
            if (words.empty()) continue;
            script.instructions.push_back({number, instruction_of(forms, std::move(words))});
            check(script.instructions.back());
        } catch (const Wrong& wrong) {
            throw Unusable(script.place(number), wrong.why);
        }
    }
    return script;
}

}  // namespace command
