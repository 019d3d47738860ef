// The options of a subcommand, and what they take. The parser behind them is a header that takes longer to
// compile than a subcommand does: of those who describe themselves with these, none includes it.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace command {

/// The number that is written there from beginning to end, in decimal digits; nothing else is one.
std::optional<double> number_in_digits(std::string_view text);

/// An option that was added; its copies are the same option. Each call answers it again, for the next.
class Option {
  public:
    explicit Option(CLI::Option* option) : option_(option) {}

    Option required() const;
    Option excludes(Option other) const;
    Option needs(Option other) const;
    /// Whether one mention of it takes all the values that follow, as a list otherwise does.
    Option allow_extra_args(bool allowed) const;
    /// What the help calls its value; nothing for what stands by itself, under its own name.
    Option type_name(std::string_view name) const;

    /// What is wrong with a value, in words; nothing for one that may stand.
    using Fault = std::function<std::string(const std::string& value)>;
    Option check(const Fault& fault) const;

    /// Has it take a colour in one of its notations, and keep it as a theme does: #RRGGBB or #RRGGBBAA.
    Option takes_colour() const;
    /// The same of two colours or more, with commas between them.
    Option takes_colours() const;
    /// Has it take a gradient's direction by name or number, and keep the number.
    Option takes_direction() const;
    /// Has it take one of these words, which the help lists.
    Option takes_one_of(const std::vector<std::string>& words) const;
    /// Has it take finite numbers from one to another.
    Option takes_number(double from, double to) const;
    Option takes_whole_number(int from, int to) const;

  private:
    /// Puts another value in the place of this one; answers what is wrong with it, as a fault does.
    using Change = std::function<std::string(std::string& value)>;
    Option transform(const Change& change) const;

    CLI::Option* option_;
};

/// A subcommand that was added; its copies are the same subcommand.
class Subcommand {
  public:
    explicit Subcommand(CLI::App* subcommand) : subcommand_(subcommand) {}

    // The value is as it was where the option is not used. Names are as in "-o,--output"; one without dashes
    // stands by itself.
    Option add_option(std::string_view names, std::string& value, std::string_view description) const;
    /// Of one value or more.
    Option add_option(std::string_view names, std::vector<std::string>& values,
                      std::string_view description) const;
    Option add_option(std::string_view names, unsigned& value, std::string_view description) const;
    Option add_option(std::string_view names, double& value, std::string_view description) const;
    Option add_option(std::string_view names, std::optional<double>& value,
                      std::string_view description) const;

    Option add_flag(std::string_view names, bool& given, std::string_view description) const;
    Option add_flag(std::string_view names, const std::function<void()>& given,
                    std::string_view description) const;

    /// What the help ends with.
    void footer(std::string_view text) const;

  private:
    CLI::App* subcommand_;
};

}  // namespace command
