#include "cli/misuse.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>

#include "cli/describe.h"
#include "cli/terminal.h"

namespace command {
namespace {

/// What stands there and belongs to nothing.
std::string surplus_in_words(const CLI::App& subcommand, const std::string& found) {
    if (found.size() > 1 && found[0] == '-') return "there is no option " + in_quotes(found);
    std::string last;
    for (const CLI::Option* option : subcommand.get_options())
        if (option->get_positional()) last = option->get_name();
    return "found " + in_quotes(found) + ", expected " +
           (last.empty() ? "options only" : "nothing behind " + last);
}

std::string missing_in_words(const CLI::App& command) {
    const CLI::App& subcommand = chosen(command);
    for (const CLI::Option* option : subcommand.get_options())
        if (option->get_required() && option->count() == 0)
            return "found no " + name_with_value(*option) + ", expected " + expected_of(*option);
    std::vector<std::string> names;
    for (const CLI::App* one : subcommands_of(command)) names.push_back(one->get_name());
    return "found no subcommand, expected one of " + joined(names);
}

std::string conflict_in_words(const CLI::App& subcommand) {
    for (const CLI::Option* option : subcommand.get_options()) {
        if (option->count() == 0) continue;
        for (const CLI::Option* other : option->get_excludes())
            if (other->count() > 0)
                return "found " + option->get_name() + " and " + other->get_name() + ", expected one of them";
        for (const CLI::Option* other : option->get_needs())
            if (other->count() == 0)
                return "found " + option->get_name() + " without " + other->get_name() + ", expected both";
    }
    return "";
}

/// A number of values that the option does not take. The error alone knows which option it is.
std::string mismatch_in_words(const CLI::App& subcommand, const std::string& error) {
    for (const CLI::Option* option : subcommand.get_options()) {
        const std::string name = option->get_name();
        // A flag is named there without its dashes.
        const bool is_flag = option->get_items_expected_max() == 0;
        if (!error.starts_with((is_flag ? name.substr(name.find_first_not_of('-')) + ' ' : name + ':')))
            continue;
        if (is_flag) return name + ": found a value, expected none";
        if (option->count() == 0) return name + ": found nothing behind it, expected " + expected_of(*option);
        return name + ": found " + std::to_string(option->count()) + " times, expected once";
    }
    return error;
}

}  // namespace

std::string expected_of(const CLI::Option& option) {
    if (const auto words = choices_of(option); !words.empty()) return "one of " + joined(words);
    std::string what = option.get_description().substr(0, option.get_description().find(';'));
    if (!what.empty()) what[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(what[0])));
    return what;
}

const CLI::App& chosen(const CLI::App& command) {
    const auto named = command.get_subcommands();
    return named.empty() ? command : *named.front();
}

std::string misuse_in_words(const CLI::App& command, const CLI::ParseError& error) {
    const CLI::App& subcommand = chosen(command);
    // The validators speak for themselves.
    if (dynamic_cast<const CLI::ValidationError*>(&error)) return error.what();
    if (const auto surplus = command.remaining(true); !surplus.empty())
        return surplus_in_words(subcommand, surplus.front());
    if (dynamic_cast<const CLI::RequiredError*>(&error)) return missing_in_words(command);
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error))
        return mismatch_in_words(subcommand, error.what());
    const std::string conflict = conflict_in_words(subcommand);
    return conflict.empty() ? error.what() : conflict;
}

}  // namespace command
