// huecraft pack: a package of themes, for the phone's package manager.
#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "package/theme_package.h"
#include "support/phone.h"

namespace command {
namespace {

struct Pack {
    std::vector<std::string> files;
    std::string output;
    ThemePackage package{.id = {},
                         .version = "1.0",
                         .name = {},
                         .maintainer = "The makers of these themes",
                         .description = {}};
    bool force = false, json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            if (!force) require_replaceable(output, OutputKind::package, files);
            tools::boot(workshop.device, tools::settings);
            tools::load(library());
            auto themes = parcel(workshop, files);
            if (!themes) {
                complain(output, "was not made");
                return Status::unusable;
            }
            std::ranges::sort(*themes, {}, &ParcelledTheme::name);
            const ThemePackage whole = completed(*themes);
            const std::string bytes = packed(whole, *themes);
            write_output(output, bytes);
            if (output != "-") report(whole, *themes, bytes.size());
            return Status::fine;
        });
    }

  private:
    /// What was not asked for is made of the output's name and of the themes.
    ThemePackage completed(const std::vector<ParcelledTheme>& themes) const {
        ThemePackage whole = package;
        if (whole.id.empty()) {
            std::string name = std::filesystem::path(output).stem();
            name = name.substr(0, name.find('_'));
            std::ranges::transform(name, name.begin(), [](char c) {
                return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
            });
            whole.id = "huecraft-theme." + name;
            if (!fault_of_id(whole.id).empty())
                throw Unusable(
                    output, "no package can be called " + in_quotes(whole.id) + ", after it; --id names one");
        }
        const std::string kind = themes.size() == 1 ? " for the keyboard" : " themes for the keyboard";
        if (whole.name.empty())
            whole.name =
                themes.size() == 1 ? one_line(themes[0].title) : std::to_string(themes.size()) + kind;
        if (whole.description.empty()) {
            std::string titles;
            for (const ParcelledTheme& theme : themes)
                titles += (titles.empty() ? "" : ", ") + one_line(theme.title);
            whole.description = one_line((themes.size() == 1 ? "A theme" : "Themes") +
                                             std::string(" for Huecraft's keyboard: ") + titles,
                                         300);
        }
        return whole;
    }

    void report(const ThemePackage& whole, const std::vector<ParcelledTheme>& themes, size_t bytes) const {
        if (json) {
            Json names = Json::array();
            for (const ParcelledTheme& theme : themes) names.push_back(theme.name);
            std::fputs(printed({{"package", output},
                                {"id", whole.id},
                                {"version", whole.version},
                                {"name", whole.name},
                                {"themes", names},
                                {"bytes", bytes}})
                           .c_str(),
                       stdout);
            return;
        }
        std::printf("packed %s: %s %s, %s, %zu bytes\n", toned(Tone::strong, one_line(output, 4096)).c_str(),
                    whole.id.c_str(), whole.version.c_str(), counted(themes.size(), "theme").c_str(), bytes);
    }
};

}  // namespace

void add_pack(CLI::App& command, Request& request) {
    auto options = std::make_shared<Pack>();
    const Subcommand sub = add_subcommand(
        command, request, "pack", "Make a package of themes for the phone's package manager", options);
    sub.add_option("THEMES", options->files, "The themes").required().type_name("FILE");
    sub.add_option("-o,--output", options->output, "The package to write; - is standard output")
        .required()
        .type_name("FILE");
    ThemePackage& package = options->package;
    sub.add_option("--id", package.id,
                   "What installers know it by; huecraft-theme. and the output's name without it")
        .type_name("ID")
        .check(fault_of_id);
    sub.add_option("--version", package.version, "Its version; 1.0 without it")
        .type_name("VERSION")
        .check(fault_of_version);
    sub.add_option("--name", package.name, "Its name for people; the theme's without it")
        .type_name("NAME")
        .check(fault_of_line);
    sub.add_option("--maintainer", package.maintainer, "Who answers for it: \"Name <address>\"")
        .type_name("NAME")
        .check(fault_of_line);
    sub.add_option("--description", package.description, "A line about it; lists the themes without it")
        .type_name("TEXT")
        .check(fault_of_line);
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub.footer(
        "The package keeps its themes in a folder of its own. Installing copies those whose place among the "
        "user's themes\n"
        "is free; removing and updating take away the copies that nobody has changed. The same themes give "
        "the same\n"
        "bytes.\n\n"
        "Examples:\n"
        "  huecraft pack Midnight.plist -o midnight.deb\n"
        "  huecraft pack themes/*.plist -o night.deb --id org.example.night --version 1.1 --name \"Night\"");
}

}  // namespace command
