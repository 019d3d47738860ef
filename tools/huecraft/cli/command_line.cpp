#include "cli/command_line.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "cli/formatter.h"
#include "cli/terminal.h"
#include "formats/imported.h"
#include "themes/colour.h"

namespace command {

void add_json(CLI::App* subcommand, bool& json) {
    auto take = [&json](std::int64_t) {
        json = true;
        answer_in_json();
    };
    subcommand->add_flag_function("--json", take, "Answer in JSON, for other programs");
}

void add_force(CLI::App* subcommand, bool& force) {
    subcommand->add_flag("--force", force, "Replace a file that is read as well, or of another kind");
}

void add_library(CLI::App* subcommand, std::string& library) {
    subcommand
        ->add_option("--library", library,
                     "The build of the library that draws, ELF or Mach-O; the command's own without it")
        ->type_name("FILE");
}

std::optional<double> number_in_digits(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

namespace {

/// Puts the colour in place of the words for it; answers what is wrong with them.
std::string keep_colour(std::string& text) {
    const auto colour = colour_in_words(text);
    if (!colour)
        return in_quotes(text) +
               " is not a colour; expected #RRGGBB, #RRGGBBAA, rgb(…), hsl(…) or a name of CSS";
    text = hex_of(*colour);
    return "";
}

}  // namespace

CLI::Option* taking_colour(CLI::Option* option) {
    return option->type_name("COLOR")->transform(CLI::Validator(keep_colour, "", "colour"));
}

CLI::Option* taking_colours(CLI::Option* option) {
    auto keep = [](std::string& text) -> std::string {
        std::vector<std::string> colours = comma_separated(text);
        for (std::string& colour : colours)
            if (std::string wrong = keep_colour(colour); !wrong.empty()) return wrong;
        if (colours.size() < 2) return "found one colour, expected two or more; --flat takes one";
        text.clear();
        for (const std::string& colour : colours) text += (text.empty() ? "" : ",") + colour;
        return "";
    };
    return option->type_name("COLORS")->transform(CLI::Validator(keep, "", "colours"));
}

CLI::Option* taking_direction(CLI::Option* option) {
    constexpr const char* names[] = {"up",      "down",     "left",      "right",
                                     "up-left", "up-right", "down-left", "down-right"};
    std::string listed;
    for (const char* name : names) listed += (listed.empty() ? "" : "|") + std::string(name);
    auto keep = [names, listed](std::string& text) -> std::string {
        for (size_t i = 0; i < std::size(names); ++i)
            if (const std::string number = std::to_string(i + 1); text == names[i] || text == number) {
                text = number;
                return "";
            }
        return in_quotes(text) + " is not one of " + listed + ", nor a number from 1 to 8";
    };
    return option->type_name(listed)->transform(CLI::Validator(keep, "", "direction"));
}

CLI::Option* taking_number(CLI::Option* option, double from, double to) {
    auto plain = [](double number) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", number);
        return std::string(text);
    };
    auto refusal = [=](const std::string& text) -> std::string {
        const auto number = number_in_digits(text);
        if (number && *number >= from && *number <= to) return "";
        return in_quotes(text) + " is not a number from " + plain(from) + " to " + plain(to);
    };
    return option->type_name("N")->check(refusal, "", "number");
}

CLI::Option* taking_whole_number(CLI::Option* option, int from, int to) {
    auto refusal = [=](const std::string& text) -> std::string {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error == std::errc() && end == text.data() + text.size() && number >= from && number <= to)
            return "";
        return in_quotes(text) + " is not a whole number from " + std::to_string(from) + " to " +
               std::to_string(to);
    };
    return option->type_name("N")->check(refusal, "", "number");
}

CLI::Option* taking_one_of(CLI::Option* option, const std::vector<std::string>& words) {
    std::string listed;
    for (const std::string& word : words) listed += (listed.empty() ? "" : "|") + word;
    auto refusal = [words, listed](const std::string& text) -> std::string {
        if (std::ranges::find(words, text) != words.end()) return "";
        return in_quotes(text) + " is not one of " + listed;
    };
    return option->type_name(listed)->check(refusal, "", "word");
}

/// --json=maybe would be a number to the parser.
static void refuse_values_of_flags(CLI::App& command) {
    for (CLI::Option* option : command.get_options())
        if (option->get_items_expected_max() == 0) option->disable_flag_override();
}

std::unique_ptr<CLI::App> make_command_line(Request& request) {
    auto command = std::make_unique<CLI::App>("Makes, checks and shows keyboard themes.", "huecraft");
    command->require_subcommand(1);
    command->formatter(std::make_shared<Formatter>());
    command->set_version_flag("--version", "huecraft " PROJECT_VERSION, "Print the version and exit");
    command->footer(
        "Exit status: 0 all is well, 1 something was found, 2 misuse or a file that cannot be used.\n"
        "\"huecraft SUBCOMMAND --help\" has the options and examples.");
    add_new(*command, request);
    add_edit(*command, request);
    add_show(*command, request);
    add_lint(*command, request);
    add_keyboard(*command, request);
    add_preview(*command, request);
    add_gallery(*command, request);
    add_pane(*command, request);
    add_picker(*command, request);
    add_convert(*command, request);
    add_import(*command, request);
    add_send(*command, request);
    add_pack(*command, request);
    add_package_check(*command, request);
    add_doctor(*command, request);
    add_completions(*command, request);
    add_help(*command, request);
    for (CLI::App* one : command->get_subcommands([](const CLI::App*) { return true; })) {
        one->formatter(command->get_formatter());
        refuse_values_of_flags(*one);
    }
    refuse_values_of_flags(*command);
    return command;
}

}  // namespace command
