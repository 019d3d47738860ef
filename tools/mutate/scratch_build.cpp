#include "scratch_build.h"

#include <algorithm>

#include "process.h"

namespace mutate {
namespace {

constexpr int patience = 600;  // for what only a machine's load makes slow
// What is tried is compiled more often than it is run; and what a change leaves unused is no fault of its.
constexpr const char* quickly = " -O0 -w";
// Into the file itself, at once: a case may end without a word, and processes that it forks count as well.
constexpr const char* counting =
    " -fprofile-instr-generate -fcoverage-mapping -mllvm -runtime-counter-relocation";

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

bool is_in(const fs::path& file, const fs::path& folder) {
    return file.string().starts_with(folder.string() + "/");
}

/// The name by which one of the standard library's or of the tests' framework is included; "" for another.
std::string name_of_foreign(const fs::path& header) {
    const fs::path folder = header.parent_path(), name = folder.filename() / header.filename();
    if (!header.has_extension() && folder.parent_path().filename() == "c++") return header.filename();
    return name == "gtest/gtest.h" || name == "gmock/gmock.h" ? name.string() : "";
}

}  // namespace

ScratchBuild::ScratchBuild(const fs::path& build, const std::string& image, const fs::path& changing,
                           const fs::path& scratch)
    : build_(build),
      changing_(changing),
      scratch_(scratch),
      image_(image) {
    std::istringstream commands(ask_ninja(build, "commands " + quoted(image)));
    std::vector<std::string> all;
    for (std::string line; std::getline(commands, line);) all.push_back(line);
    if (all.empty()) throw Failure(build.string() + ": the build says nothing of how " + image + " is made");
    link_ = all.back() + " ";
    all.pop_back();
    std::string members = link_;
    for (const std::string& command : all)
        if (const std::string archive = after(words_of(command), "qc");
            !archive.empty() && link_.find(" " + archive + " ") != link_.npos)
            members += command + " ";
    for (std::string& command : all) take_unit(std::move(command), members);
    take_dependencies();
    if (units_.empty()) throw Failure(build.string() + ": no C++ source is a part of " + image);
    fs::create_directories(scratch_ / "image");
}

void ScratchBuild::take_unit(std::string command, const std::string& members) {
    std::vector<std::string> words = words_of(command);
    const std::string object = after(words, "-o"), source = after(words, "-c");
    if (!source.ends_with(".cpp") || members.find(" " + object + " ") == members.npos) return;
    // A cache in front cannot know of the change, and what the file includes is known. The build's own
    // headers that are read once were read with optimisation, and hold what changes.
    const auto cache =
        std::ranges::find_if(words, [](const std::string& word) { return word.ends_with("ccache"); });
    if (cache != words.end()) words.erase(words.begin(), cache + 1);
    command.clear();
    for (size_t i = 0; i < words.size(); ++i) {
        if (words[i] == "-MT" || words[i] == "-MF")
            ++i;
        else if (words[i] == "-Xclang" && i + 3 < words.size() && words[i + 1].starts_with("-include"))
            i += 3;
        else if (words[i] != "-MD" && words[i] != "-g1" && words[i] != "-g")
            command += words[i] + " ";
    }
    Unit unit{.object = object, .command = command, .source = (build_ / source).lexically_normal()};
    unit.kind = command_for(unit, "source", "object");
    units_.push_back(std::move(unit));
}

/// Leaves the units that have to do with what changes, its own before others.
void ScratchBuild::take_dependencies() {
    std::map<std::string, std::vector<fs::path>> included;  // by object
    std::istringstream dependencies(ask_ninja(build_, "deps"));
    std::vector<fs::path>* files = nullptr;
    for (std::string line; std::getline(dependencies, line);)
        if (!line.starts_with("    "))
            files = &included[line.substr(0, line.find(": #deps"))];
        else if (files)
            files->push_back((build_ / line.substr(4)).lexically_normal());
    const auto changes = [&](const fs::path& file) { return is_in(file, changing_); };
    std::erase_if(units_, [&](const Unit& unit) {
        return !changes(unit.source) && std::ranges::none_of(included[unit.object], changes);
    });
    std::ranges::partition(units_, changes, &Unit::source);
    for (const Unit& unit : units_)
        for (const fs::path& file : included[unit.object]) includers_[file].push_back(&unit);
}

std::string ScratchBuild::command_for(const Unit& unit, const fs::path& source,
                                      const fs::path& object) const {
    std::string command = unit.command;
    replace_word(command, unit.object, object);
    replace_word(command, after(words_of(command), "-c"), source);
    return command + quickly;
}

std::vector<const ScratchBuild::Unit*> ScratchBuild::units_of(const fs::path& file) const {
    for (const Unit& unit : units_)
        if (unit.source == file) return {&unit};
    const auto found = includers_.find(file);
    return found == includers_.end() ? std::vector<const Unit*>() : found->second;
}

/// The option that says where they are, as units of that kind read them; "" when there are none.
const std::string& ScratchBuild::headers_read_once(const std::string& kind) {
    const auto [known, is_new] = headers_read_once_.try_emplace(kind);
    std::string& option = known->second;
    if (!is_new) return option;
    const auto alike = [&](const Unit& unit) { return unit.kind == kind; };
    const fs::path root = changing_.parent_path();
    std::string ours, foreign;
    for (const auto& [file, units] : includers_) {
        if (std::ranges::none_of(units, [&](const Unit* unit) { return alike(*unit); })) continue;
        if (file.extension() == ".h" && is_in(file, root) && !is_in(file, changing_))
            ours += "#include \"" + file.string() + "\"\n";
        if (const std::string name = name_of_foreign(file); !name.empty())
            foreign += "#include <" + name + ">\n";
    }
    const Unit& first = *std::ranges::find_if(units_, alike);
    if (!ours.empty()) option = read_once(first, foreign + ours);
    if (option.empty() && !foreign.empty()) option = read_once(first, foreign);
    return option;
}

/// "" when one of them includes what changes.
std::string ScratchBuild::read_once(const Unit& unit, const std::string& includes) {
    const std::string name = "headers" + std::to_string(times_read_++);
    const fs::path together = scratch_ / (name + ".h"), read = scratch_ / (name + ".pch"),
                   listed = scratch_ / (name + ".d");
    write_file(together, includes);
    std::string command =
        command_for(unit, together, read) + " -fpch-instantiate-templates -MD -MF " + listed.string();
    replace_word(command, "-c", "-x c++-header");
    if (!run(command, build_, patience).well) return "";
    const auto changes = [&](const std::string& file) {
        return is_in((build_ / file).lexically_normal(), changing_);
    };
    return std::ranges::any_of(words_of(read_file(listed)), changes) ? "" : " -include-pch " + quoted(read);
}

ScratchBuild::Objects ScratchBuild::compile(const std::vector<const Unit*>& units,
                                            const std::string& options) {
    Objects objects;
    for (const Unit* unit : units) {
        const fs::path object = scratch_ / ("unit" + std::to_string(objects.size()) + ".o");
        const std::string command =
            command_for(*unit, unit->source, object) + headers_read_once(unit->kind) + options;
        if (!run(command, build_, patience).well) return {};
        objects[unit] = object;
    }
    return objects;
}

bool ScratchBuild::link(const Objects& objects, const std::string& options) const {
    std::string command = link_, members;
    for (const auto& [unit, object] : objects)
        if (link_.find(" " + unit->object + " ") == link_.npos)
            members += object.string() + " ";  // before its archive, which then has nothing to add
        else
            replace_word(command, unit->object, object);
    replace_word(command, image_, image());
    replace_word(command, "-o", options + " " + members + "-o");
    return !objects.empty() && run(command, build_, patience).well;
}

ScratchBuild::Objects ScratchBuild::compile_with(const fs::path& file, const std::string& contents) {
    const fs::path changed = scratch_ / "changed", overlay = scratch_ / "overlay.yaml";
    write_file(changed, contents);
    write_file(overlay, "{'version': 0, 'roots': [{'type': 'file', 'name': '" + file.string() +
                            "', 'external-contents': '" + changed.string() + "'}]}\n");
    return compile(units_of(file), " -ivfsoverlay " + quoted(overlay));
}

Made ScratchBuild::make(const fs::path& file, const std::string& contents) {
    const std::vector<const Unit*> units = units_of(file);
    if (std::ranges::any_of(units, [&](const Unit* unit) { return !unchanged_.contains(unit); }))
        for (const auto& [unit, object] : compile_with(file, read_file(file)))
            unchanged_[unit] = read_file(object);
    const Objects objects = compile_with(file, contents);
    if (objects.empty()) return Made::not_compiled;
    if (std::ranges::all_of(objects,
                            [&](const auto& one) { return read_file(one.second) == unchanged_[one.first]; }))
        return Made::same_code;
    return link(objects) ? Made::changed : Made::not_compiled;
}

bool ScratchBuild::make_counting(const std::set<fs::path>& files) {
    std::set<const Unit*> all;
    for (const fs::path& file : files)
        for (const Unit* unit : units_of(file)) all.insert(unit);
    // Tests that include a header need not count as well: what nobody is known to reach is judged by all.
    if (std::ranges::any_of(all, [&](const Unit* unit) { return is_in(unit->source, changing_); }))
        std::erase_if(all, [&](const Unit* unit) { return !is_in(unit->source, changing_); });
    return link(compile({all.begin(), all.end()}, counting), "-fprofile-instr-generate " COUNTING);
}

/// The compiler's neighbour, of its version.
std::string ScratchBuild::tool(const std::string& name) const {
    std::string command = words_of(units_.front().command).front();
    const size_t found = command.rfind("clang++");
    if (found == command.npos) throw Failure(command + ": expected clang++, whose tools read what it counts");
    return command.replace(found, std::string_view("clang++").size(), name);
}

std::map<fs::path, std::map<size_t, unsigned long>> ScratchBuild::counts_in(const fs::path& profiles) const {
    const std::string indexed = scratch_ / "indexed";
    const Ended read = run(tool("llvm-profdata") + " merge -sparse -o " + quoted(indexed) + " " +
                               quoted(profiles) + "/* && " + tool("llvm-cov") +
                               " export --format=lcov --skip-functions --instr-profile=" + quoted(indexed) +
                               " " + quoted(image()),
                           build_, patience);
    if (!read.well) throw Failure(profiles.string() + ": it cannot be read: " + read.output);
    std::map<fs::path, std::map<size_t, unsigned long>> counts;
    std::map<size_t, unsigned long>* lines = nullptr;
    std::istringstream records(read.output);
    for (std::string record; std::getline(records, record);) {
        if (record.starts_with("SF:")) lines = &counts[(build_ / record.substr(3)).lexically_normal()];
        size_t line = 0;
        unsigned long count = 0;
        if (std::sscanf(record.c_str(), "DA:%zu,%lu", &line, &count) == 2) (*lines)[line] = count;
    }
    return counts;
}

}  // namespace mutate
