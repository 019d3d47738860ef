#include "scripts/script_options.h"

#include <cstdio>
#include <filesystem>
#include <map>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"

namespace command {

namespace fs = std::filesystem;

std::string ScriptOptions::text(const std::string& picture) const {
    if (!script.empty()) return read_input(script, "script", largest_text);
    return output.empty() ? "wait 1" : "wait 1\npicture " + picture;
}

const tools::Screen& ScriptOptions::screen() const {
    /// Of phones with iOS 12, by width, and an iPad's.
    static const std::map<std::string, tools::Screen> screens{
        {"320", {320, 568, 2}}, {"375", {375, 667, 2}}, {"414", {414, 736, 3}}, {"768", {768, 1024, 2}}};
    return screens.at(width);
}

void ScriptOptions::write(const std::vector<std::string>& pictures, const std::vector<std::string>& inputs,
                          const std::function<std::string(const std::string&)>& contents) const {
    if (!pictures.empty()) make_folder(output);
    if (!force)
        for (const std::string& picture : pictures)
            require_replaceable(fs::path(output) / picture, OutputKind::picture, inputs);
    for (const std::string& picture : pictures) write_output(fs::path(output) / picture, contents(picture));
}

void ScriptOptions::print(const std::vector<std::string>& pictures) const {
    for (const std::string& picture : pictures)
        std::printf("picture: %s\n", one_line((fs::path(output) / picture).string(), 4096).c_str());
}

Json ScriptOptions::places_of(const std::vector<std::string>& pictures) const {
    Json places = Json::array();
    for (const std::string& picture : pictures) places.push_back((fs::path(output) / picture).string());
    return places;
}

void add_first_script_options(Subcommand sub, ScriptOptions& options) {
    sub.add_option("--script", options.script,
                   "What to do with it, one instruction a line; - is standard input")
        .type_name("FILE");
    sub.add_option("-o,--output", options.output, "The folder for pictures; it is made if it is missing")
        .type_name("DIR");
}

void add_last_script_options(Subcommand sub, ScriptOptions& options) {
    sub.add_option("--scale", options.scale, "Pixels per point; the screen's without it")
        .takes_number(0.1, 8);
    add_library(sub, options.library);
    add_force(sub, options.force);
    add_json(sub, options.json);
}

}  // namespace command
