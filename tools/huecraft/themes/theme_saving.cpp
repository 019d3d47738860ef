#include "themes/theme_saving.h"

#include "cli/files.h"
#include "cli/terminal.h"
#include "support/text.h"

namespace command {

using tools::text;
using tools::utf8;

void add_output(Subcommand subcommand, Destination& destination) {
    subcommand
        .add_option("-o,--output", destination.output,
                    "The file to write; NAME.plist without it, - is standard output")
        .type_name("FILE");
    subcommand.add_flag("--force", destination.force, "Replace a file that exists");
}

NSString* checked_name(const std::string& name) {
    NSString* checked = text(name);
    if (!checked) throw Unusable(one_line(name), "the name is not UTF-8");
    // XML has no place for most of them, and the others mislead who reads a list of themes.
    if (one_line(name, name.size()) != name)
        throw Unusable(one_line(name), "the name has characters that cannot be printed");
    return checked;
}

std::string checked_file(HuecraftConfig* config, const Destination& destination) {
    const std::string& name = destination.name;
    if (name.empty()) throw Unusable(in_quotes(name), "a theme needs a name");
    const std::string stem = utf8(config->sanitizeFileName(checked_name(name)));
    if (stem.empty()) throw Unusable(name, "nothing of the name is left for a file's name");
    constexpr size_t longest_stem = 255 - 6;  // with ".plist" as long as names can be
    if (stem.size() > longest_stem)
        throw Unusable(one_line(name), "the name is too long for a file's: " + std::to_string(stem.size()) +
                                           " bytes, and at most " + std::to_string(longest_stem) + " fit");
    const std::string file = destination.output.empty() ? stem + ".plist" : destination.output;
    if (!destination.force) require_absent(file);
    return file;
}

void save_theme(HuecraftConfig* config, const Destination& destination, const std::string& file,
                const Workshop& workshop) {
    NSString* name = text(destination.name);
    config->setConfigName(name);
    NSError* error = nullptr;
    if (!config->saveConfiguration(&error))
        throw Unusable(file, "the library cannot save it: " +
                                 one_line(utf8(error->send<"localizedDescription", NSString*>()), 300));
    std::string saved = read_input(workshop.theme(utf8(config->sanitizeFileName(name)) + ".plist"));
    if (destination.form != Form::xml) {
        Losses losses;
        saved = written_property_list(parse_property_list(saved, file).root, destination.form, file, losses);
        for (const std::string& loss : losses) complain(file, loss);
    }
    write_output(file, saved);
}

}  // namespace command
