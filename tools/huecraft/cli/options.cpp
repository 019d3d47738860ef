#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>

#include "cli/terminal.h"
#include "formats/imported.h"
#include "themes/colour.h"

namespace command {

std::optional<double> number_in_digits(std::string_view text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

Option Option::required() const { return Option(option_->required()); }

Option Option::excludes(Option other) const { return Option(option_->excludes(other.option_)); }

Option Option::needs(Option other) const { return Option(option_->needs(other.option_)); }

Option Option::allow_extra_args(bool allowed) const { return Option(option_->allow_extra_args(allowed)); }

Option Option::type_name(std::string_view name) const {
    return Option(option_->type_name(std::string(name)));
}

Option Option::check(const Fault& fault) const { return Option(option_->check(fault)); }

Option Option::transform(const Change& change) const {
    return Option(option_->transform(CLI::Validator(change, "")));
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

/// As the help lists words to choose from.
std::string listed(const std::vector<std::string>& words) { return joined(words, "|"); }

}  // namespace

Option Option::takes_colour() const { return type_name("COLOR").transform(keep_colour); }

Option Option::takes_colours() const {
    auto keep = [](std::string& text) -> std::string {
        std::vector<std::string> colours = comma_separated(text);
        for (std::string& colour : colours)
            if (std::string wrong = keep_colour(colour); !wrong.empty()) return wrong;
        if (colours.size() < 2) return "found one colour, expected two or more; --flat takes one";
        text.clear();
        for (const std::string& colour : colours) text += (text.empty() ? "" : ",") + colour;
        return "";
    };
    return type_name("COLORS").transform(keep);
}

Option Option::takes_direction() const {
    const std::vector<std::string> names = {"up",      "down",     "left",      "right",
                                            "up-left", "up-right", "down-left", "down-right"};
    auto keep = [names](std::string& text) -> std::string {
        for (size_t i = 0; i < names.size(); ++i)
            if (const std::string number = std::to_string(i + 1); text == names[i] || text == number) {
                text = number;
                return "";
            }
        return in_quotes(text) + " is not one of " + listed(names) + ", nor a number from 1 to 8";
    };
    return type_name(listed(names)).transform(keep);
}

Option Option::takes_one_of(const std::vector<std::string>& words) const {
    auto fault = [words](const std::string& text) -> std::string {
        if (std::ranges::find(words, text) != words.end()) return "";
        return in_quotes(text) + " is not one of " + listed(words);
    };
    return type_name(listed(words)).check(fault);
}

Option Option::takes_number(double from, double to) const {
    auto plain = [](double number) {
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", number);
        return std::string(text);
    };
    auto fault = [=](const std::string& text) -> std::string {
        const auto number = number_in_digits(text);
        if (number && *number >= from && *number <= to) return "";
        return in_quotes(text) + " is not a number from " + plain(from) + " to " + plain(to);
    };
    return type_name("N").check(fault);
}

Option Option::takes_whole_number(int from, int to) const {
    auto fault = [=](const std::string& text) -> std::string {
        int number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        if (error == std::errc() && end == text.data() + text.size() && number >= from && number <= to)
            return "";
        return in_quotes(text) + " is not a whole number from " + std::to_string(from) + " to " +
               std::to_string(to);
    };
    return type_name("N").check(fault);
}

namespace {

template <class Value>
Option added(CLI::App* subcommand, std::string_view names, Value& value, std::string_view description) {
    return Option(subcommand->add_option(std::string(names), value, std::string(description)));
}

}  // namespace

Option Subcommand::add_option(std::string_view names, std::string& value,
                              std::string_view description) const {
    return added(subcommand_, names, value, description);
}

Option Subcommand::add_option(std::string_view names, std::vector<std::string>& values,
                              std::string_view description) const {
    return added(subcommand_, names, values, description);
}

Option Subcommand::add_option(std::string_view names, unsigned& value, std::string_view description) const {
    return added(subcommand_, names, value, description);
}

Option Subcommand::add_option(std::string_view names, double& value, std::string_view description) const {
    return added(subcommand_, names, value, description);
}

Option Subcommand::add_option(std::string_view names, std::optional<double>& value,
                              std::string_view description) const {
    auto take = [&value](double number) { value = number; };
    return Option(
        subcommand_->add_option_function<double>(std::string(names), take, std::string(description)));
}

Option Subcommand::add_flag(std::string_view names, bool& given, std::string_view description) const {
    return Option(subcommand_->add_flag(std::string(names), given, std::string(description)));
}

Option Subcommand::add_flag(std::string_view names, const std::function<void()>& given,
                            std::string_view description) const {
    auto take = [given](std::int64_t) { given(); };
    return Option(subcommand_->add_flag_function(std::string(names), take, std::string(description)));
}

void Subcommand::footer(std::string_view text) const { subcommand_->footer(std::string(text)); }

}  // namespace command
