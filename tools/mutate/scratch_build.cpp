#include "scratch_build.h"

#include <algorithm>

#include "process.h"

namespace mutate {
namespace {

constexpr int patience = 600;  // for what only a machine's load makes slow

std::vector<std::string> words_of(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

std::string after(const std::vector<std::string>& words, std::string_view option) {
    const auto found = std::ranges::find(words, option);
    return found == words.end() || found + 1 == words.end() ? "" : *(found + 1);
}

void replace_word(std::string& command, const std::string& word, const std::string& by) {
    const size_t found = command.find(" " + word + " ");
    if (found != command.npos) command.replace(found + 1, word.size(), by);
}

std::string ask_ninja(const fs::path& build, const std::string& question) {
    const Ended answer = run("ninja -t " + question, build, patience);
    if (!answer.well) throw Failure(build.string() + ": ninja -t " + question + ": " + answer.output);
    return answer.output;
}

}  // namespace

ScratchBuild::ScratchBuild(const fs::path& build, const std::string& image, const fs::path& scratch)
    : build_(build),
      scratch_(scratch),
      image_(image) {
    std::istringstream commands(ask_ninja(build, "commands " + quoted(image)));
    std::vector<std::string> all;
    for (std::string line; std::getline(commands, line);) all.push_back(line);
    if (all.empty()) throw Failure(build.string() + ": the build says nothing of how " + image + " is made");
    link_ = all.back() + " ";
    all.pop_back();
    for (std::string& command : all) take_unit(std::move(command));
    if (units_.empty()) throw Failure(build.string() + ": no C++ source is a part of " + image);

    std::istringstream dependencies(ask_ninja(build, "deps"));
    const Unit* unit = nullptr;
    for (std::string line; std::getline(dependencies, line);) {
        if (line.starts_with("    ")) {
            if (unit) includers_[(build_ / line.substr(4)).lexically_normal()].push_back(unit);
            continue;
        }
        const auto found = std::ranges::find(units_, line.substr(0, line.find(": #deps")), &Unit::object);
        unit = found == units_.end() ? nullptr : &*found;
    }
    fs::create_directories(scratch_ / "image");
}

void ScratchBuild::take_unit(std::string command) {
    std::vector<std::string> words = words_of(command);
    const std::string object = after(words, "-o"), source = after(words, "-c");
    if (source.empty() || !source.ends_with(".cpp") || link_.find(" " + object + " ") == link_.npos) return;
    // A cache in front cannot know of the change, and what the file includes is known.
    command.clear();
    for (size_t i = words.front().ends_with("ccache") ? 1 : 0; i < words.size(); ++i) {
        if (words[i] == "-MT" || words[i] == "-MF")
            ++i;
        else if (words[i] != "-MD" && words[i] != "-g1" && words[i] != "-g")
            command += words[i] + " ";
    }
    units_.push_back({.object = object, .command = command, .source = (build_ / source).lexically_normal()});
}

std::vector<const ScratchBuild::Unit*> ScratchBuild::units_of(const fs::path& file) const {
    for (const Unit& unit : units_)
        if (unit.source == file) return {&unit};
    const auto found = includers_.find(file);
    return found == includers_.end() ? std::vector<const Unit*>() : found->second;
}

bool ScratchBuild::make(const fs::path& file, const std::string& contents) const {
    // The compiler sees the contents under the file's own name, which keeps what lies beside it in its place.
    const fs::path changed = scratch_ / "changed", overlay = scratch_ / "overlay.yaml";
    write_file(changed, contents);
    write_file(overlay, "{'version': 0, 'roots': [{'type': 'file', 'name': '" + file.string() +
                            "', 'external-contents': '" + changed.string() + "'}]}\n");
    std::string link = link_;
    size_t number = 0;
    for (const Unit* unit : units_of(file)) {
        const std::string object = scratch_ / ("unit" + std::to_string(number++) + ".o");
        std::string command = unit->command;
        replace_word(command, unit->object, object);
        // What a change leaves unused is no fault of its.
        if (!run(command + " -w -ivfsoverlay " + quoted(overlay), build_, patience).well) return false;
        replace_word(link, unit->object, object);
    }
    replace_word(link, image_, image());
    return run(link, build_, patience).well;
}

}  // namespace mutate
