// huecraft edit: changes a theme's file, and keeps the rest of it as it is.
#include <algorithm>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "commands/theme_options.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "support/text.h"
#include "themes/theme.h"
#include "themes/theme_saving.h"

namespace command {
namespace {

struct Edit {
    std::string file, output, name;
    ThemeOptions theme;
    bool force = false, json = false;

    Status operator()() const {
        if (theme == ThemeOptions{} && name.empty())
            throw Unusable("edit", "found nothing to change, expected an option such as --text or --image");
        if (file == "-" && output.empty())
            throw Unusable("-", "standard input has no place to write to; name one with -o");
        return in_workshop([this](const Workshop& workshop) {
            const BackdropSampler sampler(workshop);
            on_the_phone(file, [&] { edit(workshop, sampler); });
            return Status::fine;
        });
    }

  private:
    void edit(const Workshop& workshop, const BackdropSampler& sampler) const {
        if (!output.empty() && !force) require_replaceable(output, OutputKind::property_list, {});
        const std::string contents = read_input(file), place = output.empty() ? file : output;
        const Form form = parse_property_list(contents, file).form;
        const LoadedTheme loaded = load_theme(workshop, file, contents);
        HuecraftConfig* config = loaded.config;
        theme.check(config->getImage() != nullptr);
        std::vector<std::string> done = theme.paint(config);
        std::ranges::move(theme.take_colours(config, sampler), std::back_inserter(done));
        if (!name.empty()) config->setConfigName(checked_name(name));
        const std::string doubts = doubts_about(config, sampler);
        Losses losses;
        const std::string bytes =
            written_property_list(static_cast<NSObject*>(config->asPlist()), form, file, losses);
        // The old form has texts alone, of which the theme was made before.
        if (form != Form::open_step) std::ranges::move(losses, std::back_inserter(done));
        write_output(place, bytes);
        report(place, form, done, doubts);
    }

    void report(const std::string& place, Form form, const std::vector<std::string>& done,
                const std::string& doubts) const {
        if (place == "-") return;
        if (json) {
            std::fputs(printed({{"file", place},
                                {"form", name_of(form)},
                                {"done", done},
                                {"doubts", doubts.empty() ? Json(nullptr) : Json(doubts)}})
                           .c_str(),
                       stdout);
            return;
        }
        std::printf("changed %s (%s)\n", toned(Tone::strong, one_line(place, 4096)).c_str(),
                    name_of(form).c_str());
        for (const std::string& one : done) std::printf("  %s\n", one.c_str());
        if (!doubts.empty()) std::printf("  %s\n", toned(Tone::warning, doubts).c_str());
    }
};

}  // namespace

void add_edit(CLI::App& command, Request& request) {
    auto options = std::make_shared<Edit>();
    const Subcommand sub =
        add_subcommand(command, request, "edit", "Change a theme, and keep the rest as it is", options);
    sub.add_option("THEME", options->file, "The theme; - is standard input").required().type_name("");
    sub.add_option("--name", options->name, "Its new name; the file keeps its own").type_name("NAME");
    add_theme_options(sub, options->theme, true);
    sub.add_option("-o,--output", options->output,
                   "The file to write, in place of the theme; - is standard output")
        .type_name("FILE");
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub.footer(
        "The file keeps its form (XML, binary, openstep) and the keys that the library does not know. --dim "
        "and --blur "
        "change\n"
        "the picture that is there, or the photo that comes.\n\n"
        "Examples:\n"
        "  huecraft edit Midnight.plist --text gold --direction down\n"
        "  huecraft edit Hills.plist --dim 0.35\n"
        "  huecraft edit Hills.plist --image other.jpg --crop 400,0,2000,1285 -o Other.plist");
}

}  // namespace command
