#include "cli/describe.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <set>
#include <sstream>

#include "cli/shell_words.h"
#include "cli/terminal.h"

namespace command {
namespace {

/// Those with a name that begins with a dash; the others stand by themselves.
std::vector<const CLI::Option*> options_of(const CLI::App& command, bool positional) {
    auto options = command.get_options();
    std::erase_if(options, [&](const CLI::Option* one) { return one->get_positional() != positional; });
    return {options.begin(), options.end()};
}

bool takes_a_value(const CLI::Option* option) { return option->get_items_expected_max() > 0; }

std::vector<std::string> dashed_names(const CLI::Option* option) {
    std::vector<std::string> names;
    for (const std::string& name : option->get_snames()) names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    return names;
}

std::string all_dashed_names(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : options_of(command, false))
        for (const std::string& name : dashed_names(option)) names.push_back(name);
    return joined(names, " ");
}

/// What a subcommand cannot do without, as its synopsis has it: "THEME -o FILE", "[SUBCOMMAND]", "THEMES...".
std::string synopsis(const CLI::App& subcommand) {
    std::string words;
    for (const CLI::Option* option : options_of(subcommand, true)) {
        const std::string name = option->get_name() + (option->get_items_expected_max() > 1 ? "..." : "");
        words += (words.empty() ? "" : " ") + (option->get_required() ? name : "[" + name + "]");
    }
    for (const CLI::Option* option : options_of(subcommand, false))
        if (option->get_required())
            words += " " + dashed_names(option).front() + " " + option->get_type_name();
    return words;
}

/// The option's description, with what it goes with and what not.
std::string whole_description(const CLI::Option& option) {
    const auto listed = [](const std::set<CLI::Option*>& options) {
        std::vector<std::string> names;
        for (const CLI::Option* one : options) names.push_back(one->get_name());
        std::ranges::sort(names);
        return joined(names);
    };
    std::string words = option.get_description();
    if (!option.get_needs().empty()) words += " (with " + listed(option.get_needs()) + ")";
    if (!option.get_excludes().empty()) words += " (not with " + listed(option.get_excludes()) + ")";
    return words;
}

/// What is required stands in the usage, and what excludes what behind the descriptions.
class Formatter : public CLI::Formatter {
    std::string make_usage(const CLI::App* app, std::string name) const override {
        if (!app->get_parent()) return CLI::Formatter::make_usage(app, std::move(name));
        const std::string words = synopsis(*app);
        return "Usage: " + name + " [OPTIONS]" + (words.empty() ? "" : " " + words) + "\n";
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_items_expected_max() == 0) return "";
        const std::string type = option->get_type_name();
        if (option->get_positional()) return option->get_items_expected_max() > 1 ? "..." : "";
        return type.empty() ? "" : " " + type;
    }

    std::string make_option_desc(const CLI::Option* option) const override {
        return whole_description(*option);
    }
};

/// For zsh, which reads brackets and colons in a description.
std::string zsh_text(const std::string& text) {
    std::string safe;
    for (char c : text) safe += c == '[' || c == ']' || c == ':' ? std::string{'\\', c} : std::string(1, c);
    return safe;
}

std::string roff(const std::string& text) {
    std::string safe;
    bool line_start = true;
    for (char c : text) {
        if (line_start && (c == '.' || c == '\'')) safe += "\\&";
        if (c == '\\')
            safe += "\\e";
        else if (c == '-')
            safe += "\\-";
        else
            safe += c;
        line_start = c == '\n';
    }
    return safe;
}

/// The footer as it stands, line by line.
std::string verbatim(const std::string& text) { return ".nf\n" + roff(text) + "\n.fi\n"; }

}  // namespace

std::vector<const CLI::App*> subcommands_of(const CLI::App& command) {
    return command.get_subcommands([](const CLI::App* one) { return !one->get_name().empty(); });
}

const CLI::App* subcommand_named(const CLI::App& command, const std::string& name) {
    const auto all = subcommands_of(command);
    const auto found = std::ranges::find(all, name, &CLI::App::get_name);
    return found == all.end() ? nullptr : *found;
}

std::vector<std::string> choices_of(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    if (type.find('|') == type.npos) return {};
    std::vector<std::string> words;
    std::istringstream parts(type);
    for (std::string word; std::getline(parts, word, '|');) words.push_back(word);
    return words;
}

std::string name_with_value(const CLI::Option& option) {
    const std::string name = option.get_name();
    return option.get_positional() || !takes_a_value(&option) ? name : name + " " + option.get_type_name();
}

std::shared_ptr<CLI::FormatterBase> formatter_of_help() { return std::make_shared<Formatter>(); }

std::string help(const CLI::App& command) {
    // Its own help() would be that of the subcommand that was called.
    return command.get_formatter()->make_help(&command, command.get_name(), CLI::AppFormatMode::Normal);
}

std::optional<std::string> help_of_subcommand(const CLI::App& command, const std::string& name) {
    const CLI::App* subcommand = subcommand_named(command, name);
    return subcommand ? std::optional(subcommand->help("huecraft")) : std::nullopt;
}

std::string bash_completion(const CLI::App& command) {
    std::string names, cases;
    for (const CLI::App* sub : subcommands_of(command)) {
        names += (names.empty() ? "" : " ") + sub->get_name();
        cases += "        " + sub->get_name() + ")\n            options='" + all_dashed_names(*sub) + "'\n";
        std::string choices;
        for (const CLI::Option* option : options_of(*sub, false))
            if (const auto words = choices_of(*option); !words.empty())
                choices += "                " + joined(dashed_names(option), "|") + ") words='" +
                           joined(words, " ") + "' ;;\n";
        if (!choices.empty()) cases += "            case $previous in\n" + choices + "            esac\n";
        cases += "            ;;\n";
    }
    return "# Completion of huecraft for bash.\n"
           "_huecraft() {\n"
           "    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} options "
           "words\n"
           "    COMPREPLY=()\n"
           "    if ((COMP_CWORD == 1)); then\n"
           "        mapfile -t COMPREPLY < <(compgen -W '" +
           names + " " + all_dashed_names(command) +
           "' -- \"$current\")\n"
           "        return\n"
           "    fi\n"
           "    case ${COMP_WORDS[1]} in\n" +
           cases +
           "    esac\n"
           "    if [[ $words ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$current\")\n"
           "    elif [[ $current == -* ]]; then\n"
           "        mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$current\")\n"
           "    else\n"
           "        compopt -o filenames\n"
           "        mapfile -t COMPREPLY < <(compgen -f -- \"$current\")\n"
           "    fi\n"
           "}\n"
           "complete -F _huecraft huecraft\n";
}

std::string zsh_completion(const CLI::App& command) {
    std::string names, cases;
    for (const CLI::App* sub : subcommands_of(command)) {
        names +=
            "        " + in_single_quotes(sub->get_name() + ":" + zsh_text(sub->get_description())) + "\n";
        cases += "        " + sub->get_name() + ") _arguments";
        for (const CLI::Option* option : options_of(*sub, false))
            for (const std::string& name : dashed_names(option)) {
                std::string one = name + "[" + zsh_text(option->get_description()) + "]";
                const auto words = choices_of(*option);
                if (!words.empty())
                    one += ":word:(" + joined(words, " ") + ")";
                else if (takes_a_value(option))
                    one += ":value:_files";
                cases += " \\\n            " + in_single_quotes(one);
            }
        cases += " \\\n            '*:file:_files' ;;\n";
    }
    return "#compdef huecraft\n"
           "# Completion of huecraft for zsh.\n"
           "_huecraft() {\n"
           "    local -a subcommands=(\n" +
           names +
           "    )\n"
           "    if ((CURRENT == 2)); then\n"
           "        _describe subcommand subcommands\n"
           "        return\n"
           "    fi\n"
           "    local subcommand=$words[2]\n"
           "    shift words\n"
           "    ((CURRENT--))\n"
           "    case $subcommand in\n" +
           cases +
           "    esac\n"
           "}\n"
           "_huecraft \"$@\"\n";
}

std::string fish_completion(const CLI::App& command) {
    std::string lines = "# Completion of huecraft for fish.\n";
    for (const CLI::App* sub : subcommands_of(command))
        lines += "complete -c huecraft -n __fish_use_subcommand -f -a " + sub->get_name() + " -d " +
                 in_single_quotes(sub->get_description()) + "\n";
    for (const CLI::App* sub : subcommands_of(command))
        for (const CLI::Option* option : options_of(*sub, false)) {
            lines += "complete -c huecraft -n '__fish_seen_subcommand_from " + sub->get_name() + "'";
            for (const std::string& name : option->get_snames()) lines += " -s " + name;
            for (const std::string& name : option->get_lnames()) lines += " -l " + name;
            const auto words = choices_of(*option);
            if (!words.empty())
                lines += " -x -a '" + joined(words, " ") + "'";
            else if (takes_a_value(option))
                lines += " -r";
            lines += " -d " + in_single_quotes(option->get_description()) + "\n";
        }
    return lines;
}

std::string manual(const CLI::App& command) {
    std::string page =
        ".TH HUECRAFT 1\n.SH NAME\nhuecraft \\- makes, checks and shows keyboard themes\n.SH SYNOPSIS\n";
    for (const CLI::App* sub : subcommands_of(command)) {
        page += ".B huecraft " + sub->get_name() + "\n[\\fIOPTIONS\\fR]";
        if (const std::string words = synopsis(*sub); !words.empty()) page += " \\fI" + roff(words) + "\\fR";
        page += "\n.br\n";
    }
    page +=
        ".SH DESCRIPTION\n" + roff(command.get_description()) +
        "\nEverything said about a theme comes from the library that themes the keyboard, run in a simulated "
        "phone.\n.SH SUBCOMMANDS\n";
    for (const CLI::App* sub : subcommands_of(command)) {
        page += ".SS " + sub->get_name() + "\n" + roff(sub->get_description()) + ".\n";
        for (const bool positional : {true, false})
            for (const CLI::Option* option : options_of(*sub, positional)) {
                page += ".TP\n\\fB" +
                        roff(positional ? option->get_name() : joined(dashed_names(option), ", ")) + "\\fR";
                if (!positional && takes_a_value(option))
                    page += " \\fI" + roff(option->get_type_name()) + "\\fR";
                page += "\n" + roff(whole_description(*option)) + "\n";
            }
        page += ".PP\n" + verbatim(sub->get_footer());
    }
    return page +
           ".SH EXIT STATUS\n0 all is well, 1 something was found, 2 misuse or a file that cannot be used.\n"
           ".SH ENVIRONMENT\n.TP\n\\fBNO_COLOR\\fR\nNot empty: no colours on a terminal.\n"
           ".TP\n\\fBTMPDIR\\fR\nThe folder for temporary files; /tmp without it.\n";
}

}  // namespace command
